# What draws graphs in a browser: libraries of the npm registry, each of one version and with one hash. They
# are fetched when the build is configured, kept in the build folder, and never committed.
set(HDLBUILDFILE_GRAPH_PAGE AUTO CACHE STRING
    "Build the page of 'hdlbuild graph -o G.html': ON, OFF, or AUTO: where the registry is reached")
set_property(CACHE HDLBUILDFILE_GRAPH_PAGE PROPERTY STRINGS AUTO ON OFF)
set(HDLBUILDFILE_NPM_FOLDER "${PROJECT_BINARY_DIR}/npm" CACHE PATH "Where packages of the registry are kept")

# In the order in which the page runs them: name, version, SHA-512 of the archive, file.
set(HDLBUILDFILE_PAGE_LIBRARIES
    "graphology|0.26.0|f124889b38145180bcf59d38dacfb4affbcc89b63b197fc49b3e0b0cee5eee361786ea167c72123c52588e944b512246aba510eb195e9ef5f5a7f84975f5ee5e|dist/graphology.umd.min.js"
    "sigma|3.0.3|e47d33165c7afcd4d0a6a060e119b9ebd64ea6704e5cc692db95104e1216314dd7cb32390219a8acafe09e5f3b06f2412e141dd2d5b80b42c8a777a75b332837|dist/sigma.min.js")

# hdlbuildfile_fetch_package(<result> <name> <version> <hash>)
# sets <result> to the folder of the unpacked package, or to "" when it cannot be had.
function(hdlbuildfile_fetch_package result name version hash)
    set(${result} "" PARENT_SCOPE)
    set(archive "${HDLBUILDFILE_NPM_FOLDER}/${name}-${version}.tgz")
    if(NOT EXISTS "${archive}")
        find_program(HDLBUILDFILE_NPM npm)
        if(NOT HDLBUILDFILE_NPM)
            return()
        endif()
        file(MAKE_DIRECTORY "${HDLBUILDFILE_NPM_FOLDER}")
        execute_process(
            COMMAND "${HDLBUILDFILE_NPM}" pack --silent --fetch-retries=0 "${name}@${version}"
            WORKING_DIRECTORY "${HDLBUILDFILE_NPM_FOLDER}"
            TIMEOUT 60 OUTPUT_QUIET ERROR_QUIET)
    endif()
    if(NOT EXISTS "${archive}")
        return()
    endif()
    file(SHA512 "${archive}" found)
    if(NOT found STREQUAL hash)
        message(WARNING "${archive}: not the package that is expected")
        return()
    endif()
    set(folder "${HDLBUILDFILE_NPM_FOLDER}/${name}-${version}")
    file(ARCHIVE_EXTRACT INPUT "${archive}" DESTINATION "${folder}" PATTERNS "package/dist/*.js" "package/LICENSE*")
    set(${result} "${folder}/package" PARENT_SCOPE)
endfunction()

# hdlbuildfile_embed_graph_page(<target>)
# compiles the page into the target; without the libraries, an empty text. The global property
# HDLBUILDFILE_EMBEDDED_LIBRARIES has the names and versions of what it holds.
function(hdlbuildfile_embed_graph_page target)
    set(scripts "")
    set(embedded "")
    set(missing "")
    if(HDLBUILDFILE_GRAPH_PAGE)
        foreach(library IN LISTS HDLBUILDFILE_PAGE_LIBRARIES)
            string(REPLACE "|" ";" library "${library}")
            list(GET library 0 name)
            list(GET library 1 version)
            list(GET library 2 hash)
            list(GET library 3 file)
            hdlbuildfile_fetch_package(folder ${name} ${version} ${hash})
            if(NOT folder)
                set(missing "${name} ${version}")
                break()
            endif()
            list(APPEND scripts "${folder}/LICENSE.txt" "${folder}/${file}")
            string(APPEND embedded "${name} ${version} ")
        endforeach()
    endif()
    if(missing AND NOT HDLBUILDFILE_GRAPH_PAGE STREQUAL "AUTO")
        message(FATAL_ERROR "HDLBUILDFILE_GRAPH_PAGE: ${missing} cannot be had from the npm registry")
    elseif(missing)
        message(STATUS "No page for graphs: ${missing} cannot be had from the npm registry")
        set(scripts "")
        set(embedded "")
    endif()
    set_property(GLOBAL PROPERTY HDLBUILDFILE_EMBEDDED_LIBRARIES "${embedded}")
    set(sources "")
    foreach(source page.html page.css model.js layout.js page.js)
        list(APPEND sources "${CMAKE_CURRENT_SOURCE_DIR}/page/${source}")
    endforeach()
    set(output "${CMAKE_CURRENT_BINARY_DIR}/graphpagetext.cpp")
    set(script "${PROJECT_SOURCE_DIR}/cmake/EmbedGraphPage.cmake")
    add_custom_command(OUTPUT "${output}"
        COMMAND "${CMAKE_COMMAND}" "-DOUTPUT=${output}" "-DSOURCES=${sources}" "-DLIBRARIES=${scripts}"
                -P "${script}"
        DEPENDS ${sources} ${scripts} "${script}"
        VERBATIM)
    target_sources(${target} PRIVATE "${output}")
endfunction()
