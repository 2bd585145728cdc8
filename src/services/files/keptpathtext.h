#pragma once
#include <string_view>

/// The same text, one copy per distinct text, for the life of the process. Pieces of path texts
/// repeat (directories, extensions), and callers may hold those of many files at once.
char* KeptPathText(std::string_view text);
