#include "services/xml/xmlsectionfile.h"

#include <gtest/gtest.h>

#include "services/xml/xmlstream.h"
#include "tests/support/elementtext.h"
#include "tests/support/memoryfolder.h"
#include "tests/support/recorders.h"

namespace {

/// Replaces the section by one with the attribute New.
class TSection : public TXMLSectionFile {
public:
    explicit TSection(TPlacement placement) : TXMLSectionFile("Section", "Root", placement) {}

protected:
    void FillSection() override {
        PushStart(this, "Section", {{"New", "1"}});
        PushEnd(this, "Section");
    }
};

/// What the file holds after its section was read and replaced, with what was found in it.
std::string Replaced(const std::string& document, TXMLSectionFile::TPlacement placement) {
    const MemoryFolder folder;
    const std::string path = folder.Write("a.xml", document);
    TSection file(placement);
    if (!file.ReadFile(path.c_str())) return "not read";
    const std::string found = std::to_string(file.GetSectionCount()) +
                              (file.HasParent() ? " parent " : " no parent ") +
                              ElementAt(file.GetSection());
    const bool isReplaced = file.ReplaceSection(path.c_str());
    return found + (isReplaced ? "\n" : " not replaced\n") + folder.Read("a.xml");
}

struct TRow {
    const char* Label;
    const char* Document;
    const char* Expected;
};

}  // namespace

TEST(XMLList, KeepsRootAndDocumentTypeWhenItHoldsTheRoot) {
    const TRow rows[] = {
        {"type", "<!DOCTYPE Root SYSTEM \"root.dtd\">\n<Root A=\"1\">\n  <a/>\n</Root>\n", nullptr},
        {"no type", "<Root>\n  <a/>\n</Root>\n", nullptr},
        {"type of another root", "<!DOCTYPE Other>\n<Root/>\n", nullptr},
        {"internal subset",
         "<!DOCTYPE Root PUBLIC \"-//p\" 'root.dtd' [ <!-- > --> <!ELEMENT Root ANY>\n"
         "<!ATTLIST Root B CDATA \"2\"> ]>\n<Root/>\n",
         nullptr},
        {"declaration and comments in front",
         "<?xml version=\"1.0\"?><!-- c --><!DOCTYPE Root ><!-- d --><Root/>",
         "<!DOCTYPE Root >\n<Root/>\n"},
    };
    for (const TRow& row : rows) {
        TXMLList list;
        list.SetDocumentType("<!DOCTYPE Root SYSTEM \"former.dtd\">");
        list.SetHoldsRoot(true);
        ASSERT_TRUE(list.ReadFromText(row.Document, nullptr)) << row.Label;
        std::string document;
        EXPECT_TRUE(list.WriteToText(&document, nullptr)) << row.Label;
        EXPECT_EQ(document, row.Expected ? row.Expected : row.Document) << row.Label;
    }
}

TEST(XMLList, KeepsTheDocumentTypeOfAnEncodedDocument) {
    std::string bytes = "\xFF\xFE";
    for (const char c : std::string("<!DOCTYPE Root SYSTEM \"root.dtd\"><Root/>"))
        bytes += {c, '\0'};
    TXMLList list;
    list.SetHoldsRoot(true);
    ASSERT_TRUE(list.ReadFromText(bytes, nullptr));
    EXPECT_EQ(list.GetDocumentType(), "<!DOCTYPE Root SYSTEM \"root.dtd\">");
    EXPECT_EQ(ElementsOf(list), "START Root\nEND Root\n");
}

TEST(XMLSectionFile, ReplacesAChildOfTheRoot) {
    const TRow rows[] = {
        {"in place", "<Root>\n  <a>1</a>\n  <Section><b/></Section>\n  <c/>\n</Root>\n",
         "1 parent START Section\n"
         "<Root>\n  <a>1</a>\n  <Section New=\"1\"/>\n  <c/>\n</Root>\n"},
        {"added at the end", "<Root A=\"1\">\n  <a/>\n</Root>\n",
         "0 parent TAIL\n<Root A=\"1\">\n  <a/>\n  <Section New=\"1\"/>\n</Root>\n"},
        {"added to an empty root", "<Root/>\n",
         "0 parent TAIL\n<Root>\n  <Section New=\"1\"/>\n</Root>\n"},
        {"another's of the same name is no section",
         "<Root>\n  <a>\n    <Section/>\n  </a>\n</Root>\n",
         "0 parent TAIL\n"
         "<Root>\n  <a>\n    <Section/>\n  </a>\n  <Section New=\"1\"/>\n</Root>\n"},
        {"one inside the section goes with it",
         "<Root>\n  <Section>\n    <Section/>\n  </Section>\n</Root>\n",
         "1 parent START Section\n<Root>\n  <Section New=\"1\"/>\n</Root>\n"},
        {"a root inside the root", "<Root>\n  <Root>\n    <a/>\n  </Root>\n</Root>\n",
         "0 parent TAIL\n"
         "<Root>\n  <Root>\n    <a/>\n  </Root>\n  <Section New=\"1\"/>\n</Root>\n"},
        {"the first of two", "<Root>\n  <Section/>\n  <Section A=\"2\"/>\n</Root>\n",
         "2 parent START Section\n<Root>\n  <Section New=\"1\"/>\n  <Section A=\"2\"/>\n</Root>\n"},
        {"another root", "<Other>\n  <Root>\n    <Section/>\n  </Root>\n</Other>\n",
         "0 no parent TAIL not replaced\n"
         "<Other>\n  <Root>\n    <Section/>\n  </Root>\n</Other>\n"},
    };
    for (const TRow& row : rows)
        EXPECT_EQ(Replaced(row.Document, TXMLSectionFile::CHILD_OF_ROOT), row.Expected)
            << row.Label;
}

TEST(XMLSectionFile, ReplacesASectionAnywhere) {
    const TRow rows[] = {
        {"outside the parent", "<Top>\n  <Section/>\n  <Root/>\n</Top>\n",
         "1 parent START Section\n<Top>\n  <Section New=\"1\"/>\n  <Root/>\n</Top>\n"},
        {"deep inside", "<Top>\n  <a>\n    <Section/>\n  </a>\n</Top>\n",
         "1 no parent START Section\n<Top>\n  <a>\n    <Section New=\"1\"/>\n  </a>\n</Top>\n"},
        {"added to the first parent", "<Top>\n  <Root>\n    <a/>\n  </Root>\n  <Root/>\n</Top>\n",
         "0 parent TAIL\n"
         "<Top>\n  <Root>\n    <a/>\n    <Section New=\"1\"/>\n  </Root>\n  <Root/>\n</Top>\n"},
        {"neither", "<Top/>\n", "0 no parent TAIL not replaced\n<Top/>\n"},
    };
    for (const TRow& row : rows)
        EXPECT_EQ(Replaced(row.Document, TXMLSectionFile::ANYWHERE), row.Expected) << row.Label;
}

// The root that the readers of one component drop counts for no file that several share, either.
TEST(XMLSectionFile, HoldsAsManyLevelsBelowTheRootAsAListThatDropsIt) {
    const auto nested = [](std::size_t levels) {
        std::string starts, ends;
        for (std::size_t i = 0; i < levels; ++i) {
            starts += "<n>";
            ends += "</n>";
        }
        return "<Root>" + starts + ends + "</Root>";
    };
    TXMLList list;
    list.SetHoldsRoot(true);
    TXMLReadError error;
    EXPECT_FALSE(list.ReadFromText(nested(513), &error));
    EXPECT_EQ(error.Reason, "elements are nested deeper than 512");
    ASSERT_TRUE(list.ReadFromText(nested(512), &error));
    const std::string elements = ElementsOf(list);
    std::string document;
    ASSERT_TRUE(list.WriteToText(&document, &error.Reason)) << error.Reason;
    ASSERT_TRUE(list.ReadFromText(document, &error)) << error.Reason;
    EXPECT_EQ(ElementsOf(list), elements);
    TXMLList deep;
    deep.SetHoldsRoot(true);
    for (int i = 0; i < 514; ++i) PushStart(&deep, "n");
    EXPECT_FALSE(deep.WriteToText(&document, &error.Reason));
    EXPECT_EQ(error.Reason, "elements are nested deeper than 512");
}

TEST(XMLSectionFile, ReplacesNothingAfterAReadThatFailed) {
    RecordingMessageBox box;
    RecordingLog log;
    const TRow rows[] = {
        {"malformed", "<Root><a></Root>", nullptr},
        {"empty", "", nullptr},
        {"a document type without elements", "<!DOCTYPE Root SYSTEM \"root.dtd\">\n", nullptr},
    };
    for (const TRow& row : rows) {
        const MemoryFolder folder;
        const std::string path = folder.Write("a.xml", row.Document);
        TSection file(TXMLSectionFile::ANYWHERE);
        file.ReadFile(path.c_str());
        EXPECT_FALSE(file.ReplaceSection(path.c_str())) << row.Label;
        EXPECT_EQ(folder.Read("a.xml"), row.Document) << row.Label;
        EXPECT_EQ(folder.List(), "a.xml\n") << row.Label;
    }
}

TEST(XMLSectionFile, HoldsNothingAfterAReadThatFailed) {
    RecordingMessageBox box;
    RecordingLog log;
    const MemoryFolder folder;
    const std::string good = folder.Write("a.xml", "<Root><Section><b/></Section></Root>");
    folder.Write("malformed.xml", "<Root><a></Root>");
    for (const char* name : {"malformed.xml", "missing.xml"}) {
        TSection file(TXMLSectionFile::CHILD_OF_ROOT);
        ASSERT_TRUE(file.ReadFile(good.c_str()));
        ASSERT_EQ(file.GetSectionCount(), 1u);
        EXPECT_FALSE(file.ReadFile(folder.Path(name).c_str())) << name;
        EXPECT_EQ(file.GetSectionCount(), 0u) << name;
        EXPECT_FALSE(file.HasParent()) << name;
        EXPECT_EQ(ElementAt(file.GetSection()), "TAIL") << name;
        EXPECT_EQ(file.GetSectionText(), "") << name;
    }
}

TEST(XMLSectionFile, HoldsNothingOfAnEmptiedList) {
    const MemoryFolder folder;
    const std::string path = folder.Write("a.xml", "<Root><Section/></Root>");
    TSection file(TXMLSectionFile::CHILD_OF_ROOT);
    ASSERT_TRUE(file.ReadFile(path.c_str()));
    file.Flush(1);
    EXPECT_EQ(file.GetSectionCount(), 0u);
    EXPECT_FALSE(file.HasParent());
    EXPECT_EQ(file.GetSectionText(), "");
}

TEST(XMLSectionFile, MakesAMissingFile) {
    const MemoryFolder folder;
    TSection file(TXMLSectionFile::CHILD_OF_ROOT);
    EXPECT_FALSE(file.ReadFile(folder.Path("new.xml").c_str()));
    EXPECT_TRUE(file.ReplaceSection(folder.Path("new.xml").c_str()));
    EXPECT_EQ(folder.Read("new.xml"), "<Root>\n  <Section New=\"1\"/>\n</Root>\n");
}

TEST(XMLSectionFile, MakesANewDocumentAndFindsItsSectionAgain) {
    const MemoryFolder folder;
    const std::string path = folder.Path("new.xml");
    TSection file(TXMLSectionFile::CHILD_OF_ROOT);
    EXPECT_TRUE(file.ReplaceSection(path.c_str()));
    EXPECT_EQ(folder.Read("new.xml"), "<Root>\n  <Section New=\"1\"/>\n</Root>\n");
    EXPECT_EQ(ElementAt(file.GetSection()), "START Section New=1");
    EXPECT_TRUE(file.ReplaceSection(path.c_str()));
    EXPECT_EQ(folder.Read("new.xml"), "<Root>\n  <Section New=\"1\"/>\n</Root>\n");
}

TEST(XMLSectionFile, TellsWhenTheFileCannotBeWritten) {
    RecordingMessageBox box;
    const MemoryFolder folder;
    folder.Write("a.xml", "<Root/>\n");
    TSection file(TXMLSectionFile::CHILD_OF_ROOT);
    ASSERT_TRUE(file.ReadFile(folder.Path("a.xml").c_str()));
    EXPECT_FALSE(file.ReplaceSection(folder.Path("no such folder/a.xml").c_str()));
    EXPECT_NE(box.Take(), "");
    EXPECT_EQ(folder.Read("a.xml"), "<Root/>\n");
    EXPECT_EQ(ElementsOf(file), "START Root\nSTART Section New=1\nEND Section\nEND Root\n");
}
