# What `cmake --install` copies, and the CMake packages of the installed library and of the build tree. The
# components are what distributions make packages of: runtime, development, tool, documentation.
include(CMakePackageConfigHelpers)

set(cmake_folder "${CMAKE_INSTALL_LIBDIR}/cmake/hdlbuildfile")
set(header_folder "${CMAKE_INSTALL_INCLUDEDIR}/hdlbuildfile")

# Sets `result` to every header that the umbrella header includes, directly or not, and itself.
function(hdlbuildfile_list_public_headers result)
    set(pending hdlbuildfile.h)
    set(headers "")
    while(pending)
        list(POP_FRONT pending header)
        list(APPEND headers ${header})
        file(STRINGS "${PROJECT_SOURCE_DIR}/src/${header}" included REGEX "^#include \"")
        list(TRANSFORM included REPLACE "^#include \"([^\"]+)\".*" "\\1")
        list(APPEND pending ${included})
        list(REMOVE_DUPLICATES pending)
        list(REMOVE_ITEM pending ${headers})
    endwhile()
    set(${result} ${headers} PARENT_SCOPE)
endfunction()

hdlbuildfile_list_public_headers(headers)
set_property(DIRECTORY APPEND PROPERTY
    CMAKE_CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/src/hdlbuildfile.h")
foreach(header IN LISTS headers)
    cmake_path(GET header PARENT_PATH folder)
    install(FILES "src/${header}" DESTINATION "${header_folder}/${folder}" COMPONENT development)
endforeach()

install(TARGETS hdlbuildfile EXPORT hdlbuildfileTargets
    RUNTIME COMPONENT runtime
    LIBRARY COMPONENT runtime NAMELINK_COMPONENT development
    ARCHIVE COMPONENT development
    INCLUDES DESTINATION "${header_folder}")
if(TARGET hdlbuildfile_allocator)
    cmake_path(GET HDLBUILDFILE_INSTALLED_ALLOCATOR PARENT_PATH folder)
    cmake_path(GET HDLBUILDFILE_INSTALLED_ALLOCATOR FILENAME name)
    install(FILES $<TARGET_OBJECTS:hdlbuildfile_allocator> DESTINATION "${folder}" RENAME ${name}
        COMPONENT development)
endif()
if(HDLBUILDFILE_TOOL)
    file(RELATIVE_PATH libraries_from_tool
        "${CMAKE_INSTALL_FULL_BINDIR}" "${CMAKE_INSTALL_FULL_LIBDIR}")
    # The build folder's own name would leave room for itself in the program.
    set_target_properties(hdlbuild PROPERTIES
        INSTALL_RPATH "$ORIGIN/${libraries_from_tool}"
        BUILD_RPATH_USE_ORIGIN ON)
    install(TARGETS hdlbuild COMPONENT tool)
    include(HdlBuildFileShellFiles)
endif()
install(FILES README.md CHANGELOG.md LICENSE NOTICES.md DESTINATION "${CMAKE_INSTALL_DOCDIR}"
    COMPONENT documentation)
install(DIRECTORY docs examples DESTINATION "${CMAKE_INSTALL_DOCDIR}" COMPONENT documentation)
# The site, where scripts/docs has built it.
install(DIRECTORY "${PROJECT_SOURCE_DIR}/build/docs/" DESTINATION "${CMAKE_INSTALL_DOCDIR}/html"
    COMPONENT documentation OPTIONAL)

# For find_package. Each minor version may break its callers while the major version is 0.
set(compatibility SameMajorVersion)
if(PROJECT_VERSION_MAJOR EQUAL 0)
    set(compatibility SameMinorVersion)
endif()
set(dependencies "")
if(TARGET hdlbuildfile_allocator)
    string(APPEND dependencies "find_dependency(TBB COMPONENTS tbbmalloc)\n")
endif()
if(NOT BUILD_SHARED_LIBS)
    string(APPEND dependencies "find_dependency(EXPAT)\n")
endif()
configure_file(cmake/hdlbuildfileConfig.cmake.in hdlbuildfileConfig.cmake @ONLY)
write_basic_package_version_file(hdlbuildfileConfigVersion.cmake COMPATIBILITY ${compatibility})
install(FILES
    "${PROJECT_BINARY_DIR}/hdlbuildfileConfig.cmake"
    "${PROJECT_BINARY_DIR}/hdlbuildfileConfigVersion.cmake" DESTINATION "${cmake_folder}"
    COMPONENT development)
install(EXPORT hdlbuildfileTargets NAMESPACE hdlbuildfile:: DESTINATION "${cmake_folder}"
    COMPONENT development)

# The same package in the build tree, whose allocator is a target, not an installed file.
set(exported hdlbuildfile)
if(TARGET hdlbuildfile_allocator)
    list(APPEND exported hdlbuildfile_allocator)
endif()
export(TARGETS ${exported} NAMESPACE hdlbuildfile:: FILE hdlbuildfileTargets.cmake)

# For pkg-config, with paths relative to the file's own folder.
file(RELATIVE_PATH prefix_from_pc "${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig" "${CMAKE_INSTALL_PREFIX}")
string(REGEX REPLACE "/$" "" prefix_from_pc "${prefix_from_pc}")
set(pc_requires "")
if(NOT BUILD_SHARED_LIBS)
    set(pc_requires "expat")
endif()
set(pc_libs "-L\${libdir} -lhdlbuildfile")
if(TARGET hdlbuildfile_allocator)
    # The object goes first: the archive of a static build holds the same functions.
    set(pc_libs "\${prefix}/${HDLBUILDFILE_INSTALLED_ALLOCATOR} ${pc_libs} -ltbbmalloc")
endif()
set(definitions "$<TARGET_PROPERTY:hdlbuildfile,INTERFACE_COMPILE_DEFINITIONS>")
set(pc_definitions "$<$<BOOL:${definitions}>: -D$<JOIN:${definitions}, -D>>")
configure_file(cmake/hdlbuildfile.pc.in hdlbuildfile.pc.in @ONLY)
file(GENERATE OUTPUT hdlbuildfile.pc INPUT "${PROJECT_BINARY_DIR}/hdlbuildfile.pc.in")
install(FILES "${PROJECT_BINARY_DIR}/hdlbuildfile.pc"
    DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig" COMPONENT development)

# For a package that is complete without an installed TBB.
if(HDLBUILDFILE_BUNDLE_TBB)
    get_target_property(tbb_headers TBB::tbbmalloc INTERFACE_INCLUDE_DIRECTORIES)
    install(FILES $<TARGET_FILE:TBB::tbbmalloc> DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT runtime)
    # The tool alone runs on TBB itself.
    if(HDLBUILDFILE_TOOL)
        install(FILES $<TARGET_FILE:TBB::tbb> DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT tool)
    endif()
    install(FILES $<TARGET_LINKER_FILE:TBB::tbbmalloc> DESTINATION "${CMAKE_INSTALL_LIBDIR}"
        COMPONENT development)
    install(DIRECTORY "${tbb_headers}/tbb" "${tbb_headers}/oneapi"
        DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}" COMPONENT development)
    install(DIRECTORY "${TBB_DIR}/" DESTINATION "${CMAKE_INSTALL_LIBDIR}/cmake/TBB" COMPONENT development)
    install(DIRECTORY "${tbb_headers}/../share/licenses" DESTINATION "${CMAKE_INSTALL_DOCDIR}"
        COMPONENT runtime)
endif()
