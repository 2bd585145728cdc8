#include "flows/check/documentlocator.h"
#include <gtest/gtest.h>
#include <string>

namespace {

std::string PlacesIn(const std::string& document) {
    const TDocumentLocator locator(document);
    if (!locator.HasPlaces()) return "none";
    std::string text;
    for (std::size_t place = 0; place < document.size(); ++place) {
        if (document[place] != '<') continue;
        const TLinePlace found = locator.Find(static_cast<std::uint32_t>(place));
        text += std::to_string(found.Line) + ":" + std::to_string(found.Column) + " from " +
                std::to_string(found.LineBegin) + "\n";
    }
    return text;
}

}  // namespace

TEST(DocumentLocator, CountsLinesAndBytesFromOne) {
    EXPECT_EQ(PlacesIn("<a>\n  <b/>\r\n\n<c/></a>"),
              "1:1 from 0\n2:3 from 4\n4:1 from 13\n4:5 from 13\n");
    // A letter of two bytes, behind a byte-order mark.
    EXPECT_EQ(PlacesIn("\xEF\xBB\xBF<a>\xC3\xA9<b/></a>"), "1:1 from 3\n1:6 from 3\n1:10 from 3\n");
    EXPECT_EQ(PlacesIn(""), "none");
}
