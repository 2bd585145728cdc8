# Links tests/heap/refusedmodule.cpp with COMPILER and, when there is one, with MINGW_COMPILER, as a
# program and as a shared library: with the allocator's object, or over the plain heap, the linker takes
# it; without, the linker refuses it and names what is missing.
set(missing "hdlbuildfile_module_links_the_shared_heap")
set(sweeping -O2 -ffunction-sections -fdata-sections -Wl,--gc-sections)
set(failures 0)

# link_module(<whether the linker is to take it> <compiler> <argument>...)
function(link_module expected compiler)
    execute_process(COMMAND ${compiler} -std=c++20 -Wall -Wextra -Wpedantic -Werror
            "-I${SOURCES}/src" "${SOURCES}/tests/heap/refusedmodule.cpp" -o "${OUTPUT}" ${ARGN}
        RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE output)
    string(FIND "${output}" "${missing}" named)
    if(expected AND status EQUAL 0)
        return()
    elseif(NOT expected AND NOT status EQUAL 0 AND NOT named EQUAL -1)
        return()
    endif()
    list(JOIN ARGN " " command)
    message("To be taken: ${expected}. Status ${status} of: ${compiler} ${command}\n${output}")
    math(EXPR failures "${failures} + 1")
    set(failures ${failures} PARENT_SCOPE)
endfunction()

foreach(kind "" "-shared;-fPIC")
    foreach(options "-O0" "${sweeping}")
        link_module(FALSE ${COMPILER} ${kind} ${options} ${LIBRARY})
        link_module(TRUE ${COMPILER} ${kind} ${options} ${LIBRARY} ${ALLOCATOR} ${TBBMALLOC})
        link_module(TRUE ${COMPILER} ${kind} ${options} -DHDLBUILDFILE_PLAIN_HEAP ${LIBRARY})
        if(MINGW_COMPILER)
            link_module(FALSE ${MINGW_COMPILER} ${kind} ${options})
            link_module(TRUE ${MINGW_COMPILER} ${kind} ${options} -DHDLBUILDFILE_PLAIN_HEAP)
        endif()
    endforeach()
endforeach()
file(REMOVE "${OUTPUT}" "${OUTPUT}.exe")
if(failures)
    message(FATAL_ERROR "${failures} modules")
endif()
