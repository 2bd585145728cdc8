#pragma once
#include "flows/graph/sourcegraph.h"
#include <string>
#include <string_view>

/// The page that graphs are shown in, with {{title}} and {{data}} where they go; "" when this
/// program was built without it.
std::string_view GetGraphPage();

/// The graph in a page, which must not be empty, named `title`. `grouping` is what the nodes are.
std::string WriteGraphAsHtml(const TSourceGraph& graph, TGraphGrouping grouping,
                             const std::string& title, std::string_view page);
