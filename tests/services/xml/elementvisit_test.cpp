#include "services/xml/elementvisit.h"

#include <gtest/gtest.h>

#include "tests/services/xml/documents.h"

namespace {

/// What is visited, a line for each element with its place, then the reason of a failure.
std::string Visited(std::string document, const char* documentType = "") {
    std::string lines;
    TXMLReadError error;
    const auto visit = [&lines](const TMetElement& element) {
        lines += std::to_string(element.Place) + " " + TextOfMet(element);
    };
    if (!VisitElements(&document, documentType, PROGRESS_READ_DOCUMENT, visit, &error))
        lines += TextOf(error) + "\n";
    return lines;
}

}  // namespace

TEST(ElementVisit, MeetsElementsAndTheirPlacesInDocumentOrder) {
    EXPECT_EQ(Visited("<a x='1' b=\"2\">one<b/> two<!-- -->2 <c>\n&#32;</c>\n</a>"),
              "0 START a x=1 b=2\n"
              "15 TEXT one\n"
              "18 START b\n"
              "22 END b\n"
              "22 TEXT  two2 \n"
              "36 START c\n"
              "39 TEXT \n \n"
              "45 END c\n"
              "50 END a\n");
    EXPECT_EQ(Visited("<List><a/></List>", kListType), "6 START a\n10 END a\n");
    EXPECT_EQ(Visited("\xEF\xBB\xBF<a><![CDATA[]]></a>"), "3 START a\n6 TEXT \n18 END a\n");
}

TEST(ElementVisit, TellsWhatIsWrongBehindTheElementsInFrontOfIt) {
    EXPECT_EQ(Visited("<a>\n<b>x</c></a>"),
              "0 START a\n4 START b\n"
              "2:7: mismatched tag: element \"b\" of line 2 is still open\n");
    EXPECT_EQ(Visited("<List><a>", kListType),
              "6 START a\n1:10: the document ends inside element \"a\"\n");
    EXPECT_EQ(Visited(""), "1:1: no element found\n");
}

TEST(ElementVisit, LetsGoOfTheDocumentBeforeTheFirstElement) {
    std::string document = "<a b='c'>text</a>";
    std::string lines;
    EXPECT_TRUE(VisitElements(
        &document, "", PROGRESS_READ_DOCUMENT,
        [&](const TMetElement& element) {
            lines += std::to_string(document.size()) + " " + TextOfMet(element);
        },
        nullptr));
    EXPECT_EQ(lines, "0 START a b=c\n0 TEXT text\n0 END a\n");
}

TEST(ElementVisit, FindsAttributesByTheirNames) {
    std::string document = "<a b='1' c=''/>";
    std::string values;
    EXPECT_TRUE(VisitElements(
        &document, "", PROGRESS_READ_DOCUMENT,
        [&](const TMetElement& element) {
            for (const char* name : {"b", "c", "B", "d"})
                values += "[" + std::string(element.GetAttribute(name)) + "]";
        },
        nullptr));
    EXPECT_EQ(values, "[1][][][][][][][]");
}
