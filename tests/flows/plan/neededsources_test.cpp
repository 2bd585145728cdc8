#include "flows/plan/neededsources.h"
#include "tests/flows/scannedfolder.h"

namespace {

/// One source of a design.
struct TSource {
    std::string Name;
    std::string Text;
    std::string Dependency = {};  ///< recorded; "" for none
};

class NeededSources : public ScannedFolder {
protected:
    /// What is left for the first top, with its numbers of needs and its losses.
    std::string Left(const std::vector<TSource>& sources, const std::string& tops,
                     const std::string& settings = "") {
        std::string texts[3];
        for (const TSource& source : sources) {
            if (!source.Text.empty()) Folder.Write(source.Name, source.Text);
            const bool isVhdl = source.Name.ends_with(".vhd");
            texts[isVhdl                        ? 0
                  : source.Name.ends_with(".c") ? 1
                                                : 2] +=
                "<SourceFile PrecompiledLibrary=\"lib\">" + source.Name +
                (source.Dependency.empty() ? ""
                                           : "<Dependency>" + source.Dependency + "</Dependency>") +
                "</SourceFile>";
        }
        THdlBuildFile build = Read("", texts[0],
                                   "<TopLevelComponents>" + tops + "</TopLevelComponents>" +
                                       settings + "<SourceFileGroup Language=\"C++\">" + texts[1] +
                                       "</SourceFileGroup><SourceFileGroup Language=\"Verilog\">" +
                                       texts[2] + "</SourceFileGroup>");
        TBuildPlan plan = MakePlan(build);
        const TBuildTop* const top = LeaveOutUnneeded(build, plan.Tops.front(), &plan);
        EXPECT_EQ(top, &plan.Tops.front());
        return TextOf(plan);
    }
    static std::string Tops(const std::string& language, const std::string& components) {
        return "<ComponentList Language=\"" + language + "\">" + components + "</ComponentList>";
    }
    static std::string Top(const std::string& name, const std::string& architecture = "") {
        return "<Component Library=\"lib\" Architecture=\"" + architecture + "\">" + name +
               "</Component>";
    }

private:
    static std::string TextOf(const TBuildPlan& plan) {
        std::string text;
        for (const TPlanSource& source : plan.Sources) {
            text += source.Path.substr(source.Path.rfind('/') + 1);
            for (const std::size_t need : source.Needs) text += "<" + std::to_string(need);
            text += " ";
        }
        text += "| tops " + std::to_string(plan.Tops.size()) + " |";
        for (const TPlanSettings& settings : plan.Settings)
            text += std::string(" ") + GetStringFromHdlLanguage(settings.Language);
        for (const TDiagnostic& loss : plan.Losses) text += "\n" + GetDiagnosticText(loss);
        return text;
    }
};

}  // namespace

TEST_F(NeededSources, AreTheClosureOfOneTop) {
    const std::vector<TSource> sources = {
        {"other.vhd", "entity other is end; architecture a of other is begin end;"},
        {"tb.vhd", "entity tb is end; architecture sim of tb is begin i: entity work.dut; end;",
         "dut.vhd"},
        {"long.vhd", "architecture long of tb is begin i: entity work.other; end;", "tb.vhd"},
        {"p.vhd", "package p is end;"},
        {"dut.vhd", "use work.p.all; entity dut is end; architecture a of dut is begin end;",
         "p.vhd"},
    };
    EXPECT_EQ(Left(sources, Tops("VHDL", Top("tb", "sim") + Top("other"))),
              "p.vhd dut.vhd<0 tb.vhd<1 | tops 1 | VHDL\n"
              "2 of 5 sources are left out: lib.tb(sim) does not need them");
    EXPECT_EQ(Left(sources, Tops("VHDL", Top("tb"))),
              "other.vhd p.vhd dut.vhd<1 tb.vhd<2 long.vhd<3 | tops 1 | VHDL");
}

TEST_F(NeededSources, LeaveOutSettingsOfLanguagesWithoutSources) {
    EXPECT_EQ(Left({{"tb.vhd", "entity tb is end;"}, {"m.v", "module m; endmodule"}},
                   Tops("VHDL", Top("tb"))),
              "tb.vhd | tops 1 | VHDL\n1 of 2 sources are left out: lib.tb does not need them");
    EXPECT_EQ(Left({{"tb.vhd", "entity tb is end;"}, {"m.v", "module m; endmodule"}},
                   Tops("Verilog", Top("m")),
                   "<ProjectLanguageConfigurationList><LanguageSettings Language='Verilog'>"
                   "<BuildOptions>-v cells.v</BuildOptions></LanguageSettings>"
                   "</ProjectLanguageConfigurationList>"),
              "m.v cells.v | tops 1 | Verilog\n"
              "1 of 3 sources are left out: lib.m does not need them");
}

TEST_F(NeededSources, StayInWhereTheScanCannotTell) {
    EXPECT_EQ(Left({{"m.v", "module m; endmodule"},
                    {"macros.v", "`define WIDTH 4\n"},
                    {"missing.v", ""},
                    {"watch.v", "module watch; endmodule"},
                    {"binds.v", "bind n watch w();"},
                    {"n.v", "module n; endmodule"},
                    {"rest.v", "module rest; endmodule"},
                    {"model.c", "int x;"}},
                   Tops("Verilog", Top("m"))),
              "m.v macros.v missing.v watch.v binds.v n.v model.c | tops 1 | Verilog C++\n"
              "1 of 8 sources are left out: lib.m does not need them");
    EXPECT_EQ(Left({{"e.vhd", "entity e is end; architecture a of e is begin end;"},
                    {"v.vhd", "vunit v (f(a)) {}"},
                    {"f.vhd", "entity f is end; architecture a of f is begin end;"},
                    {"g.vhd", "entity g is end;"}},
                   Tops("VHDL", Top("e", "a"))),
              "e.vhd v.vhd f.vhd | tops 1 | VHDL\n"
              "1 of 4 sources are left out: lib.e(a) does not need them");
}

TEST_F(NeededSources, AreAllWithoutTheTop) {
    const std::vector<TSource> sources = {
        {"e.vhd", "entity e is end; architecture a of e is begin end;"},
        {"f.vhd", "entity f is end;"}};
    EXPECT_EQ(Left(sources, Tops("VHDL", Top("e", "b") + Top("f"))),
              "e.vhd f.vhd | tops 2 | VHDL\nno source holds lib.e(b): none is left out");
    EXPECT_EQ(Left(sources, Tops("VHDL", Top("g"))),
              "e.vhd f.vhd | tops 1 | VHDL\nno source holds lib.g: none is left out");
}

TEST_F(NeededSources, TakeAVerilogTopOfAnyLibrary) {
    const std::string top = "<Component Library=\"work\" Architecture=\"\">m</Component>";
    EXPECT_EQ(Left({{"m.v", "module m; endmodule"}, {"n.v", "module n; endmodule"}},
                   Tops("Verilog", top)),
              "m.v | tops 1 | Verilog\n1 of 2 sources are left out: work.m does not need them");
}
