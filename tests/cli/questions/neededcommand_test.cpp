#include "tests/cli/scan/scannedbuild.h"

namespace {

/// The sources of ScannedBuild, without recorded dependencies, and a module.
class NeededCommand : public ScannedBuild {
protected:
    NeededCommand() {
        Folder.Write("m.v", "module m; endmodule");
        Folder.Write("b.xml", Build({}, {}, Front("")));
    }
    static std::string Front(const std::string& more) {
        return more + "<SourceFileGroup Language=\"Verilog\">" + SourceText("m.v") +
               "</SourceFileGroup>\n";
    }
    static std::string Needed(std::vector<std::string> options) {
        options.insert(options.begin(), {"needed", "b.xml"});
        return ResultOf(options);
    }
    const std::string Hint = "; may be top level: work.m, work.top\n";
};

}  // namespace

TEST_F(NeededCommand, PrintsTheFilesInOrderAndTheRest) {
    const struct {
        const char* Label;
        std::vector<std::string> Options;
        std::string Out;
    } rows[] = {
        {"all", {"--top", "top"}, "p.vhd\ne.vhd\ntop.vhd\n"},
        {"rest", {"--top", "top", "--rest"}, "m.v\n"},
        {"library", {"--top", "LIB.p"}, "p.vhd\n"},
        {"architecture", {"--top", "work.top(A)"}, "p.vhd\ne.vhd\ntop.vhd\n"},
        {"part", {"--top", "e", "--rest"}, "m.v\ntop.vhd\n"},
        {"Verilog", {"--top", "m"}, "m.v\n"},
        {"several", {"--top", "m", "--top", "lib.p"}, "m.v\np.vhd\n"},
        {"fields", {"--top", "e", "--tsv"}, "lib\tp.vhd\nwork\te.vhd\n"},
        {"absolute", {"--top", "lib.p", "--absolute"}, Folder.Path("p.vhd") + "\n"},
        {"language", {"--top", "m", "--language", "verilog"}, "m.v\n"},
    };
    for (const auto& row : rows) EXPECT_EQ(Needed(row.Options), row.Out) << row.Label;
}

TEST_F(NeededCommand, TakesTheTopLevelComponentsOfTheBuild) {
    EXPECT_EQ(Needed({}),
              "2\nhdlbuild: error: the build records no top-level components: give one with "
              "--top\n");
    EXPECT_EQ(ResultOf({"top", "b.xml", "add", "work.e"}).substr(0, 1), "V");
    EXPECT_EQ(Needed({}), "p.vhd\ne.vhd\n");
    EXPECT_EQ(Needed({"--top", "m"}), "m.v\n");
}

TEST_F(NeededCommand, PrintsOneJsonObject) {
    EXPECT_EQ(Needed({"--top", "e", "--json"}),
              "{\n"
              "  \"format\": \"hdlbuild-needed\",\n"
              "  \"version\": 1,\n"
              "  \"build\": \"b.xml\",\n"
              "  \"tops\": [\n"
              "    \"work.e\"\n"
              "  ],\n"
              "  \"needed\": [\n"
              "    {\n"
              "      \"path\": \"p.vhd\",\n"
              "      \"library\": \"lib\",\n"
              "      \"language\": \"VHDL\"\n"
              "    },\n"
              "    {\n"
              "      \"path\": \"e.vhd\",\n"
              "      \"library\": \"work\",\n"
              "      \"language\": \"VHDL\"\n"
              "    }\n"
              "  ],\n"
              "  \"rest\": [\n"
              "    {\n"
              "      \"path\": \"m.v\",\n"
              "      \"library\": \"work\",\n"
              "      \"language\": \"Verilog\"\n"
              "    },\n"
              "    {\n"
              "      \"path\": \"top.vhd\",\n"
              "      \"library\": \"work\",\n"
              "      \"language\": \"VHDL\"\n"
              "    }\n"
              "  ]\n"
              "}\n");
}

TEST_F(NeededCommand, RefusesNamesThatMeanNoUnit) {
    const struct {
        const char* Label;
        std::vector<std::string> Options;
        std::string Err;
    } rows[] = {
        {"unknown", {"--top", "tpo"}, "no source holds 'tpo'; nearest: top" + Hint},
        {"in the library", {"--top", "lib.e"}, "no source holds 'lib.e'; nearest: lib.p" + Hint},
        {"unlike all", {"--top", "something"}, "no source holds 'something'" + Hint},
        {"other language",
         {"--top", "m", "--language", "VHDL"},
         "no source holds 'm'; nearest: m" + Hint},
        {"no name",
         {"--top", "a.b.c"},
         "'a.b.c': LIBRARY.ENTITY or LIBRARY.ENTITY(ARCHITECTURE) is wanted\n"},
        {"architecture", {"--top", "top(b)"}, "work.top has no architecture 'b'; known: a\n"},
        {"module", {"--top", "m(a)"}, "module work.m has no architectures\n"},
        {"not scanned", {"--top", "m", "--language", "C++"}, "sources in C++ are not scanned\n"},
        {"two formats", {"--json", "--tsv"}, "--json excludes --tsv\n"},
    };
    for (const auto& row : rows) {
        std::vector<std::string> options = {"needed", "b.xml"};
        options.insert(options.end(), row.Options.begin(), row.Options.end());
        const TToolRun run = RunHdlbuild(options);
        EXPECT_EQ(run.Status, kExitUsage) << row.Label;
        EXPECT_EQ(run.Err, "hdlbuild: error: " + row.Err) << row.Label;
    }
}

TEST_F(NeededCommand, AsksForTheLibraryWhereSeveralHaveTheName) {
    Folder.Write("e.vhd", "entity p is end;");
    EXPECT_EQ(Needed({"--top", "p"}), "e.vhd\n");
    EXPECT_EQ(Needed({"--top", "lib.p"}), "p.vhd\n");
    Folder.Write("e.vhd", "entity e is end;");
    Folder.Write("m.v", "module e; endmodule");
    EXPECT_EQ(Needed({"--top", "e"}),
              "2\nhdlbuild: error: 'e' may be VHDL work.e or Verilog work.e: name the library or "
              "the language\n");
    EXPECT_EQ(Needed({"--top", "e", "--language", "Verilog"}), "m.v\n");
}

TEST_F(NeededCommand, TellsWhatItCannotKnow) {
    Folder.Write("c.cpp", "");
    Folder.Write("b.xml",
                 BuildText("<SourceFileGroup Language=\"SystemC\">" + SourceText("c.cpp") +
                           "</SourceFileGroup><SourceFileGroup Language=\"VHDL\">" +
                           SourceText("e.vhd") + SourceText("gone.vhd") + "</SourceFileGroup>"));
    EXPECT_EQ(Needed({"--top", "e", "--rest"}),
              "1\ngone.vhd\nc.cpp\n"
              "hdlbuild: error: Build File: Missing file(s) on load.\n"
              "hdlbuild: error: gone.vhd: not scanned: the file does not exist\n"
              "hdlbuild: warning: sources in languages that are not scanned count as not needed: "
              "1\n");
    Folder.Write("e.vhd", "use work.q.all; package p is end;");
    Folder.Write("q.vhd", "use work.p.all; package q is end;");
    Folder.Write("b.xml", BuildText("<SourceFileGroup Language=\"VHDL\">" + SourceText("e.vhd") +
                                    SourceText("q.vhd") + "</SourceFileGroup>"));
    EXPECT_EQ(Needed({"--top", "p"}),
              "1\nq.vhd\ne.vhd\n"
              "hdlbuild: warning: the needs have a cycle: no order of the files is a compile "
              "order\n");
}
