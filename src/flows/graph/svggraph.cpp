#include "flows/graph/svggraph.h"
#include "flows/process/process.h"

bool DrawDotAsSvg(const std::string& dot, std::string* svg, std::string* reason) {
    TProcessResult drawn = RunProcess({"dot", "-Tsvg"}, dot);
    if (!drawn.IsStarted) {
        *reason = "SVG needs the program 'dot' of Graphviz: install the package graphviz";
        return false;
    }
    if (drawn.Status != 0 || drawn.Out.empty()) {
        const std::string said = drawn.Err.substr(0, drawn.Err.find_first_of("\r\n"));
        *reason = "the program 'dot' of Graphviz failed" + (said.empty() ? "" : ": " + said);
        return false;
    }
    *svg = std::move(drawn.Out);
    return true;
}
