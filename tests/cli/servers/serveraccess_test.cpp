#include "cli/servers/serveraccess.h"
#include "tests/cli/servers/simulatorsfile.h"
#include "tests/cli/toolrun.h"
#include <gtest/gtest.h>

TEST(ServerAccess, ChangesNoFileThatChangedMeanwhile) {
    const std::string files[] = {"", FileText(ToolText("VCS", "Verilog")),
                                 FileText(ToolText("Scirocco", "VHDL"))};
    for (const std::string& before : files)
        for (const std::string& after : files) {
            if (before == after) continue;
            const WorkingFolder folder;
            if (!before.empty()) folder.Write("a.cfg", before);
            TServersArguments arguments;
            arguments.Server = "far";
            arguments.SimulatorsFile = "a.cfg";
            std::ostringstream out;
            std::ostringstream err;
            const TToolStreams streams{out, err};
            TServerAccess server(arguments, streams);
            ASSERT_EQ(server.ReadToChange(false), kExitDone);
            server.GetCourier().CreateOrGetSimTool("far", SIM_GCC);
            if (after.empty())
                std::filesystem::remove("a.cfg");
            else
                folder.Write("a.cfg", after);
            EXPECT_EQ(server.Save("add"), kExitFile);
            EXPECT_EQ(out.str(), "");
            EXPECT_EQ(err.str(),
                      "hdlbuild: error: a.cfg: the file has changed since it was read\n");
            EXPECT_EQ(folder.Read("a.cfg"), after.empty() ? "<missing>" : after);
        }
}
