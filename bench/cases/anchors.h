#pragma once
#include <string>

// What the library is measured against: the least work that gives the same result, in plain code.
// Each takes the path of the build file.

/// Every tag and text of the file kept, and the system asked for each listed file.
void MeasureAnchorRead(const std::string& build);
/// A depth-first walk over objects that are there already.
void MeasureAnchorOrder(const std::string& build);
/// The paths of the sources, in quotes when they have a blank.
void MeasureAnchorCommandFile(const std::string& build);
/// The document printed by pugixml.
void MeasureAnchorWrite(const std::string& build);
/// The document as the tree of pugixml.
void MeasureAnchorMemory(const std::string& build);
