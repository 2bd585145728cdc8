#pragma once
#include "bench/builds/random.h"
#include <string>
#include <vector>

/// `count` different paths with '/', relative to the build file, in no particular order. The
/// numbers in the names go from `first` on.
std::vector<std::string> MakeSourcePaths(std::uint32_t count, std::uint32_t first,
                                         const std::string& extension, TRandom* random);
