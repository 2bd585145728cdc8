#pragma once
#include <string>

/// A table in Markdown: for each format what of a build it carries, found by exporting plans that
/// differ in just that.
std::string MakeTableOfCarriedFeatures();
