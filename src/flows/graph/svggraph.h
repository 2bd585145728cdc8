#pragma once
#include <string>

/// Has Graphviz draw a text in its language as SVG. False, with the reason, when its program `dot`
/// is not on the search path or fails.
bool DrawDotAsSvg(const std::string& dot, std::string* svg, std::string* reason);
