#pragma once
#include "flows/graph/sourcegraph.h"
#include <string>

/// The graph in the language of Graphviz, named `title`. A node points to what it needs; libraries
/// are told by colours and, where there are several, by a second line; cycles are red, and files
/// that only dependencies name are dashed.
std::string WriteGraphAsDot(const TSourceGraph& graph, const std::string& title);
