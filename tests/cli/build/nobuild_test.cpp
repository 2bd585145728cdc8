#include "tests/cli/toolrun.h"
#include <gtest/gtest.h>

// A document without an HdlBuildFile element. `check` has a test of its own.
TEST(NoBuild, IsToldByEveryCommandThatReadsABuild) {
    const WorkingFolder folder;
    folder.Write("other.xml", "<project><name>p</name></project>\n");
    folder.Write("good.xml", BuildText(""));
    const std::string error =
        "hdlbuild: error: no HdlBuildFile element: the document describes no build\n";
    for (const char* command : {"show", "order", "options", "command-file", "list", "deps"}) {
        const TToolRun run = RunHdlbuild({command, "other.xml"});
        EXPECT_EQ(run.Status, kExitProblems) << command;
        EXPECT_EQ(run.Err.substr(0, error.size()), error) << command;
        const TToolRun good = RunHdlbuild({command, "good.xml"});
        EXPECT_EQ(good.Status, kExitDone) << command;
        EXPECT_EQ(good.Err.find("HdlBuildFile"), std::string::npos) << command;
    }
}
