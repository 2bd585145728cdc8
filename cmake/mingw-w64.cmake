# Cross-building for 64-bit Windows with Debian's MinGW-w64 (POSIX threads).
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

# What scripts/build-windows-dependencies has built, and nothing of the host.
# The path in the form of every later run, which would else compile all anew.
cmake_path(SET prefix NORMALIZE "${CMAKE_CURRENT_LIST_DIR}/../build/windows-prefix")
set(HDLBUILDFILE_WINDOWS_PREFIX "${prefix}" CACHE PATH
    "Where tbbmalloc and Expat for Windows are installed")
set(CMAKE_FIND_ROOT_PATH "${HDLBUILDFILE_WINDOWS_PREFIX}" /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Programs and the library run from an unpacked folder: the C++ runtime is linked in.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-static")

# GCC 12 for MinGW calls the wrong function where it guesses a call through a second base's table.
set(CMAKE_CXX_FLAGS_INIT "-fno-devirtualize")
