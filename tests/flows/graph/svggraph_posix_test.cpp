#include "flows/graph/svggraph.h"
#include "tests/support/temporaryfolder.h"
#include <cstdlib>
#include <gtest/gtest.h>

namespace {

/// A search path with one folder, with a program "dot" of this text, if any, until the end.
class PathWithDot {
public:
    explicit PathWithDot(const std::string& script) : Former(std::getenv("PATH")) {
        if (!script.empty())
            std::filesystem::permissions(Folder.Write("dot", "#!/bin/sh\n" + script),
                                         std::filesystem::perms::owner_all);
        setenv("PATH", Folder.Path().c_str(), 1);
    }
    ~PathWithDot() { setenv("PATH", Former.c_str(), 1); }
    PathWithDot(const PathWithDot&) = delete;
    PathWithDot& operator=(const PathWithDot&) = delete;

private:
    TemporaryFolder Folder;
    std::string Former;
};

/// What is drawn, or why nothing is.
std::string Drawn(const std::string& dot) {
    std::string svg;
    std::string reason;
    return DrawDotAsSvg(dot, &svg, &reason) ? "drawn: " + svg : "not drawn: " + reason + svg;
}

}  // namespace

TEST(SvgGraph, IsDrawnByGraphviz) {
    const PathWithDot path("echo \"$# $1\"; while read -r line; do echo \"<$line>\"; done");
    EXPECT_EQ(Drawn("digraph {\n}\n"), "drawn: 1 -Tsvg\n<digraph {>\n<}>\n");
}

TEST(SvgGraph, NamesThePackageWhenGraphvizIsNotThere) {
    const PathWithDot path("");
    EXPECT_EQ(Drawn("digraph {}"),
              "not drawn: SVG needs the program 'dot' of Graphviz: install the package graphviz");
}

TEST(SvgGraph, TellsWhatGraphvizSaysWhenItFails) {
    {
        const PathWithDot path("echo 'Error: syntax' >&2; echo more >&2; echo part; exit 1");
        EXPECT_EQ(Drawn("x"), "not drawn: the program 'dot' of Graphviz failed: Error: syntax");
    }
    const PathWithDot path("exit 0");
    EXPECT_EQ(Drawn("x"), "not drawn: the program 'dot' of Graphviz failed");
}
