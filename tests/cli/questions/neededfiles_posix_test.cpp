#include "tests/cli/scan/vhdldesign.h"
#include "tests/cli/toolrun.h"
#include <algorithm>
#include <cstdlib>
#include <gtest/gtest.h>

namespace {

bool Succeeds(const std::string& command) {
    return std::system((command + " >ghdl.log 2>&1").c_str()) == 0;
}

/// Compiles the files, "library\tpath" on each line, into nothing else and elaborates the unit.
bool IsElaborated(const std::string& files, const std::string& library, const std::string& unit) {
    std::filesystem::remove_all("work");
    std::filesystem::create_directory("work");
    std::istringstream lines(files);
    std::string into, path;
    while (std::getline(lines, into, '\t') && std::getline(lines, path))
        if (!Succeeds("ghdl -a --std=08 --workdir=work -Pwork --work=" + into + " '" + path + "'"))
            return false;
    return Succeeds("ghdl -e --std=08 --workdir=work -Pwork --work=" + library + " " + unit);
}

/// The files but for the line at `place`.
std::string Without(const std::string& files, std::size_t place) {
    std::istringstream lines(files);
    std::string rest;
    for (std::string line; std::getline(lines, line);)
        if (place-- != 0) rest += line + "\n";
    return rest;
}

}  // namespace

// What GHDL asks for when it elaborates: the files are enough, and none is one too many.
TEST(NeededFiles, AreThoseThatGhdlElaboratesFrom) {
    const WorkingFolder folder;
    if (!Succeeds("command -v ghdl")) GTEST_SKIP() << "ghdl is not installed";
    std::string listed;
    for (const TDesignSource& source : MakeVhdlDesign()) {
        folder.Write(source.Path, source.Text);
        listed += SourceText(source.Path, {}, "PrecompiledLibrary=\"" + source.Library + "\"");
    }
    folder.Write("b.xml", BuildText("<SourceFileGroup Language=\"VHDL\">\n" + listed +
                                    "</SourceFileGroup>\n"));
    const struct {
        const char* Library;
        const char* Unit;  ///< as GHDL takes it
        const char* Top;
        bool IsLeast;  ///< no architecture is open: each of the files has its part
    } rows[] = {
        {"core", "lane0 rtl", "core.lane0(rtl)", true},
        {"core", "lane7", "core.lane7", false},
        {"core", "top flat", "core.top(flat)", false},
        {"core", "top_conf", "core.top_conf", false},
        {"bus_lib", "bridge", "bus_lib.bridge", false},
    };
    for (const auto& row : rows) {
        const TToolRun run = RunHdlbuild({"needed", "b.xml", "--top", row.Top, "--tsv"});
        EXPECT_EQ(run.Status, kExitDone) << run.Err;
        EXPECT_TRUE(IsElaborated(run.Out, row.Library, row.Unit))
            << row.Top << folder.Read("ghdl.log") << run.Out;
        const auto count = std::count(run.Out.begin(), run.Out.end(), '\n');
        EXPECT_LT(count, 60) << row.Top;
        std::string superfluous;
        for (std::ptrdiff_t i = 0; row.IsLeast && i < count; ++i)
            if (IsElaborated(Without(run.Out, static_cast<std::size_t>(i)), row.Library, row.Unit))
                superfluous += std::to_string(i) + " ";
        EXPECT_EQ(superfluous, "") << run.Out;
    }
}
