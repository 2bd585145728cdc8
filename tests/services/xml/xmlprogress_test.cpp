#include "services/xml/xmllist.h"
#include "tests/support/progressrecorder.h"
#include <gtest/gtest.h>

namespace {

constexpr std::size_t kBlock = std::size_t{1} << 16;
// "<e>", 9 bytes of text, "</e>"
constexpr std::size_t kElement = 16;

/// A list with the type's root, of `size` bytes: 16 for each element, the first 16 for "<List>" and
/// a comment, the last 16 for the end.
std::string Document(std::size_t size) {
    std::string text = "<List><!--12-->\n";
    while (text.size() < size - kElement) text += "<e>123456789</e>";
    return text + "</List>         ";
}

std::string ReportsOf(const std::string& document) {
    RecordingProgress observer;
    TXMLList list;
    (void)list.ReadFromText(document, nullptr);
    return observer.Take();
}

}  // namespace

TEST(XmlProgress, OfAReadIsReportedOnceABlock) {
    const std::string document = Document(3 * kBlock);
    ASSERT_EQ(document.size(), 196608u);
    EXPECT_EQ(ReportsOf(document),
              "parse 0/196608\nparse 65536/196608\nparse 131072/196608\nparse 196608/196608\n"
              "parse ended\n");
}

// A report needs a tag behind the end of a block.
TEST(XmlProgress, OfAReadStandsAtTheBeginningOfATag) {
    std::string document = Document(3 * kBlock);
    document.insert(document.size() / 2, "<a/>");
    document.insert(16, "<!-- -->");
    EXPECT_EQ(ReportsOf(document),
              "parse 0/196620\nparse 65544/196620\nparse 131084/196620\nparse 196620/196620\n"
              "parse ended\n");
}

TEST(XmlProgress, OfABlockIsNotReported) {
    EXPECT_EQ(ReportsOf(Document(kBlock)), "");
}

TEST(XmlProgress, OfABrokenDocumentEnds) {
    std::string document = Document(3 * kBlock);
    document[100004] = '<';
    EXPECT_EQ(ReportsOf(document), "parse 0/196608\nparse 65536/196608\nparse ended\n");
}
