#include "projectfiles/ihdlsourcefilelist.h"
#include "projectfiles/hdlprojectusersourcefile.h"
#include "tests/projectfiles/sourcefakes.h"
#include "tests/services/names/hostform.h"
#include "tests/support/elementtext.h"
#include "tests/support/recorders.h"
#include "tests/support/temporaryfolder.h"
#include <gtest/gtest.h>

namespace {

/// A list of a.vhd, b.vhd and c.vhd.
class IHdlSourceFileList : public testing::Test {
protected:
    IHdlSourceFileList() {
        List.AddSourceFile(A, false);
        List.AddSourceFile(B, false);
        List.AddSourceFile(C, false);
    }
    Sources Made;
    THdlSourceFile* A = Made.Make("/p/a.vhd");
    THdlSourceFile* B = Made.Make("/p/b.vhd");
    THdlSourceFile* C = Made.Make("/p/c.vhd");
    TIHdlSourceFileList List;
};

TEST(IHdlSourceFileListMade, IsEmptyAndOfNoLanguage) {
    TIHdlSourceFileList list;
    EXPECT_EQ(NamesOf(list), "");
    EXPECT_TRUE(list.empty());
    EXPECT_EQ(list.GetLanguage(), LANGUAGE_NONE);
    list.SetLanguage(LANGUAGE_VHDL);
    EXPECT_EQ(list.GetLanguage(), LANGUAGE_VHDL);
}

TEST_F(IHdlSourceFileList, AddsAtTailOrHead) {
    EXPECT_TRUE(List.AddSourceFile(Made.Make("/p/tail.vhd"), false));
    EXPECT_TRUE(List.AddSourceFile(Made.Make("/p/head.vhd"), true));
    EXPECT_EQ(NamesOf(List), "head.vhd a.vhd b.vhd c.vhd tail.vhd ");
    EXPECT_EQ(List.size(), 5u);
}

TEST_F(IHdlSourceFileList, RefusesNullAndANameListedInAnyLetterCase) {
    EXPECT_FALSE(List.AddSourceFile(nullptr, false));
    EXPECT_FALSE(List.AddSourceFile(A, false));
    EXPECT_FALSE(List.AddSourceFile(Made.Make("/p/A.VHD"), false));
    EXPECT_FALSE(List.AddSourceFile(Made.Make("/p/x/../a.vhd"), true));
    EXPECT_EQ(NamesOf(List), "a.vhd b.vhd c.vhd ");
}

TEST_F(IHdlSourceFileList, TellsOfAFileRefusedForItsLetterCase) {
    const TemporaryFolder folder;
    THdlSourceFile* listed = Made.Make(folder.Write("D.vhd", ""));
    THdlSourceFile* refused = Made.Make(folder.Write("d.vhd", ""));
    RecordingLog log(1);
    EXPECT_TRUE(List.AddSourceFile(listed, false));
    EXPECT_FALSE(List.AddSourceFile(listed, false));
    EXPECT_EQ(log.Take(), "");
    EXPECT_FALSE(List.AddSourceFile(refused, false));
    EXPECT_EQ(log.Take(), kOnWindows ? ""
                                     : "[Default] File \"" + folder.Path("d.vhd") +
                                           "\" is taken for \"" + folder.Path("D.vhd") + "\"\n");
    EXPECT_EQ(NamesOf(List), "a.vhd b.vhd c.vhd D.vhd ");
}

TEST_F(IHdlSourceFileList, FindsByCanonicalNameIgnoringCase) {
    EXPECT_EQ(List.GetSourceFile(Handle("/p/B.VHD")), B);
    EXPECT_EQ(std::as_const(List).GetSourceFile(Handle("/p/./c.vhd")), C);
    EXPECT_EQ(List.GetSourceFile(Handle("/q/b.vhd")), nullptr);
    EXPECT_EQ(List.GetSourceFile(nullptr), nullptr);
    EXPECT_EQ(std::as_const(List).GetSourceFile(nullptr), nullptr);
}

TEST_F(IHdlSourceFileList, AcceptsNamelessSourcesAndNeverFindsThem) {
    THdlSourceFile* nameless = Made.MakeNameless();
    EXPECT_TRUE(List.AddSourceFile(nameless, false));
    EXPECT_TRUE(List.AddSourceFile(nameless, false));
    EXPECT_EQ(NamesOf(List), "a.vhd b.vhd c.vhd <nameless> <nameless> ");
    EXPECT_EQ(List.GetSourceFile(Handle("")), nullptr);
    EXPECT_FALSE(List.RemoveSourceFile(nameless));
    EXPECT_EQ(List.size(), 5u);
}

TEST_F(IHdlSourceFileList, FindsDependenciesOneLevelDeepInTheOrderOfTheEntries) {
    THdlSourceFile* shared1 = Made.Make("/p/shared.vhd");
    THdlSourceFile* shared2 = Made.Make("/p/shared.vhd");
    THdlSourceFile* deep = Made.Make("/p/deep.vhd");
    THdlSourceFile* otherA = Made.Make("/p/a.vhd");
    B->AddDependency(shared1);
    C->AddDependency(shared2);
    C->AddDependency(otherA);
    shared1->AddDependency(deep);
    EXPECT_EQ(List.GetSourceFileOrDependency(Handle("/p/SHARED.vhd")), shared1);
    EXPECT_EQ(std::as_const(List).GetSourceFileOrDependency(Handle("/p/shared.vhd")), shared1);
    EXPECT_EQ(List.GetSourceFileOrDependency(Handle("/p/a.vhd")), A) << "entries come first";
    EXPECT_EQ(List.GetSourceFileOrDependency(Handle("/p/deep.vhd")), nullptr);
    EXPECT_EQ(List.GetSourceFileOrDependency(nullptr), nullptr);
}

TEST_F(IHdlSourceFileList, RemovesTheVerySource) {
    EXPECT_TRUE(List.RemoveSourceFile(B));
    EXPECT_EQ(NamesOf(List), "a.vhd c.vhd ");
    EXPECT_EQ(List.GetSourceFile(Handle("/p/b.vhd")), nullptr);
    EXPECT_FALSE(List.RemoveSourceFile(B));
    EXPECT_TRUE(List.AddSourceFile(B, false));
    EXPECT_EQ(NamesOf(List), "a.vhd c.vhd b.vhd ");
}

TEST_F(IHdlSourceFileList, RemovingAnotherSourceOfAListedNameGivesTrueAndRemovesNothing) {
    EXPECT_TRUE(List.RemoveSourceFile(Made.Make("/p/B.vhd")));
    EXPECT_EQ(NamesOf(List), "a.vhd b.vhd c.vhd ");
    EXPECT_FALSE(List.RemoveSourceFile(Made.Make("/p/d.vhd")));
    EXPECT_FALSE(List.RemoveSourceFile(static_cast<IHdlSourceFile*>(nullptr)));
}

TEST_F(IHdlSourceFileList, RemovesAProjectSourceAsASourceNotAsAName) {
    THdlProjectUserSourceFile user(Handle("/p/user.vhd"), nullptr, false);
    THdlProjectSourceFile otherB(Handle("/p/B.vhd"), nullptr, false);
    List.AddSourceFile(&user, false);
    EXPECT_TRUE(List.RemoveSourceFile(&user));
    EXPECT_FALSE(List.RemoveSourceFile(&user));
    EXPECT_TRUE(List.RemoveSourceFile(&otherB));
    EXPECT_FALSE(List.RemoveSourceFile(static_cast<THdlProjectSourceFile*>(nullptr)));
    EXPECT_EQ(NamesOf(List), "a.vhd b.vhd c.vhd ");
}

TEST_F(IHdlSourceFileList, RemovesByName) {
    EXPECT_TRUE(List.RemoveSourceFile(Handle("/p/A.vhd")));
    EXPECT_FALSE(List.RemoveSourceFile(Handle("/p/a.vhd")));
    EXPECT_FALSE(List.RemoveSourceFile(static_cast<const ISFileName*>(nullptr)));
    EXPECT_EQ(NamesOf(List), "b.vhd c.vhd ");
}

TEST_F(IHdlSourceFileList, FlushDropsTheEntriesAndLeavesTheSources) {
    List.Flush();
    EXPECT_EQ(NamesOf(List), "");
    EXPECT_EQ(List.GetSourceFile(Handle("/p/a.vhd")), nullptr);
    EXPECT_EQ(NameOf(A), "a.vhd");
    EXPECT_TRUE(List.AddSourceFile(C, false));
    EXPECT_EQ(List.GetSourceFile(Handle("/p/c.vhd")), C);
}

TEST_F(IHdlSourceFileList, CopiesShareTheSourcesAndTakeTheLanguage) {
    List.SetLanguage(LANGUAGE_VHDL);
    TIHdlSourceFileList copy(List);
    EXPECT_EQ(NamesOf(copy), "a.vhd b.vhd c.vhd ");
    EXPECT_EQ(copy.GetSourceFile(Handle("/p/b.vhd")), B);
    EXPECT_EQ(copy.GetLanguage(), LANGUAGE_VHDL);
    copy.RemoveSourceFile(B);
    EXPECT_EQ(NamesOf(List), "a.vhd b.vhd c.vhd ");

    TIHdlSourceFileList target;
    target.AddSourceFile(Made.Make("/p/old.vhd"), false);
    target = List;
    EXPECT_EQ(NamesOf(target), "a.vhd b.vhd c.vhd ");
    EXPECT_EQ(target.GetSourceFile(Handle("/p/old.vhd")), nullptr);
    const TIHdlSourceFileList& self = target;
    target = self;
    EXPECT_EQ(NamesOf(target), "a.vhd b.vhd c.vhd ");
}

TEST_F(IHdlSourceFileList, FollowsSourcesThatAreAssignedAnotherName) {
    *B = *Made.Make("/p/new.vhd");
    EXPECT_EQ(List.GetSourceFile(Handle("/p/b.vhd")), nullptr);
    EXPECT_EQ(List.GetSourceFile(Handle("/p/new.vhd")), B);
    EXPECT_TRUE(List.RemoveSourceFile(B));
    EXPECT_EQ(NamesOf(List), "a.vhd c.vhd ");
}

TEST_F(IHdlSourceFileList, GivesTheFirstOfSourcesThatCameToShareAName) {
    *C = *A;
    EXPECT_EQ(NamesOf(List), "a.vhd b.vhd a.vhd ");
    EXPECT_EQ(List.GetSourceFile(Handle("/p/a.vhd")), A);
    EXPECT_TRUE(List.RemoveSourceFile(C));
    EXPECT_EQ(NamesOf(List), "a.vhd b.vhd ");
    EXPECT_EQ(List.GetSourceFile(Handle("/p/a.vhd")), A);
}

TEST_F(IHdlSourceFileList, GivesTheNextOfSourcesThatShareANameAfterTheFirstIsGone) {
    *C = *A;
    EXPECT_TRUE(List.RemoveSourceFile(Handle("/p/a.vhd")));
    EXPECT_EQ(List.GetSourceFile(Handle("/p/a.vhd")), C);
    EXPECT_EQ(NamesOf(List), "b.vhd a.vhd ");
}

TEST_F(IHdlSourceFileList, RemovesEveryOccurrenceOfASource) {
    THdlSourceFile* source = Made.MakeNameless();
    List.AddSourceFile(source, true);
    List.AddSourceFile(source, false);
    *source = *Made.Make("/p/named.vhd");
    EXPECT_EQ(NamesOf(List), "named.vhd a.vhd b.vhd c.vhd named.vhd ");
    EXPECT_TRUE(List.RemoveSourceFile(source));
    EXPECT_EQ(NamesOf(List), "a.vhd b.vhd c.vhd ");
}

TEST(IHdlSourceFileListEntries, AreNotTouchedBySearchingAndDestroying) {
    Sources made;
    auto list = std::make_unique<TIHdlSourceFileList>();
    auto gone = std::make_unique<THdlSourceFile>("/p/gone.vhd");
    list->AddSourceFile(gone.get(), false);
    THdlSourceFile* kept = made.Make("/p/kept.vhd");
    list->AddSourceFile(kept, false);
    gone.reset();
    EXPECT_EQ(list->GetSourceFile(Handle("/p/kept.vhd")), kept);
    EXPECT_TRUE(list->RemoveSourceFile(Handle("/p/gone.vhd")));
    EXPECT_EQ(NamesOf(*list), "kept.vhd ");
    list.reset();
}

TEST(IHdlSourceFileListOfManyEntries, ManySourcesAreAddedFoundAndRemoved) {
    Sources made;
    TIHdlSourceFileList list;
    constexpr int kCount = 20000;
    for (int i = 0; i < kCount; ++i)
        ASSERT_TRUE(list.AddSourceFile(made.Make("/p/f" + std::to_string(i) + ".vhd"), false));
    EXPECT_EQ(list.size(), static_cast<std::size_t>(kCount));
    for (int i = kCount; i-- > 0;)
        ASSERT_TRUE(list.RemoveSourceFile(Handle("/P/F" + std::to_string(i) + ".vhd")));
    EXPECT_TRUE(list.empty());
}

TEST_F(IHdlSourceFileList, WritesOneElementPerSourceRelativeToTheDirectory) {
    List.AddSourceFile(Made.Make("/q/<&>.vhd"), false);
    const ISFileName* build = Handle("/p/build.hbf");
    const std::string expected =
        "START Src\nTEXT a.vhd\nEND Src\n"
        "START Src\nTEXT b.vhd\nEND Src\n"
        "START Src\nTEXT c.vhd\nEND Src\n"
        "START Src\nTEXT ../q/<&>.vhd\nEND Src\n";
    EXPECT_EQ(ElementsWrittenBy([&](TXMLList* xml) { List.WriteToFile(xml, "Src", build); }),
              expected);
}

TEST(IHdlSourceFileListWriter, WritesFileElementsForAnEmptyElementName) {
    Sources made;
    TIHdlSourceFileList list;
    list.AddSourceFile(made.Make("/p/a.vhd"), false);
    const ISFileName* build = Handle("/p/build.hbf");
    for (const char* name : {"", static_cast<const char*>(nullptr)})
        EXPECT_EQ(ElementsWrittenBy([&](TXMLList* xml) { list.WriteToFile(xml, name, build); }),
                  "START File\nTEXT a.vhd\nEND File\n");
}

TEST(IHdlSourceFileListWriter, WritesTheFullPathWithoutABaseAndNothingWithoutSourcesOrDocument) {
    Sources made;
    TIHdlSourceFileList list;
    EXPECT_EQ(ElementsWrittenBy([&](TXMLList* xml) { list.WriteToFile(xml, "", nullptr); }), "");
    const std::string path = std::filesystem::path("/p/a.vhd").make_preferred().string();
    list.AddSourceFile(made.Make("/p/a.vhd"), false);
    list.AddSourceFile(made.MakeNameless(), false);
    EXPECT_EQ(ElementsWrittenBy([&](TXMLList* xml) { list.WriteToFile(xml, "", nullptr); }),
              "START File\nTEXT " + path + "\nEND File\nSTART File\nTEXT \nEND File\n");
    list.WriteToFile(nullptr, "", nullptr);
}

/// Reads `elements` into a list: the result, the names and where the read stopped.
std::string ReadInto(TIHdlSourceFileList* list, const std::string& elements,
                     const char* elementName) {
    TXMLList xml;
    PushElements(&xml, elements);
    DListIterator<TElement*> position(xml);
    const bool done = list->ReadFromFile(position, elementName);
    return std::string(done ? "true" : "false") + " | " + NamesOf(*list) + "| " +
           ElementAt(position);
}

TEST(IHdlSourceFileListReader, ReadsWhatItHoldsAndWhereItStops) {
    TemporaryFolder folder;
    const std::string a = folder.Write("a.vhd", "");
    const std::string b = folder.Write("b.vhd", "");
    const std::string none = folder.Path("none.vhd");
    const auto file = [](const std::string& path) {
        return "START File\nTEXT " + path + "\nEND File\n";
    };
    const struct {
        const char* Label;
        std::string Elements;
        const char* ElementName;
        const char* Expected;
    } rows[] = {
        {"no elements", "", "", "true | | TAIL"},
        {"two files", file(a) + file(b), "", "true | a.vhd b.vhd | TAIL"},
        {"null name", file(a), nullptr, "true | a.vhd | TAIL"},
        {"given name", "START X\nTEXT " + a + "\nEND X\n", "X", "true | a.vhd | TAIL"},
        {"blanks around the name", file("  " + a + "\t"), "", "true | a.vhd | TAIL"},
        {"a name twice", file(a) + file(a) + file(b), "", "true | a.vhd b.vhd | TAIL"},
        {"another element", file(a) + "START Other\n" + file(b), "", "true | a.vhd | START Other"},
        {"element name in other case", "START file\nTEXT " + a + "\nEND file\n", "",
         "true | | START file"},
        {"not at a START", "END File\n", "", "true | | END File"},
        {"the END behind the run is left", file(a) + "END List\nEND Outer\n", "",
         "true | a.vhd | END List"},
        {"cut after START", "START File\n", "", "false | | TAIL"},
        {"cut after the text", "START File\nTEXT " + a + "\n", "", "true | a.vhd | TAIL"},
        {"a missing file ends the read", file(a) + file(none) + file(b), "",
         "false | a.vhd none.vhd | TEXT "},
        {"an empty name is a missing file", "START File\nEND File\n" + file(a), "",
         "false |  | END File"},
    };
    for (const auto& row : rows) {
        TIHdlSourceFileList list;
        std::string result = ReadInto(&list, row.Elements, row.ElementName);
        const auto path = result.find(none);
        if (path != std::string::npos) result.erase(path);
        EXPECT_EQ(result, row.Expected) << row.Label;
    }
}

TEST(IHdlSourceFileListReader, ReadsBackWhatWasWritten) {
    TemporaryFolder folder;
    Sources made;
    TIHdlSourceFileList written;
    written.AddSourceFile(made.Make(folder.Write("a b.vhd", "")), false);
    written.AddSourceFile(made.Make(folder.Write("sub/c.vhd", "")), false);
    TXMLList xml;
    written.WriteToFile(&xml, "Src", nullptr);
    TIHdlSourceFileList read;
    DListIterator<TElement*> position(xml);
    EXPECT_TRUE(read.ReadFromFile(position, "Src"));
    EXPECT_EQ(NamesOf(read), "a b.vhd c.vhd ");
}

TEST(IHdlSourceFileListReader, MakesSourcesThatOutliveTheListAndThatACallerMayDelete) {
    TemporaryFolder folder;
    const std::string a = folder.Write("a.vhd", "");
    auto list = std::make_unique<TIHdlSourceFileList>();
    ReadInto(list.get(), "START File\nTEXT " + a + "\nEND File\n", "");
    IHdlSourceFile* source = list->GetSourceFile(Handle(a));
    list.reset();
    EXPECT_EQ(NameOf(source), "a.vhd");
    EXPECT_EQ(source->GetLanguage(), LANGUAGE_VHDL);
    delete source;
}

}  // namespace
