#include "projectfiles/sourcefilegroups.h"
#include "settings/projectsimgeneralconfig.h"
#include "settings/projectsimlanguageconfig.h"
#include "tests/projectfiles/sourcefakes.h"
#include "tests/support/elementtext.h"
#include "tests/support/memoryfolder.h"
#include "tests/support/recorders.h"
#include <functional>
#include <gtest/gtest.h>

namespace {

/// A build in a folder that holds a.vhd, b.vhd and t.v.
class SourceFileGroupsFiles : public testing::Test {
protected:
    SourceFileGroupsFiles() {
        for (const char* name : {"a.vhd", "b.vhd", "t.v"}) Folder.Write(name, name);
    }
    /// The result and where the read stopped.
    std::string Read(const std::string& elements) {
        TXMLList xml;
        PushElements(&xml, elements);
        DListIterator<TElement*> position(xml);
        const bool done = Build.Groups.ReadSourceFileGroups(position);
        return std::string(done ? "true, at " : "false, at ") + ElementAt(position);
    }
    std::string Missing(const std::string& name) {
        return "HdlBuildFile: Missing File: \"" + Folder.Path(name) + "\" [0]\n";
    }
    MemoryFolder Folder;
    RecordingMessageBox Box;
    FakeBuild Build{Folder.Path()};
};

TEST_F(SourceFileGroupsFiles, AreReadWithFlagsLibrariesAndDependencies) {
    EXPECT_EQ(
        Read("START SourceFileGroup Language=VHDL\n"
             "START SourceFile Library=true PrecompiledLibrary=lib1\nTEXT  a.vhd \n"
             "START Dependency\nTEXT b.vhd\nEND Dependency\n"
             "START Dependency\nTEXT  t.v\t\nEND Dependency\nEND SourceFile\n"
             "START SourceFile Library=false PrecompiledLibrary=\nTEXT b.vhd\nEND SourceFile\n"
             "END SourceFileGroup\n"
             "START SourceFileGroup Language=Verilog\n"
             "START SourceFile\nTEXT t.v\nEND SourceFile\n"
             "END SourceFileGroup\nEND HdlBuildFile\n"),
        "true, at TAIL");
    EXPECT_EQ(GroupsOf(Build.Groups), "Verilog: t.v\nVHDL: a.vhd!@lib1(b.vhd t.v ) b.vhd\n");
    EXPECT_FALSE(Build.Groups.GetFilesMissing());
    EXPECT_EQ(Box.Take(), "");
}

TEST_F(SourceFileGroupsFiles, HaveOneObjectPerNameWhicheverPlaceNamesItFirst) {
    Read(
        "START SourceFileGroup Language=VHDL\n"
        "START SourceFile\nTEXT a.vhd\nSTART Dependency\nTEXT b.vhd\nEND Dependency\nEND "
        "SourceFile\n"
        "START SourceFile\nTEXT B.vhd\nSTART Dependency\nTEXT base.vhd\nEND Dependency\nEND "
        "SourceFile\n"
        "START SourceFile\nTEXT t.v\nSTART Dependency\nTEXT base.vhd\nEND Dependency\nEND "
        "SourceFile\n");
    IHdlSourceFile* a = Build.Groups.GetSourceFile(Handle(Folder.Path("a.vhd")));
    IHdlSourceFile* b = Build.Groups.GetSourceFile(Handle(Folder.Path("b.vhd")));
    IHdlSourceFile* t = Build.Groups.GetSourceFile(Handle(Folder.Path("t.v")));
    const ISFileName* base = Handle(Folder.Path("base.vhd"));
    EXPECT_EQ(a->GetDependency(b->GetFileName()), b);
    ASSERT_NE(b->GetDependency(base), nullptr);
    EXPECT_EQ(b->GetDependency(base), t->GetDependency(base));
    EXPECT_EQ(GroupsOf(Build.Groups), "VHDL: a.vhd(B.vhd ) B.vhd(base.vhd ) t.v(base.vhd )\n");
}

TEST_F(SourceFileGroupsFiles, GiveListedSourcesTheConfigurationOfTheElementsLanguage) {
    TProjectSimLanguageConfig vhdl;
    TProjectSimLanguageConfig verilog;
    Build.Configs = {{LANGUAGE_VHDL, &vhdl}, {LANGUAGE_VERILOG, &verilog}};
    Read(
        "START SourceFileGroup Language=VHDL\n"
        "START SourceFile\nTEXT t.v\nSTART Dependency\nTEXT b.vhd\nEND Dependency\nEND SourceFile\n"
        "END SourceFileGroup\n");
    IHdlSourceFile* t = Build.Groups.GetSourceFile(Handle(Folder.Path("t.v")));
    EXPECT_EQ(t->GetProjectLanguageConfig(), &vhdl);
    EXPECT_EQ(t->GetLanguage(), LANGUAGE_VERILOG) << "the extension's language stays";
    EXPECT_EQ(t->GetDependency(Handle(Folder.Path("b.vhd")))->GetProjectLanguageConfig(), nullptr);
}

TEST_F(SourceFileGroupsFiles, LeaveALibraryFlagThatAnEarlierEntrySet) {
    Read(
        "START SourceFileGroup Language=VHDL\n"
        "START SourceFile Library=true PrecompiledLibrary=first\nTEXT a.vhd\nEND SourceFile\n"
        "START SourceFile Library=false PrecompiledLibrary=\nTEXT a.vhd\nEND SourceFile\n"
        "END SourceFileGroup\n");
    EXPECT_EQ(GroupsOf(Build.Groups), "VHDL: a.vhd!@first\n");
}

TEST_F(SourceFileGroupsFiles, TakeTheAttributesOfALaterEntryOfTheSameName) {
    Read(
        "START SourceFileGroup Language=VHDL\n"
        "START SourceFile Library=false PrecompiledLibrary=first\nTEXT a.vhd\nEND SourceFile\n"
        "START SourceFile\nTEXT b.vhd\nSTART Dependency\nTEXT t.v\nEND Dependency\n"
        "END SourceFile\n"
        "START SourceFile Library=true PrecompiledLibrary=second\nTEXT A.VHD\nEND SourceFile\n"
        "END SourceFileGroup\n"
        "START SourceFileGroup Language=Verilog\n"
        "START SourceFile Library=true PrecompiledLibrary=third\nTEXT b.vhd\nEND SourceFile\n"
        "START SourceFile Library=true\nTEXT t.v\nEND SourceFile\n"
        "END SourceFileGroup\n");
    EXPECT_EQ(GroupsOf(Build.Groups),
              "Verilog: b.vhd!@third(t.v ) t.v!\nVHDL: a.vhd!@second b.vhd!@third(t.v )\n");
}

TEST_F(SourceFileGroupsFiles, KeepTheBlanksOfALibraryName) {
    TXMLList xml;
    TAttributeList group;
    group.Psh("Language", "VHDL");
    TAttributeList source;
    source.Psh("PrecompiledLibrary", " my lib\t");
    xml.Psh("SourceFileGroup", &group, TElement::START, nullptr);
    xml.Psh("SourceFile", &source, TElement::START, nullptr);
    xml.Psh("", nullptr, TElement::TEXT, "a.vhd");
    DListIterator<TElement*> position(xml);
    EXPECT_TRUE(Build.Groups.ReadSourceFileGroups(position));
    EXPECT_EQ(GroupsOf(Build.Groups), "VHDL: a.vhd@ my lib\t\n");
}

TEST_F(SourceFileGroupsFiles, TakeTheBooleanTextsOfTheLibraryFlag) {
    const struct {
        const char* Text;
        bool IsLibrary;
    } rows[] = {{"true", true}, {"TRUE", true}, {"yes", true}, {"1", true},
                {"0", false},   {"no", false},  {"x", false},  {"", false}};
    for (const auto& row : rows) {
        Build.Groups.Flush();
        Read("START SourceFileGroup Language=VHDL\nSTART SourceFile Library=" +
             std::string(row.Text) + "\nTEXT f" + row.Text + ".vhd\nEND SourceFile\n");
        ASSERT_EQ(Build.Groups.FindGroup(LANGUAGE_VHDL)->size(), 1u) << row.Text;
        EXPECT_EQ((*Build.Groups.FindGroup(LANGUAGE_VHDL)->begin())->IsLibrary(), row.IsLibrary)
            << row.Text;
    }
}

TEST_F(SourceFileGroupsFiles, TakeTheBooleanTextWithoutTheBlanksAroundIt) {
    TXMLList xml;
    TAttributeList group;
    group.Psh("Language", "VHDL");
    TAttributeList source;
    source.Psh("Library", " true\t");
    xml.Psh("SourceFileGroup", &group, TElement::START, nullptr);
    xml.Psh("SourceFile", &source, TElement::START, nullptr);
    xml.Psh("", nullptr, TElement::TEXT, "a.vhd");
    DListIterator<TElement*> position(xml);
    EXPECT_TRUE(Build.Groups.ReadSourceFileGroups(position));
    EXPECT_EQ(GroupsOf(Build.Groups), "VHDL: a.vhd!\n");
}

TEST_F(SourceFileGroupsFiles, ThatAreMissingAreToldOnceAndKept) {
    EXPECT_EQ(Read("START SourceFileGroup Language=VHDL\n"
                   "START SourceFile\nTEXT x.vhd\nSTART Dependency\nTEXT y.vhd\nEND Dependency\n"
                   "END SourceFile\n"
                   "START SourceFile\nTEXT X.vhd\nEND SourceFile\n"
                   "START SourceFile\nTEXT z.vhd\nEND SourceFile\n"
                   "END SourceFileGroup\n"
                   "START SourceFileGroup Language=Verilog\n"
                   "START SourceFile\nTEXT x.vhd\nEND SourceFile\n"
                   "END SourceFileGroup\n"),
              "true, at TAIL");
    EXPECT_EQ(Box.Take(), Missing("x.vhd") + Missing("z.vhd"));
    EXPECT_TRUE(Build.Groups.GetFilesMissing());
    EXPECT_EQ(GroupsOf(Build.Groups), "Verilog: x.vhd(y.vhd )\nVHDL: x.vhd(y.vhd ) z.vhd\n");
}

/// Changes the build while its user is told of a missing file.
class MeddlingMessageBox : public RecordingMessageBox {
public:
    explicit MeddlingMessageBox(std::function<void()> change) : Change(std::move(change)) {}
    void ShowMessage(const char*, const char*, int) override { Change(); }

private:
    std::function<void()> Change;
};

TEST_F(SourceFileGroupsFiles, KnowWhatWasAddedWhileTheyAreRead) {
    Sources made;
    THdlSourceFile* listed = made.Make(Folder.Path("listed.vhd"));
    THdlSourceFile* dependency = made.Make(Folder.Path("dependency.vhd"));
    listed->AddDependency(dependency);
    const MeddlingMessageBox box([&] { Build.Groups.AddSourceFile(listed, false); });
    Read(
        "START SourceFileGroup Language=VHDL\n"
        "START SourceFile\nTEXT gone.vhd\n"
        "START Dependency\nTEXT dependency.vhd\nEND Dependency\n"
        "START Dependency\nTEXT listed.vhd\nEND Dependency\n"
        "START Dependency\nTEXT other.vhd\nEND Dependency\nEND SourceFile\n"
        "START SourceFile\nTEXT other.vhd\nEND SourceFile\nEND SourceFileGroup\n");
    EXPECT_EQ(GroupsOf(Build.Groups),
              "VHDL: listed.vhd(dependency.vhd ) "
              "gone.vhd(dependency.vhd listed.vhd other.vhd ) other.vhd\n");
    const IHdlSourceFile* gone = Build.Groups.GetSourceFile(Handle(Folder.Path("gone.vhd")));
    EXPECT_EQ(gone->GetDependency(dependency->GetFileName()), dependency);
    EXPECT_EQ(gone->GetDependency(listed->GetFileName()), listed);
    EXPECT_EQ(gone->GetDependency(Handle(Folder.Path("other.vhd"))),
              Build.Groups.GetSourceFile(Handle(Folder.Path("other.vhd"))));
}

/// Lists a source of its own when it is asked for one.
class MeddlingBuild : public FakeBuild {
public:
    using FakeBuild::FakeBuild;
    IHdlSourceFile* CreateOrGetSourceFile(const char* fileName) override {
        if (fileName == std::string("dependency.vhd")) Groups.AddSourceFile(&Listed, false);
        return FakeBuild::CreateOrGetSourceFile(fileName);
    }
    THdlSourceFile Listed{"/p/listed.vhd"};
};

TEST(SourceFileGroupsRead, KnowsWhatTheBuildListsMeanwhile) {
    const RecordingMessageBox box;
    MeddlingBuild build("/p");
    THdlSourceFile dependency("/p/dependency.vhd");
    build.Listed.AddDependency(&dependency);
    TXMLList xml;
    PushElements(&xml,
                 "START SourceFileGroup Language=VHDL\nSTART SourceFile\nTEXT a.vhd\n"
                 "START Dependency\nTEXT dependency.vhd\nEND Dependency\nEND SourceFile\n"
                 "END SourceFileGroup\n");
    DListIterator<TElement*> position(xml);
    EXPECT_TRUE(build.Groups.ReadSourceFileGroups(position));
    const IHdlSourceFile* read = build.Groups.GetSourceFile(Handle("/p/a.vhd"));
    EXPECT_EQ(read->GetDependency(dependency.GetFileName()), &dependency);
    build.Groups.Flush();
}

TEST_F(SourceFileGroupsFiles, KnowWhatWasThereBeforeTheyAreRead) {
    Sources made;
    THdlSourceFile* listed = made.Make(Folder.Path("a.vhd"));
    THdlSourceFile* dependency = made.Make(Folder.Path("dependency.vhd"));
    listed->AddDependency(dependency);
    Build.Groups.AddSourceFile(listed, false);
    Read(
        "START SourceFileGroup Language=VHDL\nSTART SourceFile\nTEXT b.vhd\n"
        "START Dependency\nTEXT dependency.vhd\nEND Dependency\nEND SourceFile\n"
        "END SourceFileGroup\n");
    const IHdlSourceFile* read = Build.Groups.GetSourceFile(Handle(Folder.Path("b.vhd")));
    EXPECT_EQ(read->GetDependency(dependency->GetFileName()), dependency);
}

TEST_F(SourceFileGroupsFiles, AreToldAgainByTheNextReadWhichClearsTheFlagFirst) {
    const std::string missing =
        "START SourceFileGroup Language=VHDL\nSTART SourceFile\nTEXT x.vhd\n";
    Read(missing);
    Box.Take();
    Read(missing);
    EXPECT_EQ(Box.Take(), Missing("x.vhd"));
    EXPECT_TRUE(Build.Groups.GetFilesMissing());
    EXPECT_EQ(Read("END Anything\n"), "true, at END Anything");
    EXPECT_FALSE(Build.Groups.GetFilesMissing());
}

TEST_F(SourceFileGroupsFiles, AreCleanWhenReadAndModifiedWhenOneChangesOrComes) {
    const std::string elements =
        "START SourceFileGroup Language=VHDL\nSTART SourceFile\nTEXT a.vhd\nEND SourceFile\n"
        "END SourceFileGroup\n"
        "START SourceFileGroup Language=Verilog\nSTART SourceFile\nTEXT new.v\nEND SourceFile\n";
    EXPECT_FALSE(Build.Groups.IsAnySourceFileModifiedSinceLastCompiled()) << "no groups";
    Read(elements);
    EXPECT_FALSE(Build.Groups.IsAnySourceFileModifiedSinceLastCompiled());
    Folder.Write("a.vhd", "longer than before");
    EXPECT_TRUE(Build.Groups.IsAnySourceFileModifiedSinceLastCompiled());
    Handle(Folder.Path("a.vhd"))->UpdateTimeFileLastCompiled(kDefaultTimeStampKey);
    EXPECT_FALSE(Build.Groups.IsAnySourceFileModifiedSinceLastCompiled());
    Folder.Write("new.v", "");
    EXPECT_TRUE(Build.Groups.IsAnySourceFileModifiedSinceLastCompiled());
    Read(elements);
    EXPECT_FALSE(Build.Groups.IsAnySourceFileModifiedSinceLastCompiled());
}

TEST_F(SourceFileGroupsFiles, ThatWereNeverReadAndNamelessSourcesAreNotModified) {
    Sources made;
    Build.Groups.AddSourceFile(made.Make(Folder.Path("b.vhd")), false);
    Build.Groups.AddSourceFile(made.MakeNameless(), false);
    EXPECT_FALSE(Build.Groups.IsAnySourceFileModifiedSinceLastCompiled());
}

TEST_F(SourceFileGroupsFiles, OfBrokenStreamsKeepWhatWasReadBefore) {
    const std::string start = "START SourceFileGroup Language=VHDL\n";
    const std::string a = "START SourceFile\nTEXT a.vhd\n";
    const std::string b = "START SourceFile\nTEXT b.vhd\nEND SourceFile\n";
    const struct {
        const char* Label;
        std::string Elements;
        const char* Result;
        const char* Groups;
    } rows[] = {
        {"empty stream", "", "true, at TAIL", ""},
        {"another element", "START Other\n", "true, at START Other", ""},
        {"a group's START is the last element", start, "false, at TAIL", ""},
        {"an empty group", start + "END SourceFileGroup\nSTART Next\n", "true, at START Next",
         "VHDL:\n"},
        {"an unknown language", "START SourceFileGroup Language=Klingon\n" + b, "true, at TAIL",
         "None: b.vhd\n"},
        {"no language", "START SourceFileGroup\n" + b, "true, at TAIL", "None: b.vhd\n"},
        {"cut after a source's START", start + b + "START SourceFile\n", "false, at TAIL",
         "VHDL: b.vhd\n"},
        {"cut after a source's text", start + a, "true, at TAIL", "VHDL: a.vhd\n"},
        {"cut after a dependency's START", start + a + "START Dependency\n", "false, at TAIL",
         "VHDL: a.vhd\n"},
        {"cut after a dependency's text", start + a + "START Dependency\nTEXT b.vhd\n",
         "true, at TAIL", "VHDL: a.vhd(b.vhd )\n"},
        {"a source without a name", start + "START SourceFile\nEND SourceFile\n" + b,
         "true, at TAIL", "VHDL: b.vhd\n"},
        {"a source with a blank name", start + "START SourceFile\nTEXT  \nEND SourceFile\n" + b,
         "true, at TAIL", "VHDL: b.vhd\n"},
        {"a nameless source's dependencies are passed over",
         start +
             "START SourceFile\nTEXT \nSTART Dependency\nTEXT a.vhd\nEND Dependency\n"
             "END SourceFile\n" +
             b,
         "true, at TAIL", "VHDL: b.vhd\n"},
        {"a child before the name",
         start +
             "START SourceFile\nSTART Dependency\nTEXT a.vhd\n"
             "END Dependency\nTEXT a.vhd\nEND SourceFile\n" +
             b,
         "true, at TAIL", "VHDL: b.vhd\n"},
        {"a cut child before the name", start + b + "START SourceFile\nSTART Dependency\n",
         "true, at TAIL", "VHDL: b.vhd\n"},
        {"a dependency without a name",
         start + a +
             "START Dependency\nEND Dependency\nSTART Dependency\nTEXT b.vhd\n"
             "END Dependency\nEND SourceFile\n" +
             b,
         "true, at TAIL", "VHDL: a.vhd(b.vhd ) b.vhd\n"},
        {"a dependency with a child",
         start + a +
             "START Dependency\nSTART X\nEND X\nEND Dependency\nSTART Dependency\n"
             "TEXT b.vhd\nEND Dependency\nEND SourceFile\n" +
             b,
         "true, at TAIL", "VHDL: a.vhd(b.vhd ) b.vhd\n"},
        {"a dependency twice and on itself",
         start + a +
             "START Dependency\nTEXT b.vhd\nEND Dependency\nSTART Dependency\nTEXT B.VHD\n"
             "END Dependency\nSTART Dependency\nTEXT a.vhd\nEND Dependency\nEND SourceFile\n",
         "true, at TAIL", "VHDL: a.vhd(b.vhd a.vhd )\n"},
        {"an unknown child ends all levels",
         start + a + "START Other\nEND Other\nEND SourceFile\n" + b, "true, at START Other",
         "VHDL: a.vhd\n"},
        {"a blank text between groups", start + b + "END SourceFileGroup\nTEXT  \n" + start + a,
         "true, at TEXT  ", "VHDL: b.vhd\n"},
        {"a blank text between sources", start + b + "TEXT  \n" + a, "true, at TEXT  ",
         "VHDL: b.vhd\n"},
        {"a blank text between dependencies",
         start + a +
             "START Dependency\nTEXT b.vhd\nEND Dependency\nTEXT  \nSTART Dependency\n"
             "TEXT t.v\nEND Dependency\nEND SourceFile\n" +
             b,
         "true, at TEXT  ", "VHDL: a.vhd(b.vhd )\n"},
        {"names in another case", "START sourcefilegroup Language=VHDL\n" + b,
         "true, at START sourcefilegroup Language=VHDL", ""},
        {"no END of the group",
         start + b +
             "START SourceFileGroup Language=Verilog\n"
             "START SourceFile\nTEXT t.v\nEND SourceFile\n",
         "true, at TAIL", "Verilog: t.v\nVHDL: b.vhd\n"},
    };
    for (const auto& row : rows) {
        Build.Groups.Flush();
        for (const char* name : {"a.vhd", "b.vhd"})
            if (auto* old = Build.Groups.GetSourceFileOrDependency(Handle(Folder.Path(name))))
                old->FlushDependencies();
        EXPECT_EQ(Read(row.Elements), row.Result) << row.Label;
        EXPECT_EQ(GroupsOf(Build.Groups), row.Groups) << row.Label;
        EXPECT_EQ(Box.Take(), "") << row.Label;
    }
}

TEST(SourceFileGroupsRead, MakesNothingWithoutAnOwnerOrABuild) {
    const std::string elements =
        "START SourceFileGroup Language=VHDL\nSTART SourceFile\nTEXT a.vhd\n"
        "START Dependency\nTEXT b.vhd\nEND Dependency\nEND SourceFile\nEND SourceFileGroup\n";
    TXMLList xml;
    PushElements(&xml, elements);
    TSourceFileOwner ownerWithoutBuild(nullptr);
    for (TSourceFileOwner* owner : {&ownerWithoutBuild, static_cast<TSourceFileOwner*>(nullptr)}) {
        TSourceFileGroups groups(owner);
        DListIterator<TElement*> position(xml);
        EXPECT_TRUE(groups.ReadSourceFileGroups(position));
        EXPECT_EQ(GroupsOf(groups), "VHDL:\n");
    }
}

/// Groups of all stored languages with one source each.
class SourceFileGroupsWriter : public testing::Test {
protected:
    SourceFileGroupsWriter() {
        THdlSourceFile* a = Made.Make("/p/a.vhd");
        a->SetLibraryFlag(true);
        a->SetPrecompiledLibraryGroupName("<lib>");
        a->AddDependency(Made.Make("/p/lib/b&.vhd"));
        a->AddDependency(Made.Make("/q/c.vhd"));
        Groups.AddSourceFile(a, false);
        Groups.AddSourceFile(Made.Make("/p/sub/d.vhd"), false);
        Groups.AddSourceFile(Made.Make("/p/t.v"), false);
        Groups.AddSourceFile(Made.Make("/p/g.bsv"), false);
    }
    std::string Write(THdlLanguage topLanguage, const TProjectSimGeneralConfig* general,
                      const ISFileName* buildFile = Handle("/p/build.hbf")) {
        return ElementsWrittenBy([&](TXMLList* xml) {
            Groups.WriteSourceFileGroups(xml, buildFile, topLanguage, general);
        });
    }
    const std::string Verilog =
        "START SourceFileGroup Language=Verilog\n"
        "START SourceFile Library=false PrecompiledLibrary=\nTEXT t.v\nEND SourceFile\n"
        "END SourceFileGroup\n";
    const std::string Vhdl =
        "START SourceFileGroup Language=VHDL\n"
        "START SourceFile Library=true PrecompiledLibrary=<lib>\nTEXT a.vhd\n"
        "START Dependency\nTEXT lib/b&.vhd\nEND Dependency\n"
        "START Dependency\nTEXT ../q/c.vhd\nEND Dependency\nEND SourceFile\n"
        "START SourceFile Library=false PrecompiledLibrary=\nTEXT sub/d.vhd\nEND SourceFile\n"
        "END SourceFileGroup\n";
    const std::string Bluespec =
        "START SourceFileGroup Language=Bluespec\n"
        "START SourceFile Library=false PrecompiledLibrary=\nTEXT g.bsv\nEND SourceFile\n"
        "END SourceFileGroup\n";
    Sources Made;
    TSourceFileGroups Groups{nullptr};
};

TEST_F(SourceFileGroupsWriter, WritesTheTopLanguageAlone) {
    EXPECT_EQ(Write(LANGUAGE_VHDL, nullptr), Vhdl);
    EXPECT_EQ(Write(LANGUAGE_NONE, nullptr), "");
}

TEST_F(SourceFileGroupsWriter, AddsTheLanguagesWhoseFilesAreCompiled) {
    TProjectSimGeneralConfig general;
    EXPECT_EQ(Write(LANGUAGE_VHDL, &general), Vhdl + Bluespec);
    general.SetCompileVerilogFiles(true);
    EXPECT_EQ(Write(LANGUAGE_VHDL, &general), Verilog + Vhdl + Bluespec);
    EXPECT_EQ(Write(LANGUAGE_VERILOG, &general), Verilog + Bluespec);
}

TEST_F(SourceFileGroupsWriter, LeavesOutGroupsThatWereOnlyLookedUp) {
    Groups.LookUpGroup(LANGUAGE_SYSTEMC);
    EXPECT_EQ(Write(LANGUAGE_SYSTEMC, nullptr), "");
    Groups.GetOrCreateGroup(LANGUAGE_SYSTEMC);
    EXPECT_EQ(Write(LANGUAGE_SYSTEMC, nullptr),
              "START SourceFileGroup Language=SystemC\nEND SourceFileGroup\n");
}

TEST_F(SourceFileGroupsWriter, WritesFullPathsWithoutABuildFile) {
    const std::string path = std::filesystem::path("/p/t.v").make_preferred().string();
    EXPECT_EQ(Write(LANGUAGE_VERILOG, nullptr, nullptr),
              "START SourceFileGroup Language=Verilog\n"
              "START SourceFile Library=false PrecompiledLibrary=\nTEXT " +
                  path + "\nEND SourceFile\nEND SourceFileGroup\n");
    Groups.WriteSourceFileGroups(nullptr, nullptr, LANGUAGE_VERILOG, nullptr);
}

/// A source without a dependency list.
class SourceWithoutList : public THdlSourceFile {
public:
    using THdlSourceFile::THdlSourceFile;
    TIHdlSourceFileList* GetDependencyList() override { return nullptr; }
    const TIHdlSourceFileList* GetDependencyList() const override { return nullptr; }
};

TEST(SourceFileGroupsWrite, WritesNoDependenciesOfASourceWithoutAList) {
    SourceWithoutList source("/p/a.vhd");
    Sources made;
    source.AddDependency(made.Make("/p/b.vhd"));
    TSourceFileGroups groups(nullptr);
    groups.AddSourceFile(&source, false);
    EXPECT_EQ(groups.GetSourceFileOrDependency(Handle("/p/x.vhd")), nullptr);
    EXPECT_EQ(ElementsWrittenBy([&](TXMLList* xml) {
                  groups.WriteSourceFileGroups(xml, Handle("/p/build.hbf"), LANGUAGE_VHDL, nullptr);
              }),
              "START SourceFileGroup Language=VHDL\n"
              "START SourceFile Library=false PrecompiledLibrary=\nTEXT a.vhd\nEND SourceFile\n"
              "END SourceFileGroup\n");
}

TEST_F(SourceFileGroupsFiles, AreReadBackAsTheyWereWritten) {
    Read(
        "START SourceFileGroup Language=VHDL\n"
        "START SourceFile Library=true PrecompiledLibrary=lib\nTEXT a.vhd\n"
        "START Dependency\nTEXT sub/x.vhd\nEND Dependency\nEND SourceFile\n"
        "START SourceFile Library=false PrecompiledLibrary=\nTEXT b.vhd\nEND SourceFile\n"
        "END SourceFileGroup\n");
    const auto write = [this](TSourceFileGroups& groups) {
        return ElementsWrittenBy([&](TXMLList* xml) {
            groups.WriteSourceFileGroups(xml, Handle(Folder.Path("build.hbf")), LANGUAGE_VHDL,
                                         nullptr);
        });
    };
    const std::string written = write(Build.Groups);
    EXPECT_EQ(written,
              "START SourceFileGroup Language=VHDL\n"
              "START SourceFile Library=true PrecompiledLibrary=lib\nTEXT a.vhd\n"
              "START Dependency\nTEXT sub/x.vhd\nEND Dependency\nEND SourceFile\n"
              "START SourceFile Library=false PrecompiledLibrary=\nTEXT b.vhd\nEND SourceFile\n"
              "END SourceFileGroup\n");
    FakeBuild other(Folder.Path());
    TXMLList xml;
    PushElements(&xml, written);
    DListIterator<TElement*> position(xml);
    EXPECT_TRUE(other.Groups.ReadSourceFileGroups(position));
    EXPECT_EQ(write(other.Groups), written);
}

}  // namespace
