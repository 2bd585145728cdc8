#pragma once
#include "flows/run/runrecipe.h"
#include <string>

// What both Verilog simulators are called with.

/// A text between double quotes, as Verilog takes it.
std::string QuotedText(const std::string& text);
/// "-DNAME=VALUE" for each define.
void AppendDefines(const TRunRecipe& recipe, TRunRecipe::TWords* words);
/// The sources that are no library files.
void AppendSources(const TRunRecipe& recipe, TRunRecipe::TWords* words);
/// The library files, each behind `option`.
void AppendLibraryFiles(const TRunRecipe& recipe, const std::string& option,
                        TRunRecipe::TWords* words);
