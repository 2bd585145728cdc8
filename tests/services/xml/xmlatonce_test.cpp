#include <gtest/gtest.h>

#include "services/names/isfilename.h"
#include "services/xml/xmlstream.h"
#include "tests/services/xml/documents.h"
#include "tests/support/memoryfolder.h"
#include "tests/support/recorders.h"

namespace {

const std::string kNoName = "xmllist(101): Check failed: \"IsXMLName(name)\"\n";
const std::string kUnclosed =
    "xmllist(102): Check failed: \"openElements.empty() && \\\"A START has no END.\\\"\"\n";
const std::string kStray =
    "xmllist(103): Check failed: \"IsOpen(name) && \\\"An END has no START.\\\"\"\n";
const std::string kForeign = "xmllist(104): Check failed: \"IsUtf8(text)\"\n";

// A list that prints what `fill` pushes, without elements.
class TListPrintedAtOnce : public TXMLList {
public:
    TListPrintedAtOnce(void (*fill)(TXMLList*), const char* documentType) : Fill(fill) {
        SetDocumentType(documentType);
        SetPrintedAtOnce(true);
    }
    void SaveElement(TElement*, std::ostream&, int) override { ++SavedElements; }

    int SavedElements = 0;

protected:
    void FillElements() override {
        Fill(this);
        gBinaryLogMessageLoggingMutex.Acquire();
        TBinaryLogFile::GetInstance()->Write("filled", "test", 1);
        gBinaryLogMessageLoggingMutex.Release();
    }

private:
    void (*Fill)(TXMLList*);
};

void PushPair(TXMLList* list, const char* name, TAttributeTexts attributes = {}) {
    PushStart(list, name, attributes);
    PushEnd(list, name);
}

void PushNested(TXMLList* list, int levels, const char* text) {
    for (int i = 0; i < levels; ++i) PushStart(list, "a");
    if (text) PushTextElement(list, "b", text);
    for (int i = 0; i < levels; ++i) PushEnd(list, "a");
}

// What stands in the file after a save over "old": the document, or the message of the failure and
// the file.
std::string Saved(TListPrintedAtOnce* list) {
    const MemoryFolder folder;
    RecordingMessageBox box;
    const std::string path = folder.Write("a.xml", "old");
    const bool isSaved = list->WriteFile(path.c_str());
    EXPECT_EQ(folder.List(), "a.xml\n");
    if (isSaved) return box.Take() + folder.Read("a.xml");
    std::string message = box.Take();
    const std::string begin = "Cannot save file: \"" + path + "\": ";
    EXPECT_EQ(message.substr(0, begin.size()), begin);
    return message.substr(begin.size()) + folder.Read("a.xml");
}

struct Row {
    const char* Label;
    const char* DocumentType;
    void (*Fill)(TXMLList*);
    std::string Saved;
    std::string Logged;
};

void ExpectRows(const std::vector<Row>& rows) {
    for (const Row& row : rows) {
        RecordingLog log;
        TListPrintedAtOnce list(row.Fill, row.DocumentType);
        EXPECT_EQ(Saved(&list), row.Saved) << row.Label;
        EXPECT_EQ(log.Take(), "test(1): filled\n" + row.Logged) << row.Label;
        EXPECT_TRUE(list.IsEmpty()) << row.Label;
        EXPECT_EQ(list.SavedElements, 0) << row.Label;
    }
}

}  // namespace

TEST(XMLPrintedAtOnce, PrintsEveryKindOfElement) {
    ExpectRows({
        {"a whole document", kListType,
         [](TXMLList* list) {
             PushStart(list, "Build", {{"Version", "2"}, {"Name", ""}});
             PushStart(list, "Source", {{"Text", "a&b<c>d\"e'f\t\n\r"}});
             PushText(list, "src/a & b.vhd");
             PushTextElement(list, "Dependency", "src/p.vhd");
             PushTextElement(list, "Dependency", "src/<q>.vhd");
             PushTextElement(list, "Dependency", "r.vhd", {{"Kind", "x"}});
             PushEnd(list, "Source");
             PushPair(list, "Group");
             PushEnd(list, "Build");
             PushTextElement(list, "Empty", "");
         },
         "<!DOCTYPE List SYSTEM \"list.dtd\">\n"
         "<List>\n"
         "  <Build Version=\"2\" Name=\"\">\n"
         "    <Source Text=\"a&amp;b&lt;c&gt;d&quot;e'f&#9;&#10;&#13;\">src/a &amp; b.vhd"
         "<Dependency>src/p.vhd</Dependency>\n"
         "      <Dependency>src/&lt;q&gt;.vhd</Dependency>\n"
         "      <Dependency Kind=\"x\">r.vhd</Dependency>\n"
         "    </Source>\n"
         "    <Group/>\n"
         "  </Build>\n"
         "  <Empty><![CDATA[]]></Empty>\n"
         "</List>\n",
         ""},
        {"nothing", kListType, [](TXMLList*) {}, "<!DOCTYPE List SYSTEM \"list.dtd\">\n<List/>\n",
         ""},
        {"blank texts", "",
         [](TXMLList* list) {
             PushStart(list, "a");
             for (const char* text : {" ", "  ", "\t", "\n\n", "\r\r", " x", "x ", "\rx"})
                 PushTextElement(list, "b", text);
             PushEnd(list, "a");
         },
         "<a>\n  <b>&#32;</b>\n  <b>&#32; </b>\n  <b>&#9;</b>\n  <b>&#10;\n</b>\n"
         "  <b>&#13;&#13;</b>\n  <b> x</b>\n  <b>x </b>\n  <b>&#13;x</b>\n</a>\n",
         ""},
        {"texts between tags", "",
         [](TXMLList* list) {
             PushStart(list, "a");
             PushTextElement(list, "b", "1");
             PushText(list, "2");
             PushTextElement(list, "b", "3");
             PushPair(list, "b");
             PushText(list, "4");
             PushText(list, "5");
             PushEnd(list, "a");
         },
         "<a>\n  <b>1</b>2<b>3</b>\n  <b/>45</a>\n", ""},
        {"the root as text element", "", [](TXMLList* list) { PushTextElement(list, "a", "text"); },
         "<a>text</a>\n", ""},
        {"attributes pushed again", "",
         [](TXMLList* list) {
             PushStart(list, "a", {{"x", "1"}, {"y", "2"}, {"x", "3"}});
             PushTextElement(list, "b", "t", {{"x", "1"}, {"y", "2"}, {"x", "3"}});
             PushEnd(list, "a");
         },
         "<a x=\"3\" y=\"2\">\n  <b x=\"3\" y=\"2\">t</b>\n</a>\n", ""},
        {"pushed with a list of attributes", "",
         [](TXMLList* list) {
             TAttributeList attributes;
             attributes.Psh("x", "1 & 2");
             list->Psh("a", &attributes, TElement::START, nullptr);
             list->Psh("", nullptr, TElement::TEXT, MakeXMLString("<&>"));
             list->Psh("a", &attributes, TElement::END, nullptr);
         },
         "<a x=\"1 &amp; 2\">&lt;&amp;&gt;</a>\n", ""},
        {"names that are gone when they are closed", "",
         [](TXMLList* list) {
             PushStart(list, std::string("a").c_str());
             PushStart(list, std::string("b").c_str());
             PushText(list, "x");
             PushEnd(list, std::string("b").c_str());
             PushEnd(list, std::string("a").c_str());
         },
         "<a>\n  <b>x</b>\n</a>\n", ""},
    });
}

TEST(XMLPrintedAtOnce, LogsItsChecksBehindThoseOfFilling) {
    ExpectRows({
        {"unclosed at the end", kListType,
         [](TXMLList* list) {
             PushStart(list, "a");
             PushStart(list, "b");
             PushText(list, "x");
         },
         "<!DOCTYPE List SYSTEM \"list.dtd\">\n<List>\n  <a>\n    <b>x</b>\n  </a>\n</List>\n",
         kUnclosed + kUnclosed},
        {"crossed", "",
         [](TXMLList* list) {
             PushStart(list, "a");
             PushStart(list, "b");
             PushEnd(list, "a");
             PushEnd(list, "b");
         },
         "<a>\n  <b/>\n</a>\n", kUnclosed + kStray},
        {"an END of the root", kListType,
         [](TXMLList* list) {
             PushEnd(list, "List");
             PushPair(list, "a");
         },
         "<!DOCTYPE List SYSTEM \"list.dtd\">\n<List>\n  <a/>\n</List>\n", kStray},
        {"no names", "",
         [](TXMLList* list) {
             PushStart(list, "v2v -x<", {{"my name", "1"}, {"", "2"}});
             PushTextElement(list, "", "x");
             PushEnd(list, "v2v -x<");
         },
         "<v2v_-x_ my_name=\"1\" _=\"2\">\n  <_>x</_>\n</v2v_-x_>\n", kNoName + kNoName + kNoName},
        {"no name of an attribute", "",
         [](TXMLList* list) {
             PushPair(list, "a", {{"my name", "1"}});
         },
         "<a my_name=\"1\"/>\n", kNoName},
        {"no name, like one in length and both ends", "",
         [](TXMLList* list) {
             PushStart(list, "root");
             PushPair(list, "axb");
             PushPair(list, "a b");
             PushEnd(list, "root");
         },
         "<root>\n  <axb/>\n  <a_b/>\n</root>\n", kNoName},
        {"foreign bytes", "",
         [](TXMLList* list) {
             PushStart(list, "a", {{"x", "\xE4"}});
             PushText(list,
                      "gr\xF6\xDF"
                      "e \xC3\xA4");
             PushEnd(list, "a");
         },
         "<a x=\"\xC3\xA4\">gr\xC3\xB6\xC3\x9F"
         "e \xC3\xA4</a>\n",
         kForeign},
        {"foreign bytes of an END alone", "",
         [](TXMLList* list) {
             PushStart(list, "a");
             PushEnd(list, "\xE4");
             PushEnd(list, "a");
         },
         "<a/>\n", kStray + kForeign},
        {"checks before a fault", "",
         [](TXMLList* list) {
             PushStart(list, "a");
             PushEnd(list, "b");
             PushText(list, "\x01\xE4");
             PushEnd(list, "b");
         },
         "element \"a\" holds the character U+0001, which no XML document can hold [0]\nold",
         kStray},
    });
}

TEST(XMLPrintedAtOnce, LeavesTheOldFileWhenNoDocumentCanHoldWhatIsPushed) {
    ExpectRows({
        {"text", kListType,
         [](TXMLList* list) {
             PushTextElement(list, "a", "x\x1Fy");
             PushTextElement(list, "b", "\x02");
         },
         "element \"a\" holds the character U+001F, which no XML document can hold [0]\nold", ""},
        {"text behind others", "",
         [](TXMLList* list) {
             PushStart(list, "a");
             PushText(list, "fine");
             PushText(list, "\xEF\xBF\xBE");
             PushEnd(list, "a");
         },
         "element \"a\" holds the character U+FFFE, which no XML document can hold [0]\nold", ""},
        {"attribute", kListType,
         [](TXMLList* list) {
             PushPair(list, "a", {{"x", "1"}, {"y", {"\0", 1}}});
         },
         "attribute \"y\" of element \"a\" holds the character U+0000, which no XML document can "
         "hold [0]\nold",
         ""},
        {"no root", "", [](TXMLList*) {}, "the document has no root element [0]\nold", ""},
        {"two roots", "",
         [](TXMLList* list) {
             PushPair(list, "a");
             PushTextElement(list, "b", "x");
         },
         "the document has more than one root element [0]\nold", ""},
        {"text at the top", "", [](TXMLList* list) { PushText(list, "x"); },
         "text stands outside the root element [0]\nold", ""},
        {"document type", "<!DOCTYPE R", [](TXMLList* list) { PushPair(list, "a"); },
         "the document type is malformed: no element found [0]\nold", ""},
        {"too deep", kListType, [](TXMLList* list) { PushNested(list, 512, "x"); },
         "elements are nested deeper than 512 [0]\nold", ""},
    });
}

TEST(XMLPrintedAtOnce, NestsAsDeepAsCanBeRead) {
    TListPrintedAtOnce list([](TXMLList* elements) { PushNested(elements, 511, "x"); }, kListType);
    std::string expected;
    for (int i = 0; i < 511; ++i) expected += "START a\n";
    expected += "START b\nTEXT x\nEND b\n";
    for (int i = 0; i < 511; ++i) expected += "END a\n";
    EXPECT_EQ(StreamOf(Saved(&list), kListType), expected);
}

TEST(XMLPrintedAtOnce, HoldsDocumentsAndTextsOfEverySize) {
    TListPrintedAtOnce list(
        [](TXMLList* elements) {
            for (int i = 0; i < 60000; ++i) PushTextElement(elements, "a", std::to_string(i));
            PushTextElement(elements, "b", std::string(1000000, 'x'));
        },
        "<!DOCTYPE R>");
    std::string expected = "<!DOCTYPE R>\n<R>\n";
    for (int i = 0; i < 60000; ++i) expected += "  <a>" + std::to_string(i) + "</a>\n";
    expected += "  <b>" + std::string(1000000, 'x') + "</b>\n</R>\n";
    EXPECT_TRUE(Saved(&list) == expected);
}
