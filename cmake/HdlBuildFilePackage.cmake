# What CPack makes of the installed files: a .zip for Windows; a .tar.gz and .rpms, one for each component, elsewhere.
# scripts/package makes the .debs, by debhelper, and the installer for Windows, by NSIS.
set(CPACK_PACKAGE_VENDOR "hdlbuildfile")
set(CPACK_PACKAGE_CONTACT "hdlbuildfile maintainers <maintainers@hdlbuildfile.invalid>" CACHE STRING
    "Who maintains the packages, with a mail address")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_PACKAGE_DESCRIPTION
    "The library that reads, orders and writes HDL build files, its headers, and the tool hdlbuild.")
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_PRE_BUILD_SCRIPTS
    "${PROJECT_SOURCE_DIR}/cmake/AddLicences.cmake"
    "${PROJECT_SOURCE_DIR}/cmake/RenewTimes.cmake")

if(WIN32)
    set(CPACK_GENERATOR ZIP)
else()
    set(CPACK_GENERATOR TGZ)
    set(CPACK_SYSTEM_NAME "${CMAKE_SYSTEM_NAME}-${CMAKE_SYSTEM_PROCESSOR}")
endif()

# .rpms, for `cpack -G RPM`.
set(CPACK_RPM_COMPONENT_INSTALL ON)
set(CPACK_RPM_FILE_NAME RPM-DEFAULT)
set(CPACK_RPM_PACKAGE_LICENSE MIT)
set(CPACK_RPM_PACKAGE_RELEASE 1)
set(CPACK_RPM_INSTALL_WITH_EXEC ON)
set(CPACK_RPM_RUNTIME_PACKAGE_NAME "libhdlbuildfile${HDLBUILDFILE_ABI}")
set(CPACK_RPM_RUNTIME_PACKAGE_GROUP "System Environment/Libraries")
set(CPACK_RPM_RUNTIME_PACKAGE_SUMMARY "The library over builds of HDL simulation projects")
set(CPACK_RPM_DEVELOPMENT_PACKAGE_NAME libhdlbuildfile-devel)
set(CPACK_RPM_DEVELOPMENT_PACKAGE_GROUP "Development/Libraries")
set(CPACK_RPM_DEVELOPMENT_PACKAGE_SUMMARY "Headers of the library over builds of HDL simulation projects")
set(CPACK_RPM_DEVELOPMENT_PACKAGE_REQUIRES "libhdlbuildfile${HDLBUILDFILE_ABI} = ${PROJECT_VERSION}")
if(TARGET hdlbuildfile_allocator)
    string(APPEND CPACK_RPM_DEVELOPMENT_PACKAGE_REQUIRES ", tbb-devel")
endif()
set(CPACK_RPM_TOOL_PACKAGE_NAME hdlbuild)
set(CPACK_RPM_TOOL_PACKAGE_GROUP "Applications/Engineering")
set(CPACK_RPM_TOOL_PACKAGE_SUMMARY "Checks, orders, changes and runs builds of HDL simulation projects")
set(CPACK_RPM_DOCUMENTATION_PACKAGE_NAME libhdlbuildfile-doc)
set(CPACK_RPM_DOCUMENTATION_PACKAGE_ARCHITECTURE noarch)
set(CPACK_RPM_DOCUMENTATION_PACKAGE_GROUP Documentation)
set(CPACK_RPM_DOCUMENTATION_PACKAGE_SUMMARY "The manual of hdlbuild and its library")
# As the .debs describe them.
set(build_in_memory "The build of an HDL simulation project in memory: which sources take part, in
which libraries and compile order, which components are simulated, and which
simulator runs each language with which options.

This package contains")
set(CPACK_RPM_RUNTIME_PACKAGE_DESCRIPTION
    "${build_in_memory} the shared library, which reads and writes the model as
an XML build file.")
set(CPACK_RPM_DEVELOPMENT_PACKAGE_DESCRIPTION
    "${build_in_memory} the C++ headers, the object file that every module over
the library links, and the packages for CMake and pkg-config.")
set(CPACK_RPM_TOOL_PACKAGE_DESCRIPTION
    "hdlbuild scans folders of VHDL, Verilog and SystemVerilog for what depends on
what, keeps the result in a build file, checks and changes it, puts sources in
compile order, exports builds for other tools, imports theirs, and runs
simulations with GHDL, NVC, Icarus Verilog and Verilator.")
set(CPACK_RPM_DOCUMENTATION_PACKAGE_DESCRIPTION
    "${build_in_memory} the user guide, the reference of commands, diagnostics
and formats, two example designs, and a program for each class.")
# Whoever installs the library or the tool alone has the licences as well: AddLicences.cmake copies them.
foreach(component IN ITEMS RUNTIME TOOL)
    set(CPACK_RPM_${component}_USER_FILELIST
        "%license /usr/share/licenses/${CPACK_RPM_${component}_PACKAGE_NAME}/LICENSE"
        "%license /usr/share/licenses/${CPACK_RPM_${component}_PACKAGE_NAME}/NOTICES.md")
endforeach()
# Folders of others.
set(CPACK_RPM_EXCLUDE_FROM_AUTO_FILELIST_ADDITION
    /usr/${CMAKE_INSTALL_LIBDIR}/cmake /usr/${CMAKE_INSTALL_LIBDIR}/pkgconfig
    /usr/share/licenses /usr/share/man /usr/share/man/man1 /usr/share/man/man5
    /usr/share/bash-completion /usr/share/bash-completion/completions
    /usr/share/fish /usr/share/fish/vendor_completions.d /usr/share/zsh /usr/share/zsh/vendor-completions)
# The same bytes whenever and wherever they are made: SOURCE_DATE_EPOCH is the time.
set(CPACK_RPM_SPEC_MORE_DEFINE "%define use_source_date_epoch_as_buildtime 1
%define clamp_mtime_to_source_date_epoch 1
%define _buildhost localhost
%define _build_id_links none")
include(CPack)
