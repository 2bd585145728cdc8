# Run by CPack before it packs: the .rpms of the library and the tool bring licence and notices along, each in a folder
# of its own. In the other packages they are with the documentation, or are the copyright file.
if(CPACK_GENERATOR STREQUAL "RPM")
    foreach(component IN ITEMS runtime tool)
        string(TOUPPER ${component} upper)
        set(name "${CPACK_RPM_${upper}_PACKAGE_NAME}")
        file(COPY "${CMAKE_CURRENT_LIST_DIR}/../LICENSE" "${CMAKE_CURRENT_LIST_DIR}/../NOTICES.md"
            DESTINATION "${CPACK_TEMPORARY_DIRECTORY}/${component}/usr/share/licenses/${name}")
    endforeach()
endif()
