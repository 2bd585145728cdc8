#include "projectfiles/ihdlsourcefilelist.h"
#include "tests/projectfiles/sourcefakes.h"
#include "tests/services/names/hostform.h"
#include "tests/support/elementtext.h"
#include "tests/support/memoryfolder.h"
#include <gtest/gtest.h>

namespace {

TEST(IHdlSourceFileListWriter, WritesOneElementPerSourceRelativeToTheDirectory) {
    Sources made;
    TIHdlSourceFileList list;
    for (const char* name : {"/p/a.vhd", "/p/b.vhd", "/p/c.vhd", "/q/<&>.vhd"})
        list.AddSourceFile(made.Make(name), false);
    const ISFileName* build = Handle("/p/build.hbf");
    const std::string expected =
        "START Src\nTEXT a.vhd\nEND Src\n"
        "START Src\nTEXT b.vhd\nEND Src\n"
        "START Src\nTEXT c.vhd\nEND Src\n"
        "START Src\nTEXT ../q/<&>.vhd\nEND Src\n";
    EXPECT_EQ(ElementsWrittenBy([&](TXMLList* xml) { list.WriteToFile(xml, "Src", build); }),
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
    MemoryFolder folder;
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
    MemoryFolder folder;
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
    MemoryFolder folder;
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
