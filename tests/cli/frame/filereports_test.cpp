#include "cli/frame/filereports.h"
#include "buildfile/hdlbuildfile.h"
#include "tests/cli/toolrun.h"
#include "tests/support/recorders.h"
#include <gtest/gtest.h>

namespace {

/// The exit status of a load, and what it and the report of its result wrote.
std::string Load(const std::string& file) {
    std::ostringstream out;
    std::ostringstream err;
    THdlBuildFile build;
    const int status = LoadBuild(file, {out, err}, &build);
    if (status != kExitFile) ReportReadResult(build, {out, err});
    return std::to_string(status) + "\n" + out.str() + err.str();
}

}  // namespace

TEST(FileReports, TellWhyABuildCannotBeLoaded) {
    RecordingMessageBox box;
    const WorkingFolder folder;
    folder.Write("good.xml", BuildText(""));
    folder.Write("gone.xml", BuildText("<SourceFileGroup Language=\"VHDL\">" +
                                       SourceText("gone.vhd") + "</SourceFileGroup>"));
    folder.Write("bad.xml", "<a>\n</b>");
    folder.Write("other.xml", "<project/>");
    EXPECT_EQ(Load("good.xml"), "0\n");
    EXPECT_EQ(Load("gone.xml"), "1\nhdlbuild: error: Build File: Missing file(s) on load.\n");
    EXPECT_EQ(Load("./bad.xml"),
              "3\nhdlbuild: error: ./bad.xml:2:3: mismatched tag: element \"a\" of line 1 is still "
              "open\n");
    EXPECT_EQ(Load("other.xml"),
              "1\nhdlbuild: error: no HdlBuildFile element: the document describes no build\n");
    EXPECT_EQ(Load("no.xml"), "3\nhdlbuild: error: no.xml: the file does not exist\n");
    EXPECT_EQ(box.Take(), "");
}

TEST(FileReports, QuietMessageBoxKeepsMessagesBackAndThenLetsThemThrough) {
    RecordingMessageBox box;
    {
        const TQuietMessageBox quiet;
        Fileservices::GetMessageBox()->ShowMessage("one", "", 0);
        EXPECT_EQ(box.Take(), "");
    }
    EXPECT_EQ(Fileservices::GetMessageBox(), &box);
}
