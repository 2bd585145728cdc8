#include "services/xml/xmlprint.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

std::string Printed(const TElement& element, int indent = -1) {
    std::ostringstream stream;
    PrintXMLElement(element, stream, indent);
    return stream.fail() ? "failed" : stream.str();
}

}  // namespace

TEST(XMLPrint, PrintsEachKindOfElementBehindItsIndent) {
    TElement start(TElement::START, "a", "no text of a tag");
    start.SetAttributes({{"x", "1 & \"2\"\n"}, {"y", ""}});
    EXPECT_EQ(Printed(start), "<a x=\"1 &amp; &quot;2&quot;&#10;\" y=\"\">");
    EXPECT_EQ(Printed(start, 0), "\n<a x=\"1 &amp; &quot;2&quot;&#10;\" y=\"\">");
    EXPECT_EQ(Printed(TElement(TElement::END, "a", ""), 2), "\n  </a>");
    EXPECT_EQ(Printed(TElement(TElement::TEXT, "", "\n<\r\"")), "\n&lt;&#13;\"");
}

TEST(XMLPrint, MarksTextsThatWouldBeTakenForNothing) {
    EXPECT_EQ(Printed(TElement(TElement::TEXT, "", "")), "<![CDATA[]]>");
    EXPECT_EQ(Printed(TElement(TElement::TEXT, "", " \t")), "&#32;\t");
    EXPECT_EQ(Printed(TElement(TElement::TEXT, "", "\n")), "&#10;");
}

TEST(XMLPrint, FailsForWhatNoDocumentCanHold) {
    EXPECT_EQ(Printed(TElement(TElement::TEXT, "", "a\x01")), "failed");
    TElement start(TElement::START, "a", "");
    start.SetAttributes({{"x", "\x1F"}});
    EXPECT_EQ(Printed(start), "failed");
}
