#include <gtest/gtest.h>

#include <sstream>

#include "services/xml/xmlstream.h"
#include "tests/services/xml/documents.h"
#include "tests/support/recorders.h"

namespace {

struct WriteRow {
    const char* Label;
    std::string Elements;
    std::string Document;
};

void ExpectDocuments(const std::vector<WriteRow>& rows, const char* documentType) {
    for (const WriteRow& row : rows)
        EXPECT_EQ(DocumentOf(row.Elements, documentType), row.Document) << row.Label;
}

// The document of one element "a" with a text.
std::string TextDocument(const std::string& text) {
    TXMLList list;
    list.Psh("a", nullptr, TElement::START, nullptr);
    list.Psh("", nullptr, TElement::TEXT, TXMLString(text));
    list.Psh("a", nullptr, TElement::END, nullptr);
    return DocumentOf(list);
}

// The document of one element "a" with attributes.
std::string AttributeDocument(std::vector<TAttributeList::TAttribute> attributes) {
    TXMLList list;
    list.Psh("a", nullptr, TElement::START, nullptr);
    DListIterator<TElement*>(list).Current()->SetAttributes(std::move(attributes));
    list.Psh("a", nullptr, TElement::END, nullptr);
    return DocumentOf(list);
}

}  // namespace

TEST(XMLWriting, PrintsAWholeDocument) {
    TXMLList list;
    list.SetDocumentType(kListType);
    PushElements(&list,
                 "START Build Version=2\n"
                 "START Group Language=VHDL\n"
                 "START SourceFile Library=false Name=\n"
                 "TEXT src/a & b.vhd\n"
                 "START Dependency\n"
                 "TEXT src/p.vhd\n"
                 "END Dependency\n"
                 "START Dependency\n"
                 "TEXT src/<q>.vhd\n"
                 "END Dependency\n"
                 "END SourceFile\n"
                 "START SourceFile\n"
                 "TEXT c.vhd\n"
                 "END SourceFile\n"
                 "END Group\n"
                 "START Group\n"
                 "END Group\n"
                 "END Build\n"
                 "START Empty\n"
                 "TEXT \n"
                 "END Empty\n");
    EXPECT_EQ(DocumentOf(list),
              "<!DOCTYPE List SYSTEM \"list.dtd\">\n"
              "<List>\n"
              "  <Build Version=\"2\">\n"
              "    <Group Language=\"VHDL\">\n"
              "      <SourceFile Library=\"false\" Name=\"\">src/a &amp; b.vhd<Dependency>src/p.vhd"
              "</Dependency>\n"
              "        <Dependency>src/&lt;q&gt;.vhd</Dependency>\n"
              "      </SourceFile>\n"
              "      <SourceFile>c.vhd</SourceFile>\n"
              "    </Group>\n"
              "    <Group/>\n"
              "  </Build>\n"
              "  <Empty><![CDATA[]]></Empty>\n"
              "</List>\n");
}

TEST(XMLWriting, BreaksLinesOnlyBetweenTwoTags) {
    ExpectDocuments(
        {
            {"text first", "START a\nTEXT x\nSTART b\nEND b\nEND a\n", "<a>x<b/>\n</a>\n"},
            {"text last", "START a\nSTART b\nEND b\nTEXT x\nEND a\n", "<a>\n  <b/>x</a>\n"},
            {"text between", "START a\nSTART b\nEND b\nTEXT x\nSTART b\nEND b\nEND a\n",
             "<a>\n  <b/>x<b/>\n</a>\n"},
            {"one element", "START a\nEND a\n", "<a/>\n"},
        },
        "");
}

TEST(XMLWriting, WrapsTheElementsInTheRootOfTheDocumentType) {
    ExpectDocuments(
        {
            {"nothing", "", "<!DOCTYPE R>\n<R/>\n"},
            {"two elements", "START a\nEND a\nSTART b\nEND b\n",
             "<!DOCTYPE R>\n<R>\n  <a/>\n  <b/>\n</R>\n"},
            {"text", "TEXT x\n", "<!DOCTYPE R>\n<R>x</R>\n"},
            {"an element of that name", "START R\nEND R\n", "<!DOCTYPE R>\n<R>\n  <R/>\n</R>\n"},
        },
        "<!DOCTYPE R>");
}

TEST(XMLWriting, FindsTheRootInEveryFormOfTheDocumentType) {
    for (const char* type : {"<!DOCTYPE R SYSTEM \"r.dtd\">", "<!DOCTYPE\nR>", "<!DOCTYPE R[]>",
                             "<!DOCTYPE  R PUBLIC \"x\" \"y\">"})
        EXPECT_EQ(DocumentOf("", type), std::string(type) + "\n<R/>\n");
}

TEST(XMLWriting, EscapesEveryValueOnce) {
    EXPECT_EQ(TextDocument("a&b<c>d\"e'f &amp; ]]>"),
              "<a>a&amp;b&lt;c&gt;d\"e'f &amp;amp; ]]&gt;</a>\n");
    EXPECT_EQ(AttributeDocument({{"x", "a&b<c>d\"e'f &amp;"}}),
              "<a x=\"a&amp;b&lt;c&gt;d&quot;e'f &amp;amp;\"/>\n");
}

TEST(XMLWriting, EscapesWhatWasMadeSafeOnce) {
    TXMLList list;
    TAttributeList attributes;
    attributes.Psh("x", TXMLList::MakeXMLString("1 & 2"));
    list.Psh("a", &attributes, TElement::START, nullptr, nullptr, false);
    list.Psh("", nullptr, TElement::TEXT, MakeXMLString("<&>"), nullptr, false);
    list.Psh("a", nullptr, TElement::END, nullptr, nullptr, false);
    EXPECT_EQ(ElementsOf(list), "START a x=1 & 2\nTEXT <&>\nEND a\n");
    EXPECT_EQ(DocumentOf(list), "<a x=\"1 &amp; 2\">&lt;&amp;&gt;</a>\n");
}

TEST(XMLWriting, WritesWhiteSpaceSoThatItSurvives) {
    EXPECT_EQ(AttributeDocument({{"x", " \t\n\r "}}), "<a x=\" &#9;&#10;&#13; \"/>\n");
    struct Row {
        const char *Text, *Document;
    };
    const Row rows[] = {
        {"", "<a><![CDATA[]]></a>\n"}, {" ", "<a>&#32;</a>\n"},
        {"  ", "<a>&#32; </a>\n"},     {"\t", "<a>&#9;</a>\n"},
        {"\n\n", "<a>&#10;\n</a>\n"},  {"\r\r", "<a>&#13;&#13;</a>\n"},
        {" x\t\n", "<a> x\t\n</a>\n"}, {"x\r\ny\rz", "<a>x&#13;\ny&#13;z</a>\n"},
    };
    for (const Row& row : rows) EXPECT_EQ(TextDocument(row.Text), row.Document);
}

TEST(XMLWriting, WritesForeignBytesAsWindows1252WithOneCheckADocument) {
    RecordingLog log;
    EXPECT_EQ(TextDocument("gr\xF6\xDF"
                           "e \xC3\xA4 \x80"),
              "<a>gr\xC3\xB6\xC3\x9F"
              "e \xC3\xA4 \xE2\x82\xAC</a>\n");
    EXPECT_EQ(log.Take(), "xmllist(104): Check failed: \"IsUtf8(text)\"\n");
    EXPECT_EQ(AttributeDocument({{"x", "\xE4"}, {"y", "\xE4"}}),
              "<a x=\"\xC3\xA4\" y=\"\xC3\xA4\"/>\n");
    EXPECT_EQ(log.Take(), "xmllist(104): Check failed: \"IsUtf8(text)\"\n");
    EXPECT_EQ(TextDocument("\xC3\xA4"), "<a>\xC3\xA4</a>\n");
    EXPECT_EQ(log.Take(), "");
}

TEST(XMLWriting, ReportsForeignBytesOfNamesAndDocumentTypesOnceADocument) {
    const std::string check = "xmllist(104): Check failed: \"IsUtf8(text)\"\n";
    RecordingLog log;
    EXPECT_EQ(DocumentOf("START \xE4 \xF6=1\nSTART b x=\xE4\nTEXT \xE4\nEND b\nEND \xE4\n", ""),
              "<\xC3\xA4 \xC3\xB6=\"1\">\n  <b x=\"\xC3\xA4\">\xC3\xA4</b>\n</\xC3\xA4>\n");
    EXPECT_EQ(log.Take(), check);
    EXPECT_EQ(DocumentOf("", "<!DOCTYPE \xE4>"), "<!DOCTYPE \xC3\xA4>\n<\xC3\xA4/>\n");
    EXPECT_EQ(log.Take(), check);
}

TEST(XMLWriting, RefusesTextsThatXMLCannotHold) {
    EXPECT_EQ(TextDocument("x\x01y"),
              "cannot be written: element \"a\" holds the character U+0001, which no XML document "
              "can hold");
    EXPECT_EQ(TextDocument(std::string("x\0", 2)),
              "cannot be written: element \"a\" holds the character U+0000, which no XML document "
              "can hold");
    EXPECT_EQ(TextDocument("\xEF\xBF\xBE"),
              "cannot be written: element \"a\" holds the character U+FFFE, which no XML document "
              "can hold");
    EXPECT_EQ(AttributeDocument({{"x", "1"}, {"y", "\x1F"}}),
              "cannot be written: attribute \"y\" of element \"a\" holds the character U+001F, "
              "which no XML document can hold");
    EXPECT_EQ(DocumentOf("TEXT \x02\n"),
              "cannot be written: element \"List\" holds the character U+0002, which no XML "
              "document can hold");
}

TEST(XMLWriting, RefusesStreamsThatAreNoDocument) {
    struct Row {
        const char *Label, *DocumentType, *Elements, *Expected;
    };
    const Row rows[] = {
        {"no root", "", "", "cannot be written: the document has no root element"},
        {"two roots", "", "START a\nEND a\nSTART b\nEND b\n",
         "cannot be written: the document has more than one root element"},
        {"text at the top", "", "START a\nEND a\nTEXT x\n",
         "cannot be written: text stands outside the root element"},
        {"document type without a name", "<!DOCTYPE>", "",
         "cannot be written: the document type is malformed: not well-formed (invalid token)"},
        {"unfinished document type", "<!DOCTYPE R", "",
         "cannot be written: the document type is malformed: no element found"},
        {"something else", "<!-- R -->", "",
         "cannot be written: the document type is malformed: no element found"},
        {"something before it", " <!DOCTYPE R>", "",
         "cannot be written: the document type names no root element"},
        {"something behind it", "<!DOCTYPE R><R/>", "",
         "cannot be written: the document type names no root element"},
        {"document type that could not be read", "<!DOCTYPE R [<!ENTITY e 'x'>]>", "",
         "cannot be written: the document type is malformed: entity declarations are not accepted"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(DocumentOf(row.Elements, row.DocumentType), row.Expected) << row.Label;
}

TEST(XMLWriting, RefusesWhatCouldNotBeReadForItsDepth) {
    std::string elements;
    for (int i = 0; i < 512; ++i) elements += "START a\n";
    std::string ends;
    for (int i = 0; i < 512; ++i) ends += "END a\n";
    const std::string document = DocumentOf(elements + ends);
    EXPECT_EQ(StreamOf(document, kListType), elements + ends);
    EXPECT_EQ(DocumentOf(elements + "START a\nEND a\n" + ends),
              "cannot be written: elements are nested deeper than 512");
}

TEST(XMLWriting, RefusesWhatCouldNotBeReadForItsAttributes) {
    std::string start = "START a";
    for (int number = 0; number < 65536; ++number) start += " a" + std::to_string(number) + "=";
    const std::string document = DocumentOf(start + "\nEND a\n");
    EXPECT_EQ(StreamOf(document, kListType), start + "\nEND a\n");
    EXPECT_EQ(DocumentOf(start + " more=\nEND a\n"),
              "cannot be written: an element has more than 65536 attributes");
}

TEST(XMLWriting, MendsUnbalancedStreamsWithACheckEach) {
    const std::string unclosed =
        "xmllist(102): Check failed: \"openElements.empty() && \\\"A START has no END.\\\"\"\n";
    const std::string stray =
        "xmllist(103): Check failed: \"IsOpen(name) && \\\"An END has no START.\\\"\"\n";
    const std::string foreign = "xmllist(104): Check failed: \"IsUtf8(text)\"\n";
    struct Row {
        const char *Label, *Elements, *Document;
        std::string Logged;
    };
    const Row rows[] = {
        {"unclosed at the end", "START a\nSTART b\n", "<a>\n  <b/>\n</a>\n", unclosed + unclosed},
        {"unclosed with text", "START a\nTEXT x\n", "<a>x</a>\n", unclosed},
        {"unclosed inside", "START a\nSTART b\nEND a\n", "<a>\n  <b/>\n</a>\n", unclosed},
        {"stray inside", "START a\nEND b\nEND a\n", "<a/>\n", stray},
        {"stray behind", "START a\nEND a\nEND a\n", "<a/>\n", stray},
        {"stray before", "END a\nSTART a\nEND a\n", "<a/>\n", stray},
        {"crossed", "START a\nSTART b\nEND a\nEND b\n", "<a>\n  <b/>\n</a>\n", unclosed + stray},
        {"stray of foreign bytes", "START a\nEND \xE4\nEND a\n", "<a/>\n", stray + foreign},
    };
    for (const Row& row : rows) {
        RecordingLog log;
        EXPECT_EQ(DocumentOf(row.Elements, ""), row.Document) << row.Label;
        EXPECT_EQ(log.Take(), row.Logged) << row.Label;
    }
}

TEST(XMLWriting, DoesNotLetAnEndCloseTheRoot) {
    RecordingLog log;
    EXPECT_EQ(DocumentOf("END List\nSTART a\nEND a\n"),
              "<!DOCTYPE List SYSTEM \"list.dtd\">\n<List>\n  <a/>\n</List>\n");
    EXPECT_EQ(log.Take(),
              "xmllist(103): Check failed: \"IsOpen(name) && \\\"An END has no START.\\\"\"\n");
}

TEST(XMLWriting, ReplacesWhatNoNameMayHoldWithACheck) {
    const std::string check = "xmllist(101): Check failed: \"IsXMLName(name)\"\n";
    const struct {
        const char *Element, *Attribute, *Document;
        std::string Logged;
    } rows[] = {
        {"v2v -x<", "my name", "<v2v_-x_ my_name=\"1\"/>\n", check + check},
        {"v2v -x<", "name", "<v2v_-x_ name=\"1\"/>\n", check},
        {"a", "my name", "<a my_name=\"1\"/>\n", check},
    };
    for (const auto& row : rows) {
        TXMLList list;
        TAttributeList attributes;
        attributes.Psh(row.Attribute, "1");
        list.Psh(row.Element, &attributes, TElement::START, nullptr);
        list.Psh(row.Element, nullptr, TElement::END, nullptr);
        RecordingLog log;
        EXPECT_EQ(DocumentOf(list), row.Document);
        EXPECT_EQ(log.Take(), row.Logged) << row.Document;
    }
}

TEST(XMLWriting, GivesARepeatedAttributeItsFirstPlaceAndLastValue) {
    EXPECT_EQ(AttributeDocument({{"x", "1"}, {"y", "2"}, {"x", "3"}}), "<a x=\"3\" y=\"2\"/>\n");
    EXPECT_EQ(AttributeDocument({{"b c", "1"}, {"b_c", "2"}}), "<a b_c=\"2\"/>\n");
    std::vector<TAttributeList::TAttribute> many;
    std::string expected = "<a";
    for (int i = 0; i < 20; ++i) {
        many.emplace_back("n" + std::to_string(i), "v");
        expected += " n" + std::to_string(i) + "=\"" + (i == 3 ? "last" : "v") + "\"";
    }
    many.emplace_back("n3", "last");
    EXPECT_EQ(AttributeDocument(many), expected + "/>\n");
}

TEST(XMLWriting, SavesOneElementWithOrWithoutALineOfItsOwn) {
    struct Row {
        TElement::ElemTypes Type;
        int Indent;
        const char* Expected;
    };
    const Row rows[] = {
        {TElement::START, -1, "<a x=\"1\">"}, {TElement::START, 0, "\n<a x=\"1\">"},
        {TElement::END, 4, "\n    </a>"},     {TElement::END, -1, "</a>"},
        {TElement::TEXT, -1, "t&amp;"},
    };
    TXMLList list;
    for (const Row& row : rows) {
        TElement element(row.Type, "a", "t&");
        if (row.Type == TElement::START) element.SetAttributes({{"x", "1"}});
        std::ostringstream stream;
        list.SaveElement(&element, stream, row.Indent);
        EXPECT_EQ(stream.str(), row.Expected);
        EXPECT_TRUE(stream.good());
    }
    std::ostringstream stream;
    list.SaveElement(nullptr, stream, 0);
    EXPECT_EQ(stream.str(), "");
    TElement forbidden(TElement::TEXT, "", "\x01");
    list.SaveElement(&forbidden, stream, -1);
    EXPECT_TRUE(stream.fail());
}

TEST(XMLWriting, WritesWhatAnOverridingListSaves) {
    class ShoutingList : public TXMLList {
    public:
        void SaveElement(TElement* element, std::ostream& stream, int indent) override {
            if (element->ElemType == TElement::TEXT)
                stream << "LOUD";
            else
                TXMLList::SaveElement(element, stream, indent);
        }
    } list;
    PushElements(&list, "START a\nTEXT quiet\nEND a\n");
    EXPECT_EQ(DocumentOf(list), "<a>LOUD</a>\n");
}

TEST(XMLWriting, LeavesOutTheTagsThatAnOverridingListLeavesOut) {
    class PlainList : public TXMLList {
    public:
        void SaveElement(TElement* element, std::ostream& stream, int indent) override {
            if (element->Name != TMyString("b")) TXMLList::SaveElement(element, stream, indent);
        }
    } list;
    PushElements(&list, "START a\nSTART b\nEND b\nEND a\n");
    EXPECT_EQ(DocumentOf(list), "<a>\n</a>\n");
}

TEST(XMLWriting, ClosesATagBehindWhichAnOverridingListPutsAText) {
    class AddingList : public TXMLList {
    public:
        void SaveElement(TElement* element, std::ostream& stream, int indent) override {
            TXMLList::SaveElement(element, stream, indent);
            if (element->ElemType == TElement::START) stream << "note";
        }
    } list;
    PushElements(&list, "START a\nEND a\n");
    EXPECT_EQ(DocumentOf(list), "<a>note\n</a>\n");
}

TEST(XMLWriting, ClosesAnElementUnderTheNameThatAnOverridingListGaveIt) {
    class RenamingList : public TXMLList {
    public:
        void SaveElement(TElement* element, std::ostream& stream, int indent) override {
            if (element->Name == "a") *element = TElement(element->ElemType, "b", "");
            TXMLList::SaveElement(element, stream, indent);
        }
    } list;
    PushElements(&list, "START a\nTEXT x\nEND a\n");
    RecordingLog log;
    EXPECT_EQ(DocumentOf(list), "<b>x</b>\n");
    EXPECT_EQ(log.Take(),
              "xmllist(103): Check failed: \"IsOpen(name) && \\\"An END has no START.\\\"\"\n"
              "xmllist(102): Check failed: \"openElements.empty() && \\\"A START has no "
              "END.\\\"\"\n");
}

TEST(XMLWriting, TellsTheElementThatAListFailsToSave) {
    class FailingList : public TXMLList {
    public:
        void SaveElement(TElement* element, std::ostream& stream, int indent) override {
            if (element->Name == "b") return stream.setstate(std::ios_base::badbit);
            TXMLList::SaveElement(element, stream, indent);
        }
    } list;
    PushElements(&list, "START a\nSTART b\nEND b\nEND a\n");
    EXPECT_EQ(DocumentOf(list), "cannot be written: element \"b\" cannot be written");
}

TEST(XMLWriting, TellsTheInnerElementWhoseMissingEndAListFailsToSave) {
    class FailingList : public TXMLList {
    public:
        void SaveElement(TElement* element, std::ostream& stream, int indent) override {
            if (element->ElemType == TElement::END) stream.setstate(std::ios_base::badbit);
            TXMLList::SaveElement(element, stream, indent);
        }
    } list;
    RecordingLog log;
    PushElements(&list, "START a\nSTART b\nTEXT x\nEND a\n");
    EXPECT_EQ(DocumentOf(list), "cannot be written: element \"b\" cannot be written");
    EXPECT_EQ(log.Take(),
              "xmllist(102): Check failed: \"openElements.empty() && \\\"A START has no "
              "END.\\\"\"\n");
}

TEST(XMLWriting, PassesOverNullElementsAndAllowsNullResults) {
    TXMLList list;
    list.AddAtTail(nullptr);
    PushElements(&list, "START a\nEND a\n");
    EXPECT_EQ(DocumentOf(list), "<a/>\n");
    EXPECT_TRUE(list.WriteToText(nullptr, nullptr));
}

TEST(XMLWriting, WritesPushedAndReadElementsAlike) {
    const std::string odd = "\x09 a & b < c > d \" e ' \xC3\xA9 \xE9";
    TXMLList list;
    const auto push = [&](const std::string& text) {
        PushStart(&list, "e", {{"plain", "x"}, {"text", text}});
        PushText(&list, text);
        PushEnd(&list, "e");
    };
    PushStart(&list, "list");
    for (const std::string& text : {std::string("plain text of some length"), std::string(" "),
                                    std::string(), odd, std::string(40000, 'x')})
        push(text);
    PushEnd(&list, "list");
    std::string written;
    {
        RecordingLog log;
        written = DocumentOf(list);
    }
    const std::string escaped = " a &amp; b &lt; c &gt; d ";
    const std::string letters = " e ' \xC3\xA9 \xC3\xA9";
    const std::string many(40000, 'x');
    EXPECT_EQ(written,
              "<list>\n"
              "  <e plain=\"x\" text=\"plain text of some length\">plain text of some length</e>\n"
              "  <e plain=\"x\" text=\" \">&#32;</e>\n"
              "  <e plain=\"x\" text=\"\"><![CDATA[]]></e>\n"
              "  <e plain=\"x\" text=\"&#9;" +
                  escaped + "&quot;" + letters + "\">\t" + escaped + "\"" + letters + "</e>\n" +
                  "  <e plain=\"x\" text=\"" + many + "\">" + many + "</e>\n" + "</list>\n");
    TXMLList read;
    ASSERT_TRUE(read.ReadFromText(written, nullptr));
    EXPECT_EQ(DocumentOf(read), written);
}
