#include "flows/includedsources.h"
#include "services/names/utilfilename.h"
#include "tests/support/temporaryfolder.h"
#include <algorithm>
#include <gtest/gtest.h>

namespace {

class IncludedSources : public testing::Test {
protected:
    /// What becomes of the files in the folder, their paths relative to it.
    std::string Sort() const {
        const TSortedSources sorted = SortOutIncluded(
            FindSources({Folder.Path()}, {.EntersFolders = true, .KeepsRest = true}));
        std::string text;
        for (const TFoundSource& source : sorted.Sources) text += Shown(source.Path) + "\n";
        for (const std::string& path : sorted.Included) text += "included " + Shown(path) + "\n";
        for (const std::string& path : sorted.IncludeFolders)
            text += "folder " + Shown(path) + "\n";
        return text;
    }
    TemporaryFolder Folder;

private:
    std::string Shown(std::string path) const {
        const std::string front = TUtilFileName(Folder.Path().c_str()).Canonical();
        path.erase(0, front.size() + 1);
        std::replace(path.begin(), path.end(), '\\', '/');
        return path;
    }
};

}  // namespace

TEST_F(IncludedSources, AreNotCompiledOnTheirOwn) {
    Folder.Write("rtl/a.v", "`include \"defs.v\"\n`include \"x/types.inc\"\nmodule a; endmodule");
    Folder.Write("rtl/defs.v", "module inner; endmodule");
    Folder.Write("rtl/b.vhd", "entity b is end;");
    Folder.Write("inc/x/types.inc", "`include <more.vh>\n");
    Folder.Write("deep/er/more.vh", "");
    EXPECT_EQ(Sort(),
              "rtl/a.v\nrtl/b.vhd\nincluded rtl/defs.v\n"
              "folder rtl/\nfolder inc/\nfolder deep/er/\n");
}

TEST_F(IncludedSources, AreFoundThroughFoldersAbove) {
    Folder.Write("rtl/a.v", "`include \"../inc/defs.v\"\n");
    Folder.Write("inc/defs.v", "");
    EXPECT_EQ(Sort(), "rtl/a.v\nincluded inc/defs.v\nfolder rtl/\n");
}

TEST_F(IncludedSources, AreHeadersWithoutModuleOrPackage) {
    Folder.Write("a/macros.svh", "`define M 1\nclass c; endclass");
    Folder.Write("b/pkg.svh", "package p; endpackage");
    Folder.Write("c/mod.vh", "module m; endmodule");
    Folder.Write("c/used.vh", "module n; endmodule");
    Folder.Write("top.sv", "`include \"used.vh\"\nmodule t; endmodule");
    EXPECT_EQ(Sort(), "top.sv\nb/pkg.svh\nc/mod.vh\nfolder c/\nfolder a/\n");
}

TEST_F(IncludedSources, UnderOpenConditionsAreThoseWithoutModules) {
    Folder.Write("top.sv", "`ifdef ALL\n`include \"m.v\"\n`include \"d.v\"\n`endif\n");
    Folder.Write("m.v", "module m; endmodule");
    Folder.Write("d.v", "`define D 1\n");
    EXPECT_EQ(Sort(), "m.v\ntop.sv\nincluded d.v\nfolder \n");
}

TEST_F(IncludedSources, DoNotCountWhereAFileIncludesItself) {
    Folder.Write("a.v", "`include \"a.v\"\nmodule a; endmodule");
    EXPECT_EQ(Sort(), "a.v\n");
}

TEST_F(IncludedSources, NeedVerilog) {
    Folder.Write("a.vhd", "entity a is end;");
    Folder.Write("notes.inc", "");
    EXPECT_EQ(Sort(), "a.vhd\n");
}
