# Run by CPack before it packs: files may be older than their commit, and rpmbuild makes only newer times the same.
file(GLOB_RECURSE files LIST_DIRECTORIES ON "${CPACK_TEMPORARY_DIRECTORY}/*")
file(TOUCH_NOCREATE ${files})
