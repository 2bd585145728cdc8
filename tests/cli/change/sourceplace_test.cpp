#include "cli/change/sourceplace.h"
#include "projectfiles/ihdlsourcefile.h"
#include "tests/cli/toolrun.h"
#include <gtest/gtest.h>

TEST(SourcePlace, IsOneAtMost) {
    const WorkingFolder folder;
    folder.Write("b.xml", BuildText("<SourceFileGroup Language=\"VHDL\">" + SourceText("a.vhd") +
                                    "</SourceFileGroup>"));
    const struct {
        bool First;
        const char* Before;
        const char* After;
        bool IsAsked;
        const char* Error;
    } rows[] = {
        {false, "", "", false, ""},
        {true, "", "", true, ""},
        {false, "a.vhd", "", true, ""},
        {false, "", "b.vhd", true, "b.vhd is no source of the build"},
        {false, "a.vhd", "a.vhd", false, "only one of --first, --before and --after can be given"},
        {true, "a.vhd", "", false, "only one of --first, --before and --after can be given"},
    };
    for (const auto& row : rows) {
        std::ostringstream out;
        std::ostringstream err;
        const TToolStreams streams{out, err};
        TChangeArguments arguments;
        arguments.First = row.First;
        arguments.Before = row.Before;
        arguments.After = row.After;
        const std::string file = "b.xml";
        TBuildAccess build(file, arguments, streams);
        ASSERT_EQ(build.Read(), kExitDone);
        TSourcePlacing placing(arguments, &build, streams);
        EXPECT_EQ(placing.Find(), *row.Error ? kExitUsage : kExitDone);
        EXPECT_EQ(placing.IsAsked(), row.IsAsked);
        EXPECT_EQ(err.str(), *row.Error ? "hdlbuild: error: " + std::string(row.Error) + "\n" : "");
    }
}
