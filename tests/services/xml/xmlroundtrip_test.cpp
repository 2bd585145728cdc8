#include <gtest/gtest.h>

#include "services/xml/xmlstream.h"
#include "tests/services/xml/documents.h"

namespace {

struct OddText {
    const char* Label;
    const char* Text;
};

// In UTF-8, as what is read always is.
const OddText kOddTexts[] = {
    {"empty", ""},
    {"blank", " "},
    {"blanks", "   "},
    {"tab", "\t"},
    {"line feed", "\n"},
    {"carriage return", "\r"},
    {"CR LF", "\r\n"},
    {"CR between blanks", " \r "},
    {"leading blank", " -g"},
    {"trailing blank", "-g "},
    {"line feeds around", "\n-g\n"},
    {"many lines", "a\nb\r\nc\rd\n\n"},
    {"ampersand", "a & b"},
    {"entity", "&amp;"},
    {"references", "&#32; &lt;"},
    {"tags", "<a></a>"},
    {"comment", "<!-- x -->"},
    {"section", "<![CDATA[x]]>"},
    {"section end", "]]>"},
    {"quotes", "\"double\" 'single'"},
    {"instruction", "<?xml version='1.0'?>"},
    {"delete", "\x7F"},
    {"UTF-8",
     "gr\xC3\xB6\xC3\x9F"
     "e \xE2\x82\xAC \xF0\x9F\x98\x80"},
    {"C1 control", "\xC2\x85\xC2\x9F"},
    {"line separator", "\xE2\x80\xA8"},
    {"no-break space", "\xC2\xA0"},
    {"mark", "\xEF\xBB\xBF"},
    {"last character", "\xF4\x8F\xBF\xBF"},
};

std::string WrittenAndRead(TXMLList& list) {
    std::string document;
    std::string error;
    if (!list.WriteToText(&document, &error)) return error;
    return StreamOf(document, list.GetDocumentType().c_str());
}

}  // namespace

TEST(XMLRoundTrip, KeepsEveryOddText) {
    for (const OddText& odd : kOddTexts) {
        TXMLList list;
        list.SetDocumentType(kListType);
        PushTextElement(&list, "Option", odd.Text);
        PushTextElement(&list, "Option", odd.Text);
        EXPECT_EQ(WrittenAndRead(list), ElementsOf(list)) << odd.Label;
    }
}

TEST(XMLRoundTrip, KeepsEveryOddAttribute) {
    for (const OddText& odd : kOddTexts) {
        TXMLList list;
        list.SetDocumentType(kListType);
        PushStart(&list, "Option", {{"Name", odd.Text}, {"Value", odd.Text}});
        PushEnd(&list, "Option");
        EXPECT_EQ(WrittenAndRead(list), ElementsOf(list)) << odd.Label;
    }
}

TEST(XMLRoundTrip, KeepsEveryOddTextBesideElements) {
    for (const OddText& odd : kOddTexts) {
        TXMLList list;
        list.SetDocumentType(kListType);
        PushText(&list, odd.Text);
        PushStart(&list, "SourceFile");
        PushText(&list, odd.Text);
        PushTextElement(&list, "Dependency", odd.Text);
        PushText(&list, odd.Text);
        PushStart(&list, "Dependency");
        PushEnd(&list, "Dependency");
        PushText(&list, odd.Text);
        PushEnd(&list, "SourceFile");
        PushText(&list, odd.Text);
        EXPECT_EQ(WrittenAndRead(list), ElementsOf(list)) << odd.Label;
    }
}

TEST(XMLRoundTrip, KeepsTheShapeOfEveryStream) {
    const char* const streams[] = {
        "",
        "TEXT x\n",
        "START a\nEND a\n",
        "START a\nSTART a\nSTART a\nEND a\nEND a\nSTART a\nEND a\nEND a\n",
        "START List\nSTART List\nEND List\nEND List\n",
        "START a x=1 y=2\nTEXT t\nSTART b z=\nEND b\nTEXT u\nEND a\nTEXT v\nSTART c\nEND c\n",
    };
    for (const char* stream : streams) {
        TXMLList list;
        list.SetDocumentType(kListType);
        PushElements(&list, stream);
        EXPECT_EQ(WrittenAndRead(list), stream);
    }
}

TEST(XMLRoundTrip, KeepsAStreamWithoutDocumentType) {
    TXMLList list;
    PushElements(&list, "START a\nSTART List\nEND List\nEND a\n");
    EXPECT_EQ(WrittenAndRead(list), ElementsOf(list));
}

TEST(XMLRoundTrip, JoinsAdjacentTexts) {
    TXMLList list;
    list.SetDocumentType(kListType);
    PushElements(&list, "START a\nTEXT x\nTEXT \nTEXT y\nEND a\n");
    EXPECT_EQ(WrittenAndRead(list), "START a\nTEXT xy\nEND a\n");
}

TEST(XMLRoundTrip, ChangesNothingTheSecondTime) {
    const std::string document =
        "<?xml version='1.0' encoding='ISO-8859-1'?><!DOCTYPE List SYSTEM 'x'>"
        "<List><a x='\xE4'> \xF6 <!-- c --><b>&#32;</b></a><c></c></List>";
    TXMLList list;
    list.SetDocumentType(kListType);
    ASSERT_TRUE(list.ReadFromText(document, nullptr));
    const std::string first = DocumentOf(list);
    EXPECT_EQ(first,
              "<!DOCTYPE List SYSTEM \"list.dtd\">\n"
              "<List>\n"
              "  <a x=\"\xC3\xA4\"> \xC3\xB6 <b>&#32;</b>\n"
              "  </a>\n"
              "  <c/>\n"
              "</List>\n");
    ASSERT_TRUE(list.ReadFromText(first, nullptr));
    EXPECT_EQ(DocumentOf(list), first);
}

TEST(XMLRoundTrip, TakesLargeDocumentsInOnePass) {
    TXMLList list;
    list.SetDocumentType(kListType);
    for (int i = 0; i < 50000; ++i)
        PushTextElement(&list, "SourceFile", "src/file_" + std::to_string(i) + ".vhd",
                        {{"Library", "false"}});
    const std::string written = ElementsOf(list);
    EXPECT_EQ(WrittenAndRead(list), written);
}
