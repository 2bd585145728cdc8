#include "tests/cli/toolrun.h"
#include <gtest/gtest.h>

namespace {

/// A build of VHDL and Verilog with a top in each.
void WriteBuild(const WorkingFolder& folder, const std::string& vhdlOptions = {}) {
    folder.Write("tb.vhd", "entity tb is end;\narchitecture sim of tb is begin end;\n");
    folder.Write("t.v", "module top; endmodule\n");
    folder.Write(
        "b.xml",
        BuildText("<TopLevelComponents><ComponentList Language=\"Verilog\"><Component "
                  "Library=\"work\" Architecture=\"\">top</Component></ComponentList>"
                  "<ComponentList Language=\"VHDL\"><Component Library=\"work\" "
                  "Architecture=\"sim\">tb</Component></ComponentList></TopLevelComponents>\n"
                  "<ProjectLanguageConfigurationList><LanguageSettings Language=\"VHDL\">"
                  "<BuildOptions>" +
                  vhdlOptions +
                  "</BuildOptions></LanguageSettings></ProjectLanguageConfigurationList>\n"
                  "<SourceFileGroup Language=\"Verilog\">\n" +
                  SourceText("t.v") + "</SourceFileGroup>\n<SourceFileGroup Language=\"VHDL\">\n" +
                  SourceText("tb.vhd") + "</SourceFileGroup>\n"));
}

/// What the tool prints, with the folder of the run, which the test does not choose, as "DIR".
std::string RunWithoutFolder(const std::vector<std::string>& arguments) {
    std::string text = ResultOf(arguments);
    std::string current = std::filesystem::current_path().generic_string();
    for (std::size_t at; (at = text.find(current)) != std::string::npos;)
        text.replace(at, current.size(), "DIR");
    return text;
}

}  // namespace

TEST(RunCommand, ListsTheSimulations) {
    const WorkingFolder folder;
    WriteBuild(folder);
    EXPECT_EQ(ResultOf({"run", "b.xml", "--list"}), "work.top\nwork.tb(sim)\n");
    EXPECT_EQ(ResultOf({"run", "b.xml", "--list", "--top", "tb"}), "work.tb(sim)\n");
    EXPECT_EQ(ResultOf({"run", "b.xml", "--list", "--json"}),
              "{\n"
              "  \"format\": \"hdlbuild-simulations\",\n"
              "  \"version\": 1,\n"
              "  \"build\": \"b.xml\",\n"
              "  \"simulations\": [\n"
              "    {\n"
              "      \"simulation\": \"work.top\",\n"
              "      \"language\": \"Verilog\"\n"
              "    },\n"
              "    {\n"
              "      \"simulation\": \"work.tb(sim)\",\n"
              "      \"language\": \"VHDL\"\n"
              "    }\n"
              "  ]\n"
              "}\n");
    EXPECT_EQ(folder.List(), "b.xml\nt.v\ntb.vhd\n");
}

TEST(RunCommand, RefusesNamesWithLineEnds) {
    const WorkingFolder folder;
    folder.Write("b.xml", BuildText("<SourceFileGroup Language=\"Verilog\">" +
                                    SourceText("a&#10;b.v") + "</SourceFileGroup>\n"));
    const TToolRun run = RunHdlbuild({"run", "b.xml", "--with", "icarus"});
    EXPECT_EQ(run.Status, kExitProblems);
    EXPECT_EQ(
        run.Err,
        "hdlbuild: error: Build File: Missing file(s) on load.\n"
        "hdlbuild: error: ninja cannot hold the name \"a\\nb.v\": it has a line end [HB603]\n");
    EXPECT_EQ(folder.List(), "b.xml\n");
}

TEST(RunCommand, ShowsTheStepsOfBothLanguages) {
    const WorkingFolder folder;
    WriteBuild(folder, "-93");
    EXPECT_EQ(RunWithoutFolder({"run", "b.xml", "--with", "ghdl", "--with", "icarus", "--dry-run",
                                "-o", "out", "--std", "2008", "--", "--fst"}),
              "[1/4] analyse work.tb\n"
              "  ghdl -a --std=93 --workdir=DIR/out/ghdl/libraries -PDIR/out/ghdl/libraries "
              "--work=work DIR/tb.vhd\n"
              "[2/4] simulate work.tb(sim)\n"
              "  ghdl --elab-run --std=93 --workdir=DIR/out/ghdl/libraries "
              "-PDIR/out/ghdl/libraries --work=work tb sim --fst\n"
              "[3/4] compile work.top\n"
              "  iverilog -o DIR/out/icarus/images/work.top-e0e15e25.vvp.part -s top -Ttyp "
              "DIR/t.v\n"
              "[4/4] simulate work.top\n"
              "  vvp -n DIR/out/icarus/images/work.top-e0e15e25.vvp --fst\n");
    EXPECT_EQ(folder.List(), "b.xml\nt.v\ntb.vhd\n");
}

TEST(RunCommand, ShowsWhatIsSubmittedToAFarm) {
    const WorkingFolder folder;
    WriteBuild(folder);
    EXPECT_EQ(
        RunWithoutFolder({"run", "b.xml", "--with", "ghdl", "--with", "icarus", "--dry-run",
                          "--farm", "slurm", "--timeout", "90", "--launcher", "nice"}),
        "[1/4] analyse work.tb\n"
        "  nice ghdl -a --std=08 --workdir=DIR/b.run/ghdl/libraries -PDIR/b.run/ghdl/libraries "
        "--work=work DIR/tb.vhd\n"
        "[2/4] simulate work.tb(sim)\n"
        "  env --unset=SLURM_JOB_ID --unset=SLURM_JOBID srun --quiet --quit-on-interrupt "
        "--ntasks=1 --input=none --job-name=work.tb_sim_-c04677a3 --time=3 timeout --kill-after=5 "
        "90 nice ghdl --elab-run --std=08 --workdir=DIR/b.run/ghdl/libraries "
        "-PDIR/b.run/ghdl/libraries --work=work tb sim\n"
        "[3/4] compile work.top\n"
        "  nice iverilog -o DIR/b.run/icarus/images/work.top-e0e15e25.vvp.part -s top -Ttyp "
        "DIR/t.v\n"
        "[4/4] simulate work.top\n"
        "  env --unset=SLURM_JOB_ID --unset=SLURM_JOBID srun --quiet --quit-on-interrupt "
        "--ntasks=1 --input=none --job-name=work.top-e0e15e25 --time=3 timeout --kill-after=5 90 "
        "nice vvp -n DIR/b.run/icarus/images/work.top-e0e15e25.vvp\n");
    EXPECT_EQ(folder.List(), "b.xml\nt.v\ntb.vhd\n");
}

TEST(RunCommand, PrintsTheStepsAsJson) {
    const WorkingFolder folder;
    WriteBuild(folder);
    EXPECT_EQ(
        RunWithoutFolder({"run", "b.xml", "--with", "icarus", "--only-compile", "--dry-run",
                          "--json", "--launcher", "nice -n \"1 9\""}),
        "{\n"
        "  \"format\": \"hdlbuild-run\",\n"
        "  \"version\": 1,\n"
        "  \"build\": \"b.xml\",\n"
        "  \"steps\": [\n"
        "    {\n"
        "      \"step\": \"compile work.top\",\n"
        "      \"commands\": [\n"
        "        [\n"
        "          \"nice\",\n"
        "          \"-n\",\n"
        "          \"1 9\",\n"
        "          \"iverilog\",\n"
        "          \"-o\",\n"
        "          \"DIR/b.run/icarus/images/work.top-e0e15e25.vvp.part\",\n"
        "          \"-s\",\n"
        "          \"top\",\n"
        "          \"-Ttyp\",\n"
        "          \"DIR/t.v\"\n"
        "        ]\n"
        "      ]\n"
        "    }\n"
        "  ]\n"
        "}\n"
        "hdlbuild: warning: top-level component work.tb(sim) is left out: no chosen simulator "
        "knows VHDL [HB803]\n");
}

TEST(RunCommand, RefusesArgumentsThatSayNothing) {
    const WorkingFolder folder;
    WriteBuild(folder);
    const struct {
        std::vector<std::string> Arguments;
        const char* Complaint;
    } rows[] = {
        {{}, "--with is required; known: ghdl, icarus, nvc, verilator"},
        {{"--with", "gdhl"},
         "unknown simulator 'gdhl'; nearest: ghdl; known: ghdl, icarus, nvc, verilator"},
        {{"--with", "ghdl", "--with", "nvc"}, "--with ghdl and --with nvc are for one language"},
        {{"--with", "ghdl", "--top", "tbb"},
         "unknown top-level component 'tbb'; known: work.top, work.tb(sim)"},
        {{"--with", "ghdl", "--top", "top"},
         "no simulator given with --with knows Verilog, the language of work.top"},
        {{"--with", "ghdl", "--std", "2009"},
         "unknown standard of VHDL '2009'; nearest: 2000, 2002, 2008 or 2019; known: 1987, 1993, "
         "2000, "
         "2002, 2008, 2019"},
        {{"--with", "ghdl", "-g", "N"}, "-g takes NAME=VALUE, not 'N'"},
        {{"--with", "ghdl", "--fail-on", "fatal"},
         "unknown level 'fatal'; known: note, warning, error, failure"},
        {{"--with", "ghdl", "--timeout", "10 m"},
         "--timeout takes a time like 90, 90s, 10m or 2h, not '10 m'"},
        {{"--with", "ghdl", "--timeout", "0"},
         "--timeout takes a time like 90, 90s, 10m or 2h, not '0'"},
        {{"--with", "ghdl", "--timeout", "2147483647m"},
         "--timeout takes a time like 90, 90s, 10m or 2h, not '2147483647m'"},
        {{"--with", "ghdl", "--timeout", "1000000001"},
         "--timeout takes a time like 90, 90s, 10m or 2h, not '1000000001'"},
        {{"--with", "ghdl", "--jobs", "0"}, "--jobs takes a number from 1 to 9999, not '0'"},
        {{"--with", "ghdl", "--seed", "x"}, "--seed takes a number, not 'x'"},
        {{"--with", "ghdl", "--farm", "slum"}, "unknown farm 'slum'; nearest: slurm; known: slurm"},
    };
    for (const auto& row : rows) {
        std::vector<std::string> words{"run", "b.xml"};
        words.insert(words.end(), row.Arguments.begin(), row.Arguments.end());
        EXPECT_EQ(ResultOf(words), std::string("2\nhdlbuild: error: ") + row.Complaint + "\n");
    }
    EXPECT_EQ(ResultOf({"run", "none.xml", "--with", "ghdl"}),
              "3\nhdlbuild: error: none.xml: the file does not exist\n");
    EXPECT_EQ(folder.List(), "b.xml\nt.v\ntb.vhd\n");
}

TEST(RunCommand, RefusesAReportInThePlaceOfWhatItReads) {
    const WorkingFolder folder;
    WriteBuild(folder);
    const std::string build = folder.Read("b.xml");
    EXPECT_EQ(ResultOf({"run", "b.xml", "--with", "ghdl", "--top", "tb", "--junit", "b.xml"}),
              "2\nhdlbuild: error: b.xml: the output would replace the build file\n");
    EXPECT_EQ(ResultOf({"run", "b.xml", "--with", "ghdl", "--top", "tb", "--junit", "tb.vhd"}),
              "2\nhdlbuild: error: tb.vhd: the output would replace the source tb.vhd\n");
    EXPECT_EQ(folder.Read("b.xml"), build);
    EXPECT_EQ(folder.List(), "b.xml\nt.v\ntb.vhd\n");
}

TEST(RunCommand, RefusesTwoStandardsAndMissingSources) {
    const WorkingFolder folder;
    WriteBuild(folder, "-93 -2008");
    EXPECT_EQ(ResultOf({"run", "b.xml", "--with", "ghdl", "--dry-run", "--top", "tb"}),
              "1\nhdlbuild: error: the options ask for VHDL 1993 and 2008, but a library has one "
              "standard [HB801]\n");
    WriteBuild(folder, "-08 -2008");
    std::filesystem::remove("tb.vhd");
    EXPECT_EQ(ResultOf({"run", "b.xml", "--with", "ghdl", "--dry-run", "--top", "tb"}),
              "1\nhdlbuild: error: Build File: Missing file(s) on load.\n"
              "hdlbuild: error: missing file: tb.vhd (VHDL) [HB201]\n");
}

TEST(RunCommand, RefusesATopOfTwoLanguages) {
    const WorkingFolder folder;
    WriteBuild(folder);
    folder.Write("tb.vhd",
                 "entity tb is end;\narchitecture sim of tb is component top is end component;\n"
                 "begin i : top; end;\n");
    EXPECT_EQ(
        ResultOf({"run", "b.xml", "--with", "ghdl", "--with", "icarus", "--dry-run"}),
        "1\nhdlbuild: error: top-level component work.tb(sim) needs sources in Verilog, which "
        "ghdl does not simulate [HB802]\n");
}

TEST(RunCommand, KnowsTheStepsOfNinjaAlone) {
    const WorkingFolder folder;
    EXPECT_EQ(ResultOf({"step"}), "2\nhdlbuild: error: 'step' is called by 'run' alone\n");
    folder.Write("a", "foobar");
    EXPECT_EQ(ResultOf({"step", "walk", "a"}),
              "2\nhdlbuild: error: 'step' is called by 'run' alone\n");
    EXPECT_EQ(ResultOf({"step", "run", "a"}), "1\n\ta: no record of a step\n");
}
