#pragma once

// How paths are written on the system that the library is built for.

#ifdef _WIN32
inline constexpr char kPathDelimiter = '\\';
inline constexpr bool kPathsHaveDrives = true;
inline constexpr bool kPathsIgnoreCase = true;
#else
inline constexpr char kPathDelimiter = '/';
inline constexpr bool kPathsHaveDrives = false;
inline constexpr bool kPathsIgnoreCase = false;
#endif
