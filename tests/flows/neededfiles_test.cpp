#include "flows/neededfiles.h"
#include "projectfiles/ihdlsourcefile.h"
#include "tests/flows/scannedfolder.h"

namespace {

/// One source of a design.
struct TSource {
    std::string Name;
    std::string Text;
    std::string Dependency = {};  ///< recorded; "" for none
};

class NeededFiles : public ScannedFolder {
protected:
    /// The names, without their ends, of the files that the units need, in order.
    std::string Needed(const std::vector<TSource>& sources, const std::vector<TBuildTop>& tops) {
        std::string listed, verilog;
        for (const TSource& source : sources) {
            Folder.Write(source.Name, source.Text);
            std::string text = "<SourceFile>" + source.Name;
            if (!source.Dependency.empty())
                text += "<Dependency>" + source.Dependency + "</Dependency>";
            (source.Name.ends_with(".v") ? verilog : listed) += text + "</SourceFile>";
        }
        THdlBuildFile build = Read(
            "", listed, "<SourceFileGroup Language=\"Verilog\">" + verilog + "</SourceFileGroup>");
        const TBuildScan scan(build, {{}, true});
        TBuildNeeds needs(build);
        needs.Add(scan);
        TNeededFiles files(scan, needs);
        for (const TBuildTop& top : tops) {
            const std::vector<TUnitPlace> units = files.FindUnits(top);
            EXPECT_EQ(units.size(), 1u) << top.Entity;
            if (!units.empty()) files.Add({units.front(), top.Architecture});
        }
        bool isCyclic = false;
        std::string text;
        for (const std::uint32_t file : files.ListInOrder(&isCyclic)) {
            EXPECT_TRUE(files.IsNeeded(file));
            const std::string path = needs.GetFiles()[file]->GetFileName()->Canonical(false);
            const std::size_t begin = path.find_last_of("/\\") + 1;
            text += (text.empty() ? "" : " ") + path.substr(begin, path.rfind('.') - begin);
        }
        return text + (isCyclic ? ", cyclic" : "");
    }
    static TBuildTop Vhdl(const char* entity, const char* architecture = "") {
        return {LANGUAGE_VHDL, "", entity, architecture};
    }
    static TBuildTop Verilog(const char* module) { return {LANGUAGE_VERILOG, "", module, ""}; }

    const TSource E{"e.vhd", "entity e is end;"};
    const TSource A{"a.vhd", "architecture a of e is begin end;"};
    const TSource B{"b.vhd", "architecture b of e is begin end;"};
    const TSource P{"p.vhd", "package p is end;"};
    const TSource Body{"body.vhd", "package body p is end;"};
};

}  // namespace

TEST_F(NeededFiles, AreThoseOfTheArchitecturesThatMayBeMeant) {
    EXPECT_EQ(Needed({A, B, E}, {Vhdl("E")}), "e a b");
    EXPECT_EQ(Needed({A, B, E}, {Vhdl("e", "B")}), "e b");
    const auto top = [](const std::string& instance) {
        return TSource{"top.vhd",
                       "entity top is end; architecture t of top is component e is end component; "
                       "begin i: " +
                           instance + "; end;"};
    };
    EXPECT_EQ(Needed({top("entity work.e"), A, B, E}, {Vhdl("top")}), "e top a b");
    EXPECT_EQ(Needed({top("entity work.e(b)"), A, B, E}, {Vhdl("top")}), "e top b");
    EXPECT_EQ(Needed({top("e"), A, B, E}, {Vhdl("top")}), "top e a b");
    const TSource c{"c.vhd", "configuration c of e is for a end for; end;"};
    EXPECT_EQ(Needed({top("configuration work.c"), c, A, B, E}, {Vhdl("top")}), "e a c top");
    EXPECT_EQ(Needed({c, A, B, E}, {Vhdl("c")}), "e a c");
}

TEST_F(NeededFiles, AreThoseOfPackagesWithTheirBodies) {
    const TSource user{"user.vhd", "use work.p.all; entity user is end;"};
    EXPECT_EQ(Needed({user, Body, P, E}, {Vhdl("user")}), "p user body");
    const TSource context{"context.vhd", "context c is library work; use work.p.all; end;"};
    const TSource through{"through.vhd", "context work.c; entity through is end;"};
    EXPECT_EQ(Needed({through, context, Body, P, E}, {Vhdl("through")}), "p context through body");
}

// A file is compiled whole, but only what is named is elaborated.
TEST_F(NeededFiles, LeaveOutWhatOtherUnitsOfAFileInstantiate) {
    const TSource both{"both.vhd",
                       "entity one is end; use work.p.all; entity two is end;\n"
                       "architecture a of two is begin i: entity work.e; end;"};
    EXPECT_EQ(Needed({both, A, E, Body, P}, {Vhdl("one")}), "p e both");
    EXPECT_EQ(Needed({both, A, E, Body, P}, {Vhdl("two")}), "p e both a body");
}

TEST_F(NeededFiles, AreThoseOfBothLanguages) {
    const TSource top{"top.vhd",
                      "entity top is end; architecture t of top is component m is end component; "
                      "begin i: m; end;"};
    const TSource m{"m.v", "module m; import q::*; e i(); endmodule"};
    const TSource q{"q.v", "package q; endpackage"};
    const TSource other{"other.v", "module other; endmodule"};
    EXPECT_EQ(Needed({top, m, q, other, A, E}, {Vhdl("top")}), "q m top e a");
    EXPECT_EQ(Needed({top, m, q, other, A, E}, {Verilog("m")}), "q m e a");
    EXPECT_EQ(Needed({top, m, q, other, A, E}, {Verilog("other"), Vhdl("e")}), "other e a");
}

TEST_F(NeededFiles, AreThoseThatTheBuildRecords) {
    TSource e = E;
    e.Dependency = "old.vhd";
    EXPECT_EQ(Needed({e, P, {"old.vhd", "", "p.vhd"}}, {Vhdl("e")}), "p old e");
}

TEST_F(NeededFiles, HaveNoOrderInACycle) {
    EXPECT_EQ(Needed({{"p.vhd", "use work.q.all; package p is end;"},
                      {"q.vhd", "use work.p.all; package q is end;"}},
                     {Vhdl("p")}),
              "q p, cyclic");
}

TEST_F(NeededFiles, NameUnitsAsTheirLanguageDoes) {
    Folder.Write("a.vhd", "entity Top is end;");
    Folder.Write("b.vhd", "architecture top of top is begin end;");
    THdlBuildFile build = Read("DestinationLibrary=\"l\"",
                               "<SourceFile>a.vhd</SourceFile><SourceFile>b.vhd</SourceFile>");
    const TBuildScan scan(build, {{}, true});
    const TBuildNeeds needs(build);
    const TNeededFiles files(scan, needs);
    EXPECT_EQ(files.FindUnits({LANGUAGE_VHDL, "", "TOP", ""}), (std::vector<TUnitPlace>{{0, 0}}));
    EXPECT_EQ(files.FindUnits({LANGUAGE_VHDL, "L", "top", ""}), (std::vector<TUnitPlace>{{0, 0}}));
    EXPECT_TRUE(files.FindUnits({LANGUAGE_VHDL, "m", "top", ""}).empty());
    EXPECT_TRUE(files.FindUnits({LANGUAGE_VERILOG, "", "top", ""}).empty());
    EXPECT_EQ(files.GetSecondaries({0, 0}), (std::vector<TUnitPlace>{{1, 0}}));
}
