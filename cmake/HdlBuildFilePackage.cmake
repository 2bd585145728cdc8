# What CPack makes of the installed files: a .zip for Windows, a .tar.gz and a .deb elsewhere.
set(CPACK_PACKAGE_VENDOR "hdlbuildfile")
set(CPACK_PACKAGE_CONTACT "hdlbuildfile maintainers <maintainers@hdlbuildfile.invalid>" CACHE STRING
    "Who maintains the packages, with a mail address")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_PACKAGE_DESCRIPTION
    "The library that reads, orders and writes HDL build files, its headers, and the tool hdlbuild.")
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)

find_program(DPKG_SHLIBDEPS dpkg-shlibdeps)
mark_as_advanced(DPKG_SHLIBDEPS)
if(WIN32)
    set(CPACK_GENERATOR ZIP)
else()
    set(CPACK_GENERATOR TGZ)
    set(CPACK_SYSTEM_NAME "${CMAKE_SYSTEM_NAME}-${CMAKE_SYSTEM_PROCESSOR}")
endif()
if(DPKG_SHLIBDEPS AND NOT WIN32)
    list(APPEND CPACK_GENERATOR DEB)
endif()

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
# Besides the shared libraries: what a program that is built on the library needs.
if(TARGET hdlbuildfile_allocator)
    set(CPACK_DEBIAN_PACKAGE_DEPENDS libtbb-dev)
endif()
include(CPack)
