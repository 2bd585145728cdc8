#include <gtest/gtest.h>

#include "services/xml/xmlreader.h"
#include "tests/services/xml/documents.h"

namespace {

struct ReadRow {
    const char* Label;
    std::string Document;
    std::string Expected;
};

void ExpectStreams(const std::vector<ReadRow>& rows, const char* documentType = "") {
    for (const ReadRow& row : rows)
        EXPECT_EQ(StreamOf(row.Document, documentType), row.Expected) << row.Label;
}

std::string Nested(std::size_t levels, const std::string& inner = {}) {
    std::string open, close;
    for (std::size_t i = 0; i < levels; ++i) {
        open += "<a>";
        close += "</a>";
    }
    return open + inner + close;
}

}  // namespace

TEST(XMLReading, GivesElementsAttributesAndTextInDocumentOrder) {
    EXPECT_EQ(StreamOf("<a x='1' b=\"2\">one<b/>two<c>three</c></a>"),
              "START a x=1 b=2\n"
              "TEXT one\n"
              "START b\n"
              "END b\n"
              "TEXT two\n"
              "START c\n"
              "TEXT three\n"
              "END c\n"
              "END a\n");
}

TEST(XMLReading, DropsBlanksBetweenTagsOnly) {
    ExpectStreams({
        {"indentation", "<a>\n  <b/>\r\n\t<b/>\n</a>",
         "START a\nSTART b\nEND b\nSTART b\nEND b\nEND a\n"},
        {"blanks alone in an element", "<a> \t\n</a>", "START a\nEND a\n"},
        {"text stays untrimmed", "<a> x <b/> y\n</a>",
         "START a\nTEXT  x \nSTART b\nEND b\nTEXT  y\n\nEND a\n"},
        {"a decimal reference keeps the run", "<a>\n&#32;\n</a>", "START a\nTEXT \n \n\nEND a\n"},
        {"a reference at the end keeps the run", "<a> &#x9;</a>", "START a\nTEXT  \t\nEND a\n"},
        {"CDATA keeps the run", "<a> <![CDATA[ ]]> </a>", "START a\nTEXT    \nEND a\n"},
        {"a comment does not keep the run", "<a> <!-- x --> </a>", "START a\nEND a\n"},
        {"no-break space is a text", "<a>\xC2\xA0</a>", "START a\nTEXT \xC2\xA0\nEND a\n"},
    });
}

TEST(XMLReading, KeepsAnEmptyTextOnlyForAnEmptyCdataSection) {
    ExpectStreams({
        {"empty-element tag", "<a/>", "START a\nEND a\n"},
        {"tag pair", "<a></a>", "START a\nEND a\n"},
        {"empty section", "<a><![CDATA[]]></a>", "START a\nTEXT \nEND a\n"},
        {"comment", "<a><!----></a>", "START a\nEND a\n"},
    });
}

TEST(XMLReading, JoinsCharacterData) {
    ExpectStreams({
        {"comment", "<a>x<!-- c -->y</a>", "START a\nTEXT xy\nEND a\n"},
        {"instruction", "<a>x<?p i?>y</a>", "START a\nTEXT xy\nEND a\n"},
        {"section", "<a>x<![CDATA[<&>]]>y</a>", "START a\nTEXT x<&>y\nEND a\n"},
        {"references", "<a>&lt;&amp;&gt;&quot;&apos;&#65;&#x42;</a>",
         "START a\nTEXT <&>\"'AB\nEND a\n"},
        {"lines", "<a>x\ny\n\nz</a>", "START a\nTEXT x\ny\n\nz\nEND a\n"},
    });
}

TEST(XMLReading, NormalisesLineEnds) {
    ExpectStreams({
        {"CR LF and CR in text", "<a>x\r\ny\rz</a>", "START a\nTEXT x\ny\nz\nEND a\n"},
        {"CR as a reference", "<a>x&#13;\ny</a>", "START a\nTEXT x\r\ny\nEND a\n"},
        {"white space in attributes", "<a x='1\t2\r\n3\n4'/>", "START a x=1 2 3 4\nEND a\n"},
        {"references in attributes", "<a x='&#9;&#10;&#13;'/>", "START a x=\t\n\r\nEND a\n"},
    });
}

TEST(XMLReading, DropsTheRootOfTheListsDocumentType) {
    ExpectStreams(
        {
            {"wrapped", "<List><a/></List>", "START a\nEND a\n"},
            {"with the line", "<!DOCTYPE List SYSTEM 'list.dtd'><List><a/></List>",
             "START a\nEND a\n"},
            {"with another line", "<!DOCTYPE Other SYSTEM 'o.dtd'><List><a/></List>",
             "START a\nEND a\n"},
            {"unwrapped", "<!DOCTYPE List SYSTEM 'list.dtd'><a><b/></a>",
             "START a\nSTART b\nEND b\nEND a\n"},
            {"empty root", "<List/>", ""},
            {"text in the root", "<List>x<a/>y</List>", "TEXT x\nSTART a\nEND a\nTEXT y\n"},
            {"only the outermost", "<List><List/><List>x</List></List>",
             "START List\nEND List\nSTART List\nTEXT x\nEND List\n"},
            {"deeper", "<a><List/></a>", "START a\nSTART List\nEND List\nEND a\n"},
            {"other case", "<list/>", "START list\nEND list\n"},
            {"name that begins alike", "<Lists/>", "START Lists\nEND Lists\n"},
        },
        kListType);
}

TEST(XMLReading, KnowsTheRootFromEveryFormOfADocumentType) {
    const char* const types[] = {"<!DOCTYPE List>",
                                 "<!DOCTYPE\nList SYSTEM \"list.dtd\">",
                                 "<!DOCTYPE\tList\tSYSTEM 'list.dtd'>",
                                 "<!DOCTYPE List[]>",
                                 "<!DOCTYPE List [<!ELEMENT List ANY>]>",
                                 "<!DOCTYPE List PUBLIC \"-//x//y\" \"list.dtd\">"};
    for (const char* type : types) {
        EXPECT_EQ(StreamOf("<List><a/></List>", type), "START a\nEND a\n") << type;
        EXPECT_EQ(StreamOf(std::string(type) + "\n<List><a/></List>", type), "START a\nEND a\n")
            << type;
    }
}

TEST(XMLReading, KnowsTheRootFromADocumentTypeInWindows1252) {
    const char* const type = "<!DOCTYPE Gr\xF6\xDF\x65 SYSTEM \"g.dtd\">";
    EXPECT_EQ(StreamOf("<Gr\xC3\xB6\xC3\x9F\x65><a/></Gr\xC3\xB6\xC3\x9F\x65>", type),
              "START a\nEND a\n");
    EXPECT_EQ(StreamOf("<Gr\xF6\xDF\x65><a/></Gr\xF6\xDF\x65>", type), "START a\nEND a\n");
}

TEST(XMLReading, DropsNoRootWithoutADocumentTypeOfTheList) {
    EXPECT_EQ(StreamOf("<!DOCTYPE List SYSTEM 'list.dtd'><List><a/></List>"),
              "START List\nSTART a\nEND a\nEND List\n");
}

TEST(XMLReading, SkipsTheDocumentType) {
    const std::string stream = "START a\nEND a\n";
    ExpectStreams({
        {"with a system name", "<!DOCTYPE a SYSTEM \"missing.dtd\"><a/>", stream},
        {"with a public name", "<!DOCTYPE a PUBLIC '-//x//y' 'missing.dtd'><a/>", stream},
        {"with declarations", "<!DOCTYPE a [<!ELEMENT a ANY><!ATTLIST a x CDATA 'v'>]><a/>",
         stream},
        {"attribute types", "<!DOCTYPE a [<!ATTLIST a x NMTOKENS #IMPLIED>]><a x=' 1  2 '/>",
         "START a x= 1  2 \nEND a\n"},
        {"after comments that look like one",
         "<!-- <!DOCTYPE b> --><?p <!ENTITY ?>\n<!DOCTYPE a><a/>", stream},
        {"comment that looks like an entity", "<!DOCTYPE a [<!--<!ENTITY-->]><a/>", stream},
        {"name that looks like one", "<!DOCTYPE a SYSTEM '<!DOCTYPE'><a/>", stream},
        {"line without an element", "<!DOCTYPE a SYSTEM 'a.dtd'>", ""},
        {"line and a comment", "<!DOCTYPE a>\n<!-- nothing -->\n", ""},
    });
}

TEST(XMLReading, LocatesWhatIsMalformed) {
    ExpectStreams({
        {"empty", "", "1:1: no element found"},
        {"blank", " \n", "2:1: no element found"},
        {"comment alone", "<!-- c -->", "1:11: no element found"},
        {"text alone", "hello", "1:1: syntax error"},
        {"text before the root", "x <a/>", "1:1: syntax error"},
        {"text behind the root", "<a/>\n x", "2:2: junk after document element"},
        {"second root", "<a/><b/>", "1:5: junk after document element"},
        {"cut in text", "<a>\n<b>x", "2:5: the document ends inside element \"b\""},
        {"cut between", "<a>\n<b/>\n", "3:1: the document ends inside element \"a\""},
        {"cut in a tag", "<a>\n <b x='1", "2:2: unclosed token"},
        {"cut in a comment", "<a><!-- x", "1:4: unclosed token"},
        {"cut in a section", "<a><![CDATA[x", "1:14: unclosed CDATA section"},
        {"cut in the document type", "<!DOCTYPE a [\n", "2:1: no element found"},
        {"wrong end", "<a>\n  <b>\n  </c>\n</a>",
         "3:5: mismatched tag: element \"b\" of line 2 is still open"},
        {"wrong end, siblings closed", "<a>\n<b/>\n<b>\n<c>x</c></b>\n<d\n x=''></b></d></a>",
         "6:9: mismatched tag: element \"d\" of line 5 is still open"},
        {"wrong end of the root", "<!DOCTYPE a [\n<!ATTLIST b c CDATA 'd'>]>\n<a></b>",
         "3:6: mismatched tag: element \"a\" of line 3 is still open"},
        {"wrong end behind a long token", "<a>\n<b " + std::string(300000, ' ') + "></a>",
         "2:300007: mismatched tag: element \"b\" of line 2 is still open"},
        {"end without start", "<a/></a>", "1:6: not well-formed (invalid token)"},
        {"repeated attribute", "<a x='1' y='2' x='3'/>", "1:16: duplicate attribute"},
        {"attribute without value", "<a x/>", "1:5: not well-formed (invalid token)"},
        {"attribute without quotes", "<a x=1/>", "1:6: not well-formed (invalid token)"},
        {"bare ampersand", "<a>x & y</a>", "1:7: not well-formed (invalid token)"},
        {"bare less-than", "<a>x < y</a>", "1:7: not well-formed (invalid token)"},
        {"section end in text", "<a>]]></a>", "1:6: not well-formed (invalid token)"},
        {"control character", "<a>x\x01</a>", "1:5: not well-formed (invalid token)"},
        {"reference to one", "<a>x&#1;</a>", "1:5: reference to invalid character number"},
        {"NUL", std::string("<a>\0</a>", 8), "1:4: not well-formed (invalid token)"},
        {"no character", "<a>\xEF\xBF\xBF</a>", "1:4: not well-formed (invalid token)"},
        {"unknown entity", "<a>\n&nbsp;</a>", "2:1: undefined entity"},
        {"unknown entity under a document type", "<!DOCTYPE a SYSTEM 'a.dtd'>\n<a>&nbsp;</a>",
         "2:4: undefined entity"},
        {"unknown entity in an attribute", "<!DOCTYPE a SYSTEM 'a.dtd'>\n<a x='&nbsp;'/>",
         "2:1: undefined entity"},
        {"entity declaration", "<!DOCTYPE a [\n <!ENTITY e 'x'>\n]><a>&e;</a>",
         "2:2: entity declarations are not accepted"},
        {"parameter entity", "<!DOCTYPE a [<!ENTITY % e SYSTEM 'x'> %e;]><a/>",
         "1:14: entity declarations are not accepted"},
        {"malformed document type", "<!DOCTYPE a SYSTEM><a/>", "1:19: syntax error"},
        {"two document types", "<!DOCTYPE a>\n<!DOCTYPE a><a/>",
         "2:1: more than one document type"},
        {"second document type cut", "<!DOCTYPE a><!DOCTYPE b ",
         "1:13: more than one document type"},
        {"late declaration", " <?xml version='1.0'?><a/>",
         "1:2: XML or text declaration not at start of entity"},
        {"column in bytes", "<\xC3\xA4>\xC3\xA4\xC3\xA4<b></\xC3\xA4>",
         "1:14: mismatched tag: element \"b\" of line 1 is still open"},
        {"lines end with CR, LF and CR LF", "<a>\r\n\r\n\r\n<b></a>",
         "4:6: mismatched tag: element \"b\" of line 4 is still open"},
        {"lines end with CR", "<a>\r\r<b></a>",
         "3:6: mismatched tag: element \"b\" of line 3 is still open"},
    });
}

TEST(XMLReading, TakesTheVersionsThatAParserOf10Takes) {
    const auto document = [](const std::string& version) {
        return "<?xml version='" + version + "'?><a/>";
    };
    for (const char* version : {"1.0", "1.1", "1.99"})
        EXPECT_EQ(StreamOf(document(version)), "START a\nEND a\n") << version;
    for (const std::string version : {"9.9", "2.0", "1.", "1", "1.x", "1.0b", "11.0", ""})
        EXPECT_EQ(StreamOf(document(version)),
                  "1:1: XML version \"" + version + "\" is not accepted");
    EXPECT_EQ(StreamOf("<?xml version='9.9'?><!DOCTYPE a><a/>"),
              "1:1: XML version \"9.9\" is not accepted");
}

TEST(XMLReading, KeepsTheLineEndThatATextBeginsWith) {
    ExpectStreams({
        {"line feed", "<a>\n-g</a>", "START a\nTEXT \n-g\nEND a\n"},
        {"CR LF", "<a>\r\n-g</a>", "START a\nTEXT \n-g\nEND a\n"},
        {"several", "<a>\n\n -g</a>", "START a\nTEXT \n\n -g\nEND a\n"},
        {"before a reference", "<a>\n&lt;</a>", "START a\nTEXT \n<\nEND a\n"},
        {"before a section", "<a>\n<![CDATA[-g]]></a>", "START a\nTEXT \n-g\nEND a\n"},
        {"before a comment", "<a>\n<!-- c -->-g</a>", "START a\nTEXT \n-g\nEND a\n"},
        {"before an element", "<a>\n-g<b/></a>", "START a\nTEXT \n-g\nSTART b\nEND b\nEND a\n"},
    });
}

TEST(XMLReading, NamesTheDroppedRootThatIsStillOpen) {
    EXPECT_EQ(StreamOf("<List>\n<a/></b>", kListType),
              "2:7: mismatched tag: element \"List\" of line 1 is still open");
}

TEST(XMLReading, NamesTheDroppedRootThatTheDocumentEndsIn) {
    EXPECT_EQ(StreamOf("<List><a/>", kListType), "1:11: the document ends inside element \"List\"");
}

TEST(XMLReading, AcceptsNestingUpTo512) {
    std::string starts, ends;
    for (int i = 0; i < 512; ++i) {
        starts += "START a\n";
        ends += "END a\n";
    }
    EXPECT_EQ(StreamOf(Nested(512)), starts + ends);
    EXPECT_EQ(StreamOf("<List>" + Nested(512) + "</List>", kListType), starts + ends);
    EXPECT_EQ(StreamOf(Nested(513)), "1:1537: elements are nested deeper than 512");
    EXPECT_EQ(StreamOf(Nested(512, "\n<b/>")), "2:1: elements are nested deeper than 512");
    EXPECT_EQ(StreamOf(Nested(1000000)), "1:1537: elements are nested deeper than 512");
}

TEST(XMLReading, AcceptsAnElementWith65536Attributes) {
    std::string document = "<a>\n<b";
    std::string stream = "START a\nSTART b";
    for (int number = 0; number < 65536; ++number) {
        document += " a" + std::to_string(number) + "=\"\"";
        stream += " a" + std::to_string(number) + "=";
    }
    EXPECT_EQ(StreamOf(document + "/></a>"), stream + "\nEND b\nEND a\n");
    EXPECT_EQ(StreamOf(document + " more=''/></a>"),
              "2:1: an element has more than 65536 attributes");
    // What looks like such an element is none.
    const std::string text = document.substr(4) + " more=''/>";
    EXPECT_EQ(StreamOf("<a><!--" + text + "--><c/></a>"), "START a\nSTART c\nEND c\nEND a\n");
    EXPECT_EQ(StreamOf("<a><![CDATA[" + text + "]]></a>"), "START a\nTEXT " + text + "\nEND a\n");
    for (const std::string& begin : {"<!--" + text + "-->", "<![CDATA[" + text + "]]>"})
        EXPECT_EQ(StreamOf("<a>" + begin + "\n" + text + "</a>"),
                  "2:1: an element has more than 65536 attributes");
    EXPECT_EQ(StreamOf("<a><b c='" + text + "'/></a>"), "1:10: not well-formed (invalid token)");
}

TEST(XMLReading, LeavesTheListEmptyAfterAFailure) {
    TXMLList list;
    PushElements(&list, "START old\nEND old\n");
    EXPECT_FALSE(list.ReadFromText("<a><b/>", nullptr));
    EXPECT_EQ(ElementsOf(list), "");
}

TEST(XMLReading, ReplacesTheElementsAndTheError) {
    TXMLList list;
    TXMLReadError error;
    ASSERT_FALSE(list.ReadFromText("<a>", &error));
    ASSERT_TRUE(error.IsError());
    ASSERT_TRUE(list.ReadFromText("<a/>", &error));
    ASSERT_TRUE(list.ReadFromText("<b/>", &error));
    EXPECT_EQ(ElementsOf(list), "START b\nEND b\n");
    EXPECT_FALSE(error.IsError());
    EXPECT_EQ(error.Line, 0);
}

// Such tokens do not end in the part of the document that they begin in.
TEST(XMLReading, ReadsLongTokens) {
    std::string value;
    value.resize(20000000, 'x');
    EXPECT_EQ(StreamOf("<a x='" + value + "'/>"), "START a x=" + value + "\nEND a\n");
    EXPECT_EQ(StreamOf("<!--" + value + "--><a/>"), "START a\nEND a\n");
    EXPECT_EQ(StreamOf("<a>" + value + "</a>"), "START a\nTEXT " + value + "\nEND a\n");
}
