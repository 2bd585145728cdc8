# The interface targets that every folder of the library shares, and the functions over them.
include(GNUInstallDirs)
set(HDLBUILDFILE_INSTALLED_ALLOCATOR
    "${CMAKE_INSTALL_LIBDIR}/hdlbuildfile/allocator${CMAKE_CXX_OUTPUT_EXTENSION}")

# Global, because whatever links the static library links it, too.
find_package(EXPAT REQUIRED GLOBAL)
find_path(SIMPLEINI_INCLUDE_DIR SimpleIni.h REQUIRED)

add_library(hdlbuildfile_warnings INTERFACE)
target_compile_options(hdlbuildfile_warnings INTERFACE $<$<COMPILE_LANGUAGE:CXX>:
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align
    -Wconversion -Wsign-conversion -Wformat=2 -Wimplicit-fallthrough -Wundef
    # GCC 12, optimising, sees impossible sizes and overlaps inside its own std::string.
    $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict;-Wno-stringop-overflow;-Wno-array-bounds>
    $<$<BOOL:${HDLBUILDFILE_WERROR}>:-Werror>>)

# What the folders compile with: the include root and C++20.
add_library(hdlbuildfile_folder INTERFACE)
target_include_directories(hdlbuildfile_folder INTERFACE
    $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/src>)
target_compile_features(hdlbuildfile_folder INTERFACE cxx_std_20)
target_compile_definitions(hdlbuildfile_folder INTERFACE
    HDLBUILDFILE_BUILDING $<$<NOT:$<BOOL:${BUILD_SHARED_LIBS}>>:HDLBUILDFILE_STATIC>)

# hdlbuildfile_add_folder(<name> SOURCES <file>... LINKS <lower folder>...)
# adds the object library hdlbuildfile_<name>; its links are the folder's permitted includes.
function(hdlbuildfile_add_folder name)
    cmake_parse_arguments(PARSE_ARGV 1 FOLDER "" "" "SOURCES;LINKS")
    add_library(hdlbuildfile_${name} OBJECT ${FOLDER_SOURCES})
    list(TRANSFORM FOLDER_LINKS PREPEND hdlbuildfile_)
    target_link_libraries(hdlbuildfile_${name}
        PUBLIC hdlbuildfile_folder ${FOLDER_LINKS} PRIVATE hdlbuildfile_warnings)
    set_target_properties(hdlbuildfile_${name} PROPERTIES
        CXX_EXTENSIONS OFF
        CXX_VISIBILITY_PRESET hidden
        POSITION_INDEPENDENT_CODE ON)
endfunction()

# hdlbuildfile_share_heap(<library>)
# compiles the allocation functions into the library and into every module that links it: objects that
# pass between them are allocated in one and freed in another.
function(hdlbuildfile_share_heap library)
    if(NOT TARGET hdlbuildfile_allocator)
        target_compile_definitions(${library} PUBLIC HDLBUILDFILE_PLAIN_HEAP)
        return()
    endif()
    target_link_libraries(${library} PUBLIC TBB::tbbmalloc)
    target_sources(${library}
        PRIVATE $<TARGET_OBJECTS:hdlbuildfile_allocator>
        INTERFACE
            $<BUILD_INTERFACE:$<TARGET_OBJECTS:$<TARGET_NAME:hdlbuildfile_allocator>>>
            $<INSTALL_INTERFACE:$<INSTALL_PREFIX>/${HDLBUILDFILE_INSTALLED_ALLOCATOR}>)
endfunction()

# hdlbuildfile_add_version_resource(<target> <file name> <description>)
# gives a DLL or program what Windows shows as its version; does nothing on other systems.
function(hdlbuildfile_add_version_resource target file_name description)
    get_target_property(type ${target} TYPE)
    if(NOT WIN32 OR type STREQUAL "STATIC_LIBRARY")
        return()
    endif()
    set(file_type VFT_APP)
    if(type STREQUAL "SHARED_LIBRARY")
        set(file_type VFT_DLL)
    endif()
    set(resource "${CMAKE_CURRENT_BINARY_DIR}/${target}_version.rc")
    configure_file("${PROJECT_SOURCE_DIR}/cmake/version.rc.in" "${resource}" @ONLY)
    target_sources(${target} PRIVATE "${resource}")
endfunction()
