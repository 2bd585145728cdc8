#include "flows/imports/importformats.h"
#include "tests/cli/projecttext.h"
#include "tests/cli/toolrun.h"
#include "tests/support/filesizelimit.h"
#include <gtest/gtest.h>

// The limit for the size of files, whatever kind of file a command reads.

namespace {

using TLine = std::vector<std::string>;

const std::string kReason = "the file is too large: 1099511627776 bytes, the limit is 1073741824";

class FileSizes : public testing::Test {
protected:
    void SetUp() override {
        if (!WriteSparse(Folder, "huge", kTerabyte))
            GTEST_SKIP() << "the disk takes no file of a terabyte";
        Folder.Write("b.xml", BuildText("<SourceFileGroup Language=\"VHDL\">" +
                                        SourceText("a.vhd") + "</SourceFileGroup>"));
        Folder.Write("a.vhd", "entity a is end;");
    }
    const WorkingFolder Folder;
};

}  // namespace

TEST_F(FileSizes, AreLimitedForEveryFileThatACommandReads) {
    const struct {
        const char* Label;
        TLine Line;
    } rows[] = {
        {"a build", {"show", "huge"}},
        {"a build that is changed", {"add", "huge", "a.vhd"}},
        {"a build whose settings are changed", {"set", "huge", "SnapshotName", "s"}},
        {"a build that is exported", {"export", "huge", "--to", "ghdl"}},
        {"a project", {"settings", "huge", "list"}},
        {"a project that is changed", {"settings", "huge", "current", "Debug"}},
        {"a project that a build uses", {"use", "b.xml", "huge"}},
        {"a simulators file", {"servers", "list", "far", "--file", "huge"}},
        {"a simulators file that is changed", {"servers", "add", "far", "GCC", "--file", "huge"}},
    };
    const std::string before = Folder.Read("b.xml");
    for (const auto& row : rows) {
        const TToolRun run = RunHdlbuild(row.Line);
        EXPECT_EQ(run.Status, kExitFile) << row.Label;
        EXPECT_EQ(run.Out, "") << row.Label;
        EXPECT_EQ(run.Err, "hdlbuild: error: huge: " + kReason + "\n") << row.Label;
    }
    for (const TImportFormat& format : GetImportFormats())
        EXPECT_EQ(ResultOf({"import", format.Name, "huge", "-o", "n.xml"}),
                  "3\nhdlbuild: error: huge: " + kReason + " [HB709]\n")
            << format.Name;
    EXPECT_EQ(Folder.Read("b.xml"), before);
    EXPECT_EQ(Folder.List(), "a.vhd\nb.xml\nhuge\n");
}

TEST_F(FileSizes, MakeASourceAFinding) {
    Folder.Write("s.xml", BuildText("<SourceFileGroup Language=\"VHDL\">" + SourceText("huge") +
                                    "</SourceFileGroup>"));
    EXPECT_EQ(ResultOf({"scan", "s.xml"}),
              "1\ns.xml: nothing to change\nhdlbuild: error: huge: not scanned: " + kReason + "\n");
    Folder.Write("v.xml", BuildText("<SourceFileGroup Language=\"Verilog\">" + SourceText("a.v") +
                                    "</SourceFileGroup>"));
    Folder.Write("a.v", "`include \"huge\"\nmodule a; endmodule\n");
    EXPECT_EQ(ResultOf({"scan", "v.xml"}),
              "a.v:2:8: nobody instantiates module work.a\n"
              "v.xml: nothing to change\n"
              "hdlbuild: warning: a.v:1:10: no folder holds the included file huge (1 include)\n");
}

TEST_F(FileSizes, AreLimitedAsTheOptionSays) {
    const std::string size = std::to_string(Folder.Read("b.xml").size());
    const std::string less = std::to_string(Folder.Read("b.xml").size() - 1);
    const std::string error = "hdlbuild: error: b.xml: the file is too large: " + size +
                              " bytes, the limit is " + less + "\n";
    EXPECT_EQ(ResultOf({"--max-file-size", size, "order", "b.xml"}), "a.vhd\n");
    EXPECT_EQ(ResultOf({"order", "b.xml", "--max-file-size=1K"}), "a.vhd\n");
    EXPECT_EQ(ResultOf({"--max-file-size", less, "order", "b.xml"}), "3\n" + error);
    EXPECT_EQ(ResultOf({"order", "--max-file-size", less, "b.xml"}), "3\n" + error);
    EXPECT_EQ(ResultOf({"order", "b.xml"}), "a.vhd\n");
    EXPECT_EQ(
        ResultOf({"order", "b.xml", "--max-file-size", "big"}),
        "2\n--max-file-size: 'big' is no size: a number of bytes, or one with K, M or G behind it\n"
        "Run with --help for more information.\n");
}
