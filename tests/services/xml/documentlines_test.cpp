#include "services/xml/documentlines.h"
#include "services/xml/xmllist.h"
#include <gtest/gtest.h>

namespace {

std::string Utf16(const std::string& ascii) {
    std::string text = "\xff\xfe";
    for (const char c : ascii) text += std::string(1, c) + '\0';
    return text;
}

/// A word for each element: kind, name or text, and its place.
std::string PlacesOf(const std::string& document, const char* documentType = "") {
    TXMLList list;
    list.SetDocumentType(documentType);
    TXMLPlaces places = {99};
    if (!list.ReadFromText(document, nullptr, &places))
        return "unread " + std::to_string(places.size());
    std::string text;
    std::size_t number = 0;
    for (DListIterator<TElement*> element(list); element.NotAtTail(); ++element) {
        const TElement& current = *element.Current();
        text += current.ElemType == TElement::START ? "<"
                : current.ElemType == TElement::END ? "/"
                                                    : "";
        text += (current.ElemType == TElement::TEXT ? current.Text : current.Name).Str();
        text += number < places.size() ? " " + std::to_string(places[number]) + "\n" : " none\n";
        ++number;
    }
    return number == places.size() ? text : text + "too many";
}

}  // namespace

TEST(DocumentLines, EndWithEveryKindOfLineEnd) {
    using TLines = std::vector<std::size_t>;
    EXPECT_EQ(FindLinesOfDocument(""), (TLines{0}));
    EXPECT_EQ(FindLinesOfDocument("<a>\n\n<b/>\r\n\r</a>"), (TLines{0, 4, 5, 11, 12}));
    EXPECT_EQ(FindLinesOfDocument("\xef\xbb\xbf<a>\n</a>\n"), (TLines{3, 7, 12}));
    EXPECT_EQ(FindLinesOfDocument(Utf16("<a>\r\n</a>")), (TLines{2, 12}));
}

TEST(DocumentPlacesOfElements, AreTheirFirstBytes) {
    EXPECT_EQ(PlacesOf("<a>\n <b x='1'>text</b> <c/>\n</a>"),
              "<a 0\n<b 5\ntext 14\n/b 18\n<c 23\n/c 27\n/a 28\n");
    EXPECT_EQ(PlacesOf("<a>x&amp;<![CDATA[y]]><!-- n -->z<b/> t </a>"),
              "<a 0\nx&yz 3\n<b 33\n/b 37\n t  37\n/a 40\n");
    EXPECT_EQ(PlacesOf("<!DOCTYPE r SYSTEM \"r.dtd\">\n<r><a/></r>", "<!DOCTYPE r>"),
              "<a 31\n/a 35\n");
    EXPECT_EQ(PlacesOf(Utf16("<a><b>t</b></a>")), "<a 2\n<b 8\nt 14\n/b 16\n/a 24\n");
    EXPECT_EQ(PlacesOf("<a><b/></c>"), "unread 0");
}
