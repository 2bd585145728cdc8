#pragma once
#include "cli/frame/commandline.h"
#include <vector>

/// The compiler and the libraries that the tool and the library are built with, in the versions of
/// the headers that were compiled: shared libraries may be newer where the tool runs.
std::vector<TBuiltWith> GetBuiltWith();
