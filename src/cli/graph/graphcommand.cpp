#include "buildfile/hdlbuildfile.h"
#include "cli/frame/filereports.h"
#include "cli/frame/jsonresults.h"
#include "cli/frame/outputfile.h"
#include "cli/graph/commands.h"
#include "flows/graph/dotgraph.h"
#include "flows/graph/htmlgraph.h"
#include "flows/graph/sourcegraph.h"
#include "flows/graph/svggraph.h"
#include "flows/knownnames.h"
#include "services/names/isfilename.h"
#include <algorithm>
#include <charconv>

namespace {

// It draws 300 nodes in seconds, 2,000 in minutes.
constexpr std::size_t kManyForGraphviz = 500;

struct TGrouping {
    const char* Name;
    TGraphGrouping Grouping;
};

constexpr TGrouping kGroupings[] = {
    {"file", GRAPH_OF_FILES},
    {"library", GRAPH_OF_LIBRARIES},
    {"folder", GRAPH_OF_FOLDERS},
};

/// A graph that is written, and where failures are told.
struct TDrawing {
    const TSourceGraph& Graph;
    TGraphGrouping Grouping;
    const std::string& Title;
    const TToolStreams& Streams;
};

/// A format writes the text, or reports why it cannot and returns an exit status.
struct TGraphFormat {
    const char* Name;
    const char* Extension;
    int (*Write)(const TDrawing& drawing, std::string* text);
};

int WriteDot(const TDrawing& drawing, std::string* text) {
    *text = WriteGraphAsDot(drawing.Graph, drawing.Title);
    return kExitDone;
}

int WriteSvg(const TDrawing& drawing, std::string* text) {
    const std::size_t nodes = drawing.Graph.Nodes.size();
    if (nodes > kManyForGraphviz)
        ReportWarning(drawing.Streams, "Graphviz may take long for " + std::to_string(nodes) +
                                           " nodes: --by and --around make fewer");
    std::string reason;
    if (DrawDotAsSvg(WriteGraphAsDot(drawing.Graph, drawing.Title), text, &reason))
        return kExitDone;
    ReportError(drawing.Streams, reason);
    return kExitFile;
}

int WriteHtml(const TDrawing& drawing, std::string* text) {
    if (GetGraphPage().empty()) {
        ReportError(drawing.Streams,
                    "this hdlbuild was built without the page for graphs, which takes the npm "
                    "registry: draw dot or svg");
        return kExitFile;
    }
    *text = WriteGraphAsHtml(drawing.Graph, drawing.Grouping, drawing.Title, GetGraphPage());
    return kExitDone;
}

// The first is printed when nothing asks for another.
constexpr TGraphFormat kFormats[] = {
    {"dot", ".dot", WriteDot},
    {"svg", ".svg", WriteSvg},
    {"html", ".html", WriteHtml},
};

template <class TRow, std::size_t Size>
std::vector<std::string> NamesOf(const TRow (&rows)[Size]) {
    std::vector<std::string> names;
    for (const TRow& row : rows) names.emplace_back(row.Name);
    return names;
}

/// The row of a table; null, with an error line on Err, for an unknown name.
template <class TRow, std::size_t Size>
const TRow* FindRow(const TRow (&rows)[Size], const char* kind, const std::string& name,
                    const TToolStreams& streams) {
    const auto found = std::find_if(std::begin(rows), std::end(rows),
                                    [&name](const TRow& row) { return name == row.Name; });
    if (found != std::end(rows)) return found;
    ReportError(streams, UnknownName(kind, name, NamesOf(rows)));
    return nullptr;
}

/// Null, with an error line on Err, when no format has that name or the output's extension.
const TGraphFormat* FindFormat(const TGraphArguments& arguments, const TToolStreams& streams) {
    if (!arguments.Format.empty()) return FindRow(kFormats, "format", arguments.Format, streams);
    if (!IsFileOutput(arguments.Output)) return &kFormats[0];
    for (const TGraphFormat& format : kFormats)
        if (arguments.Output.ends_with(format.Extension)) return &format;
    ReportError(streams, arguments.Output + ": the name tells no format; give --format " +
                             JoinChoices(NamesOf(kFormats)));
    return nullptr;
}

/// False, with an error line on Err, for a text that is no depth.
bool ReadDepth(const TGraphArguments& arguments, std::size_t* depth, const TToolStreams& streams) {
    *depth = 1;
    if (arguments.Depth.empty()) return true;
    const char* const end = arguments.Depth.data() + arguments.Depth.size();
    const auto read = std::from_chars(arguments.Depth.data(), end, *depth);
    const bool isNumber = read.ec == std::errc() && read.ptr == end;
    if (!isNumber)
        ReportError(streams, "--depth: '" + arguments.Depth + "' is no number");
    else if (arguments.Around.empty())
        ReportError(streams, "--depth needs --around");
    return isNumber && !arguments.Around.empty();
}

/// What the arguments ask for.
struct TWanted {
    const TGrouping* Grouping = nullptr;
    const TGraphFormat* Format = nullptr;
    std::size_t Depth = 1;
};

int ReadArguments(const TGraphArguments& arguments, TWanted* wanted, const TToolStreams& streams) {
    wanted->Grouping = FindRow(kGroupings, "kind of node", arguments.By, streams);
    if (!wanted->Grouping) return kExitUsage;
    wanted->Format = FindFormat(arguments, streams);
    if (!wanted->Format || !ReadDepth(arguments, &wanted->Depth, streams)) return kExitUsage;
    return CheckOutput(arguments.Output, arguments.Build, streams);
}

/// Cuts the graph down to what is asked for; kExitUsage, with an error line on Err, for a file that
/// is not in it.
int CutGraph(const TGraphArguments& arguments, const TWanted& wanted, TSourceGraph* graph,
             const TToolStreams& streams) {
    if (!arguments.Around.empty()) {
        const std::size_t center =
            FindNode(*graph, ISFileName::NewISFileName(arguments.Around.c_str()));
        if (center == kNoPlace) {
            ReportError(streams, arguments.Around + " is no source of the build");
            return kExitUsage;
        }
        *graph = GraphAround(*graph, center, wanted.Depth);
    }
    if (wanted.Grouping->Grouping != GRAPH_OF_FILES)
        *graph = GraphOfGroups(*graph, wanted.Grouping->Grouping);
    return kExitDone;
}

TJson TextAt(const std::vector<std::string>& texts, std::size_t place) {
    return place == kNoPlace ? TJson() : TJson(texts[place]);
}

TJson GraphAsJson(const TGraphArguments& arguments, const TSourceGraph& graph) {
    TJson result = MakeResult("hdlbuild-graph", "build", arguments.Build);
    result["output"] = IsFileOutput(arguments.Output) ? TJson(arguments.Output) : TJson();
    result["by"] = arguments.By;
    TJson& nodes = result["nodes"] = TJson::Array();
    for (const TGraphNode& node : graph.Nodes)
        nodes.Add({{"name", node.Name},
                   {"library", TextAt(graph.Libraries, node.Library)},
                   {"folder", TextAt(graph.Folders, node.Folder)},
                   {"files", node.FileCount},
                   {"listed", node.IsListed},
                   {"cycle", node.Cycle == kNoPlace ? TJson() : TJson(node.Cycle)}});
    TJson& edges = result["edges"] = TJson::Array();
    for (const TGraphEdge& edge : graph.Edges)
        edges.Add({{"from", edge.From}, {"to", edge.To}, {"count", edge.Count}});
    return result;
}

/// Saves or prints the graph; an exit status when that fails.
int PutOut(const TGraphArguments& arguments, const TWanted& wanted, const TSourceGraph& graph,
           const TToolStreams& streams) {
    if (IsFileOutput(arguments.Output) || !arguments.Json) {
        std::string text;
        if (const int failed = wanted.Format->Write(
                {graph, wanted.Grouping->Grouping, arguments.Build, streams}, &text))
            return failed;
        if (IsFileOutput(arguments.Output)) {
            if (const int failed = SaveOutput(arguments.Output, text, streams)) return failed;
        } else {
            PrintFile(text, streams.Out);
        }
    }
    if (arguments.Json) PrintJson(GraphAsJson(arguments, graph), streams);
    return kExitDone;
}

}  // namespace

int RunGraph(const TGraphArguments& arguments, const TToolStreams& streams) {
    TWanted wanted;
    if (const int usage = ReadArguments(arguments, &wanted, streams)) return usage;
    THdlBuildFile build;
    const int status = LoadBuild(arguments.Build, streams, &build);
    if (status == kExitFile) return status;
    ReportReadResult(build, streams);
    if (const int usage = CheckOutput(arguments.Output, build, arguments.Paths, streams))
        return usage;
    TSourceGraph graph = MakeSourceGraph(
        build, [&arguments](const ISFileName* file) { return PathText(file, arguments.Paths); });
    const std::size_t cycles = graph.CycleCount;
    if (const int usage = CutGraph(arguments, wanted, &graph, streams)) return usage;
    if (const int failed = PutOut(arguments, wanted, graph, streams)) return failed;
    if (cycles == 0) return status;
    ReportCycles(cycles, streams);
    return kExitProblems;
}
