#include "flows/buildchanges.h"
#include "buildfile/simwraphdlbuildfile.h"
#include "projectfiles/ihdlsourcefile.h"
#include "projectfiles/ihdlsourcefilelist.h"
#include "services/names/isfilename.h"
#include "settings/projectsimgeneralconfig.h"
#include <gtest/gtest.h>

namespace {

const ISFileName* Name(const std::string& name) {
    return ISFileName::NewISFileName(("/p/" + name).c_str());
}

/// "Verilog: a.v; VHDL: b.vhd(a.vhd)", with a star behind library files.
std::string TextOf(THdlBuildFile& build) {
    std::string text;
    for (const THdlLanguage language : build.GetSourceFileLanguages()) {
        text += std::string(text.empty() ? "" : "; ") + GetStringFromHdlLanguage(language) + ":";
        for (IHdlSourceFile* source : *build.GetSourceFileGroup(language)) {
            text += std::string(" ") + source->GetFileName()->GetNameAndExt();
            if (source->IsLibrary()) text += "*";
            std::string dependencies;
            for (IHdlSourceFile* dependency : *source->GetDependencyList())
                dependencies += std::string(" ") + dependency->GetFileName()->GetNameAndExt();
            if (!dependencies.empty()) text += "(" + dependencies.substr(1) + ")";
        }
    }
    return text;
}

std::string FlagsOf(const THdlBuildFile& build) {
    const TProjectSimGeneralConfig* general = build.GetGeneralConfiguration();
    if (!general) return "none";
    return std::string(general->GetCompileVerilogFiles() ? "Verilog " : "") +
           (general->GetCompileVHDLFiles() ? "VHDL " : "") +
           (general->GetCompileCppFiles() ? "TestBuilder " : "");
}

/// "a.vhd b.vhd c.vhd d.vhd", where c needs a and b.
class FourSources : public TSimWrapHdlBuildFile {
public:
    FourSources() {
        for (const char* name : {"a.vhd", "b.vhd", "c.vhd", "d.vhd"})
            AddSource(*this, Name(name), LANGUAGE_VHDL);
        SetDependencies(*this, Source("c.vhd"), {Name("a.vhd"), Name("b.vhd")});
    }
    IHdlSourceFile& Source(const char* name) { return *FindListed(*this, Name(name)).Source; }
};

}  // namespace

TEST(BuildChanges, TellWhichGroupsTheNextSaveLeavesOut) {
    TSimWrapHdlBuildFile build;
    build.SetTopLanguage(LANGUAGE_VHDL);
    for (const THdlLanguage language : {LANGUAGE_VERILOG, LANGUAGE_VHDL, LANGUAGE_SYSTEMC})
        build.GetSourceFileGroup(language)->AddSourceFile(
            build.CreateOrGetSourceFile(GetStringFromHdlLanguage(language)), false);
    (void)build.GetSourceFileGroup(LANGUAGE_TESTBUILDER);
    using TLanguages = std::vector<THdlLanguage>;
    EXPECT_EQ(ListUnsavedGroups(build), (TLanguages{LANGUAGE_VERILOG, LANGUAGE_SYSTEMC}));
    build.SetGeneralConfiguration(new TProjectSimGeneralConfig);
    EXPECT_EQ(ListUnsavedGroups(build), TLanguages{LANGUAGE_VERILOG});
    build.SetTopLanguage(LANGUAGE_VERILOG);
    EXPECT_EQ(ListUnsavedGroups(build), TLanguages{LANGUAGE_VHDL});
    build.GetGeneralConfiguration()->SetCompileVHDLFiles(true);
    EXPECT_EQ(ListUnsavedGroups(build), TLanguages{});
}

TEST(BuildChanges, AddASourceOnce) {
    FourSources build;
    EXPECT_EQ(AddSource(build, Name("B.VHD"), LANGUAGE_VHDL), nullptr);
    EXPECT_NE(AddSource(build, Name("e.vhd"), LANGUAGE_VERILOG), nullptr);
    EXPECT_EQ(TextOf(build), "Verilog: e.vhd; VHDL: a.vhd b.vhd c.vhd(a.vhd b.vhd) d.vhd");
    EXPECT_EQ(FindListed(build, Name("E.vhd")).Language, LANGUAGE_VERILOG);
    EXPECT_EQ(FindListed(build, Name("f.vhd")).Source, nullptr);
}

TEST(BuildChanges, HaveTheAddedLanguagesCompiled) {
    const struct {
        THdlLanguage Top;
        bool HasGeneral;
        THdlLanguage Added;
        const char* Expected;
    } rows[] = {
        {LANGUAGE_VHDL, true, LANGUAGE_VHDL, "VHDL "},
        {LANGUAGE_VHDL, true, LANGUAGE_VERILOG, "Verilog "},
        {LANGUAGE_VHDL, true, LANGUAGE_TESTBUILDER, "TestBuilder "},
        {LANGUAGE_VHDL, true, LANGUAGE_CPLUSPLUS, ""},
        // The top-level language's group is kept without general settings.
        {LANGUAGE_VHDL, false, LANGUAGE_VHDL, "none"},
        {LANGUAGE_VHDL, false, LANGUAGE_VERILOG, "Verilog "},
        {LANGUAGE_VHDL, false, LANGUAGE_CPLUSPLUS, ""},
    };
    for (const auto& row : rows) {
        TSimWrapHdlBuildFile build;
        build.SetTopLanguage(row.Top);
        if (row.HasGeneral) build.SetGeneralConfiguration(new TProjectSimGeneralConfig);
        AddSource(build, Name("x"), row.Added);
        EXPECT_EQ(FlagsOf(build), row.Expected) << row.Added << row.HasGeneral;
    }
}

TEST(BuildChanges, MoveSourcesInTheirOrder) {
    const struct {
        std::vector<const char*> Moved;
        TGroupPlace Place;
        const char* Neighbour;
        const char* Expected;
    } rows[] = {
        {{"d.vhd", "b.vhd"}, PLACE_FIRST, nullptr, "d.vhd b.vhd a.vhd c.vhd"},
        {{"a.vhd"}, PLACE_LAST, nullptr, "b.vhd c.vhd d.vhd a.vhd"},
        {{"a.vhd", "b.vhd"}, PLACE_BEFORE, "d.vhd", "c.vhd a.vhd b.vhd d.vhd"},
        {{"d.vhd"}, PLACE_BEHIND, "a.vhd", "a.vhd d.vhd b.vhd c.vhd"},
        {{"b.vhd"}, PLACE_BEHIND, "a.vhd", "a.vhd b.vhd c.vhd d.vhd"},
    };
    for (const auto& row : rows) {
        FourSources build;
        build.Source("c.vhd").FlushDependencies();
        std::vector<IHdlSourceFile*> moved;
        for (const char* name : row.Moved) moved.push_back(&build.Source(name));
        MoveSources(build, LANGUAGE_VHDL, moved, row.Place,
                    row.Neighbour ? &build.Source(row.Neighbour) : nullptr);
        EXPECT_EQ(TextOf(build), std::string("VHDL: ") + row.Expected);
    }
}

TEST(BuildChanges, RemoveSourcesEverywhere) {
    FourSources build;
    RemoveSources(build, {&build.Source("a.vhd"), &build.Source("d.vhd")});
    EXPECT_EQ(TextOf(build), "VHDL: b.vhd c.vhd(b.vhd)");
}

TEST(BuildChanges, RenameASourceEverywhere) {
    FourSources build;
    build.Source("c.vhd").SetLibraryFlag(true);
    RenameSource(build, build.Source("a.vhd"), Name("x.vhd"));
    RenameSource(build, build.Source("c.vhd"), Name("y.vhd"));
    EXPECT_EQ(TextOf(build), "VHDL: x.vhd b.vhd y.vhd*(x.vhd b.vhd) d.vhd");
}
