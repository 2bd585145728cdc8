#include "tests/cli/run/runbuild.h"
#include "tests/cli/shell.h"
#include <gtest/gtest.h>

namespace {

constexpr const char* kBothPassed =
    "simulation  result  time  log\n"
    "work.a(sim)  passed  T s  my build.run/logs/ghdl/simulate-work.a_sim_-D.log\n"
    "work.b(sim)  passed  T s  my build.run/logs/ghdl/simulate-work.b_sim_-D.log\n"
    "2 passed, 0 failed, 0 not run\n";
constexpr const char* kAgainB =
    "simulation  result  time  log\n"
    "work.a(sim)  passed  T s before  my build.run/logs/ghdl/simulate-work.a_sim_-D.log\n"
    "work.b(sim)  passed  T s  my build.run/logs/ghdl/simulate-work.b_sim_-D.log\n"
    "2 passed, 0 failed, 0 not run\n";
constexpr const char* kBothUnchanged =
    "simulation  result  time  log\n"
    "work.a(sim)  passed  T s before  my build.run/logs/ghdl/simulate-work.a_sim_-D.log\n"
    "work.b(sim)  passed  T s before  my build.run/logs/ghdl/simulate-work.b_sim_-D.log\n"
    "2 passed, 0 failed, 0 not run\n";

}  // namespace

TEST(RanVhdlBuilds, DoUnderGhdlWhatHasChangedAlone) {
    if (!IsInstalled("ghdl")) GTEST_SKIP() << "ghdl is not installed";
    const WorkingFolder folder;
    WriteVhdlBuild(folder);
    const std::string order =
        "[1/6] analyse util.p\n[2/6] analyse work.a\n[3/6] analyse work.q\n"
        "[4/6] analyse work.b\n[5/6] simulate work.a(sim)\n"
        "[6/6] simulate work.b(sim)\n";
    EXPECT_EQ(Ran("--with ghdl --jobs 1"), kBothPassed + order);
    EXPECT_EQ(Ran("--with ghdl --jobs 1"), kBothUnchanged);
    for (const char* source : {"it's here/p.vhd", "q.vhd", "a.vhd", "b.vhd"}) Touch(source);
    EXPECT_EQ(Ran("--with ghdl --jobs 1"), kBothUnchanged);
    EXPECT_EQ(
        Ran("--with ghdl --jobs 1 --rerun"),
        std::string(kBothPassed) + "[1/2] simulate work.a(sim)\n[2/2] simulate work.b(sim)\n");
    AppendTo("q.vhd", "-- changed\n");
    EXPECT_EQ(Ran("--with ghdl --jobs 1"),
              std::string(kAgainB) +
                  "[1/3] analyse work.q\n[2/3] analyse work.b\n[3/3] simulate work.b(sim)\n");
    EXPECT_EQ(folder.List(), "a.vhd\nb.vhd\nerr\nit's here\nmy build.run\nmy build.xml\nq.vhd\n");
}

TEST(RanVhdlBuilds, StopAtAFaultAndGoOnWhenItIsMended) {
    if (!IsInstalled("ghdl")) GTEST_SKIP() << "ghdl is not installed";
    const WorkingFolder folder;
    WriteVhdlBuild(folder);
    AppendTo("q.vhd", "constant\n");
    const std::string notRun =
        "1\nsimulation  result  time  log\nwork.a(sim)  not run  -  -\n"
        "work.b(sim)  not run  -  -\n0 passed, 0 failed, 2 not run\n";
    EXPECT_EQ(
        Ran("--with ghdl --jobs 1"),
        notRun +
            "[1/6] analyse util.p\n[2/6] analyse work.a\n[3/6] analyse work.q\n"
            "./q.vhd:2:1: missing entity, architecture, package or configuration\nconstant\n^\n"
            "analyse work.q failed: exit status 1\n");
    folder.Write("q.vhd", "package q is constant d : natural := 3; end package;\n");
    EXPECT_EQ(Ran("--with ghdl --jobs 1"),
              std::string(kBothPassed) +
                  "[1/4] analyse work.q\n[2/4] analyse work.b\n[3/4] simulate work.a(sim)\n"
                  "[4/4] simulate work.b(sim)\n");
}

TEST(RanVhdlBuilds, ForgetSourcesThatWereTakenOut) {
    if (!IsInstalled("ghdl")) GTEST_SKIP() << "ghdl is not installed";
    const WorkingFolder folder;
    WriteVhdlBuild(folder);
    EXPECT_EQ(Ran("--with ghdl").substr(0, 1), "s");
    folder.Write("my build.xml", BuildText(TopsText("VHDL", {{"b", "sim"}}) +
                                           "<SourceFileGroup Language=\"VHDL\">\n" +
                                           SourceText("b.vhd") + "</SourceFileGroup>\n"));
    EXPECT_EQ(Ran("--with ghdl"),
              "1\nsimulation  result  time  log\nwork.b(sim)  not run  -  -\n"
              "0 passed, 0 failed, 1 not run\n[1/2] analyse work.b\n"
              "./b.vhd:1:10: unit \"q\" not found in library \"work\"\nuse work.q.all;\n  ^\n"
              "./b.vhd:3:21: entity 'b' was not analysed\narchitecture sim of b is begin\n  ^\n"
              "analyse work.b failed: exit status 1\n");
}

TEST(RanVhdlBuilds, FollowWhatTheTextsTellWhereNothingIsRecorded) {
    if (!IsInstalled("ghdl")) GTEST_SKIP() << "ghdl is not installed";
    const WorkingFolder folder;
    WriteVhdlBuild(folder);
    folder.Write("my build.xml",
                 BuildText(TopsText("VHDL", {{"a", "sim"}, {"b", "sim"}}) +
                           "<SourceFileGroup Language=\"VHDL\">\n" +
                           SourceText("it's here/p.vhd", {}, "PrecompiledLibrary=\"util\"") +
                           SourceText("q.vhd") + SourceText("a.vhd") + SourceText("b.vhd") +
                           "</SourceFileGroup>\n"));
    EXPECT_EQ(Ran("--with ghdl --jobs 1").substr(0, std::string(kBothPassed).size()), kBothPassed);
    folder.Write("q.vhd", "package q is constant d : natural := 3; end package;\n");
    EXPECT_EQ(Ran("--with ghdl --jobs 1"),
              std::string(kAgainB) +
                  "[1/3] analyse work.q\n[2/3] analyse work.b\n[3/3] simulate work.b(sim)\n");
}

TEST(RanVhdlBuilds, TakeTheArchitectureThatIsLastInTheBuild) {
    if (!IsInstalled("ghdl")) GTEST_SKIP() << "ghdl is not installed";
    const WorkingFolder folder;
    folder.Write("e.vhd", "entity e is end;\n");
    for (const char* name : {"beh", "rtl"})
        folder.Write(std::string(name) + ".vhd",
                     std::string("architecture ") + name + " of e is begin\n" +
                         "  assert false report \"" + name + "\" severity note;\nend;\n");
    folder.Write("t.vhd",
                 "entity t is end;\narchitecture s of t is begin i : entity work.e; end;\n");
    const auto write = [&folder](const char* first, const char* second) {
        folder.Write(
            "my build.xml",
            BuildText(TopsText("VHDL", {{"t", "s"}}) + "<SourceFileGroup Language=\"VHDL\">\n" +
                      SourceText("e.vhd") + SourceText(first) + SourceText(second) +
                      SourceText("t.vhd") + "</SourceFileGroup>\n"));
    };
    const auto reported = [] {
        return Shell("sed 's/.*note): //' 'my build.run'/logs/ghdl/simulate*").second;
    };
    write("beh.vhd", "rtl.vhd");
    EXPECT_EQ(Ran("--with ghdl").substr(0, 1), "s");
    EXPECT_EQ(reported(), "rtl\n");
    const std::string passed =
        "simulation  result  time  log\n"
        "work.t(s)  passed  T s  my build.run/logs/ghdl/simulate-work.t_s_-D.log\n"
        "1 passed, 0 failed, 0 not run\n";
    AppendTo("beh.vhd", "-- changed\n");
    EXPECT_EQ(Ran("--with ghdl"), passed +
                                      "[1/3] analyse work.beh\n[2/3] analyse work.rtl\n"
                                      "[3/3] simulate work.t(s)\n");
    EXPECT_EQ(reported(), "rtl\n");
    write("rtl.vhd", "beh.vhd");
    EXPECT_EQ(Ran("--with ghdl").substr(0, 1), "s");
    EXPECT_EQ(reported(), "beh\n");
    // A library that is cut is made anew.
    EXPECT_EQ(Shell(": >'my build.run'/ghdl/libraries/work-obj08.cf").first, 0);
    EXPECT_EQ(Ran("--with ghdl"),
              passed +
                  "[1/5] analyse work.e\n[2/5] analyse work.rtl\n[3/5] analyse work.beh\n"
                  "[4/5] analyse work.t\n[5/5] simulate work.t(s)\n");
}
