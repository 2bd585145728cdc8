#include "flows/buildneeds.h"
#include "projectfiles/ihdlsourcefile.h"
#include "tests/flows/scannedfolder.h"

namespace {

class BuildNeeds : public ScannedFolder {
protected:
    static std::string NameOf(const TBuildNeeds& needs, std::uint32_t file) {
        const std::string path = needs.GetFiles()[file]->GetFileName()->Canonical(false);
        return path.substr(path.find_last_of("/\\") + 1);
    }
    /// A line for each file: "a.vhd: b.vhd(recorded, compile, 2)" with the number of units.
    static std::string TextOf(const TBuildNeeds& needs) {
        std::string text;
        for (std::uint32_t file = 0; file < needs.GetFiles().size(); ++file) {
            text += NameOf(needs, file) + ":";
            for (const TFileNeed& need : needs.GetNeeds(file))
                text += " " + NameOf(needs, need.File) + "(" +
                        (need.IsRecorded ? "recorded, " : "") +
                        (need.IsForCompile ? "compile, " : "") + std::to_string(need.Units.size()) +
                        ")";
            text += "\n";
        }
        return text;
    }
};

}  // namespace

TEST_F(BuildNeeds, AreTheRecordedOnesThenWhatAScanFinds) {
    Folder.Write("p.vhd", "package p is end;");
    Folder.Write("e.vhd", "entity e is end;");
    Folder.Write("c.vhd", "entity c is end;");
    Folder.Write("top.vhd",
                 "use work.p.all; entity top is end;\n"
                 "architecture a of top is component c is end component;\n"
                 "begin i: entity work.e; j: entity work.e; k: c; l: entity work.top; end;");
    THdlBuildFile build =
        Read("",
             "<SourceFile>top.vhd<Dependency>old.vhd</Dependency><Dependency>P.vhd</Dependency>"
             "</SourceFile><SourceFile>p.vhd</SourceFile><SourceFile>e.vhd</SourceFile>"
             "<SourceFile>c.vhd</SourceFile>");
    TBuildNeeds needs(build);
    EXPECT_EQ(TextOf(needs),
              "top.vhd: old.vhd(recorded, 0) p.vhd(recorded, 0)\np.vhd:\ne.vhd:\nc.vhd:\n"
              "old.vhd:\n");
    EXPECT_EQ(needs.MakeGraph(), (TFileGraph{{4, 1}, {}, {}, {}, {}}));
    needs.Add(TBuildScan(build, {{}, true}));
    EXPECT_EQ(TextOf(needs),
              "top.vhd: old.vhd(recorded, 0) p.vhd(recorded, compile, 1) e.vhd(compile, 1) "
              "c.vhd(1)\np.vhd:\ne.vhd:\nc.vhd:\nold.vhd:\n");
}

TEST_F(BuildNeeds, FindFilesInAnyLetterCase) {
    THdlBuildFile build =
        Read("", "<SourceFile>a.vhd<Dependency>old.vhd</Dependency></SourceFile>");
    const TBuildNeeds needs(build);
    const auto find = [&](const char* name) {
        return needs.FindFile(ISFileName::NewISFileName(Folder.Path(name).c_str()));
    };
    EXPECT_EQ(find("A.vhd"), 0u);
    EXPECT_EQ(find("OLD.vhd"), 1u);
    EXPECT_EQ(find("b.vhd"), std::nullopt);
}

TEST_F(BuildNeeds, NameANeedOfSeveralUnitsOnce) {
    const TNeedPlace first{{0, 1}, 2};
    const TNeedPlace second{{0, 1}, 3};
    const TFileNeed need{1, false, {{{1, 0}, first}, {{1, 1}, first}, {{1, 0}, second}}};
    EXPECT_EQ(ListNeedsOf(need), (std::vector<TNeedPlace>{first, second}));
}
