# What the shared library exports: the marked classes whole, the marked functions, and nothing else.

# The inline and the implicit operations of the classes, which no other object has to hold. Clang cannot
# be told to keep them: there the table holds those that were not inlined.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    add_library(hdlbuildfile_exports OBJECT exports.cpp)
    target_link_libraries(hdlbuildfile_exports PRIVATE hdlbuildfile_folder)
    target_compile_options(hdlbuildfile_exports PRIVATE -O0 -fkeep-inline-functions)
    set_target_properties(hdlbuildfile_exports PROPERTIES
        CXX_EXTENSIONS OFF
        CXX_VISIBILITY_PRESET hidden
        POSITION_INDEPENDENT_CODE ON
        UNITY_BUILD OFF)
    # Last, so that the optimised copy of an operation goes before, where another object holds one.
    target_sources(hdlbuildfile PRIVATE $<TARGET_OBJECTS:hdlbuildfile_exports>)
endif()

if(MINGW)
    # The name that callers load; MinGW would put "lib" before it.
    set_target_properties(hdlbuildfile PROPERTIES PREFIX "")
    # GCC for MinGW does not heed dllexport for inline and implicit operations.
    set(definitions "${CMAKE_CURRENT_BINARY_DIR}/hdlbuildfile.def")
    file(GLOB_RECURSE headers CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/*.h")
    add_custom_command(OUTPUT "${definitions}"
        COMMAND ${CMAKE_COMMAND}
            "-DOBJECT=$<TARGET_OBJECTS:hdlbuildfile_exports>" "-DNM=${CMAKE_NM}"
            "-DHEADERS=${CMAKE_CURRENT_SOURCE_DIR}" "-DDEFINITIONS=${definitions}"
            -P "${CMAKE_CURRENT_LIST_DIR}/WriteDefinitions.cmake"
        DEPENDS hdlbuildfile_exports $<TARGET_OBJECTS:hdlbuildfile_exports> ${headers}
            "${CMAKE_CURRENT_LIST_DIR}/WriteDefinitions.cmake"
        COMMENT "Listing the inline operations to export"
        VERBATIM)
    target_sources(hdlbuildfile PRIVATE "${definitions}")
elseif(UNIX AND NOT APPLE)
    # The templates of the C++ library have default visibility, whatever the compiler is told.
    set(versions "${CMAKE_CURRENT_LIST_DIR}/hdlbuildfile.map")
    target_link_options(hdlbuildfile PRIVATE "LINKER:--version-script=${versions}")
    set_property(TARGET hdlbuildfile APPEND PROPERTY LINK_DEPENDS "${versions}")
endif()
