# The manual pages and the completions of shells, which the tool itself prints: where it can be run.
if(NOT UNIX OR CMAKE_CROSSCOMPILING)
    return()
endif()
find_package(Python3 COMPONENTS Interpreter)
if(NOT Python3_FOUND)
    message(STATUS "Without Python no manual pages are made.")
    return()
endif()

set(folder "${PROJECT_BINARY_DIR}/shell")
set(format_pages "${PROJECT_SOURCE_DIR}/docs/build-file.md" "${PROJECT_SOURCE_DIR}/docs/settings.md")
add_custom_command(OUTPUT "${folder}/made"
    COMMAND ${CMAKE_COMMAND} -E rm -rf "${folder}"
    COMMAND ${CMAKE_COMMAND} -E make_directory "${folder}"
    COMMAND Python3::Interpreter -B "${PROJECT_SOURCE_DIR}/scripts/man-pages" $<TARGET_FILE:hdlbuild> "${folder}/man"
    COMMAND hdlbuild completion bash > "${folder}/hdlbuild"
    COMMAND hdlbuild completion fish > "${folder}/hdlbuild.fish"
    COMMAND hdlbuild completion zsh > "${folder}/_hdlbuild"
    COMMAND ${CMAKE_COMMAND} -E touch "${folder}/made"
    DEPENDS hdlbuild "${PROJECT_SOURCE_DIR}/scripts/man-pages" ${format_pages}
    COMMENT "Writing the manual pages and the completions of shells"
    VERBATIM)
add_custom_target(hdlbuild_shell_files ALL DEPENDS "${folder}/made")
install(DIRECTORY "${folder}/man/" DESTINATION "${CMAKE_INSTALL_MANDIR}" COMPONENT tool)
install(FILES "${folder}/hdlbuild" DESTINATION "${CMAKE_INSTALL_DATADIR}/bash-completion/completions"
    COMPONENT tool)
install(FILES "${folder}/hdlbuild.fish" DESTINATION "${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d"
    COMPONENT tool)
install(FILES "${folder}/_hdlbuild" DESTINATION "${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions"
    COMPONENT tool)
