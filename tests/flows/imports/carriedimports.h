#pragma once
#include <string>

/// A table in Markdown: for each format what of a project comes into a build, found by importing
/// files that differ in just that.
std::string MakeTableOfCarriedImports();
