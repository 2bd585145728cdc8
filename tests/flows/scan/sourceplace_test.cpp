#include "flows/scan/sourceplace.h"
#include <gtest/gtest.h>
#include <string>
#include <string_view>

namespace {

/// The place of every byte and of the one behind the last.
std::string PlacesIn(std::string_view text) {
    TSourceLines lines(text);
    std::string places;
    for (std::size_t at = 0; at <= text.size(); ++at) {
        const TSourcePlace place = lines.Find(at);
        places += std::to_string(place.Line) + ":" + std::to_string(place.Column) + " ";
    }
    return places;
}

}  // namespace

TEST(SourceLines, EndWithEachLineEndOfTextFiles) {
    EXPECT_EQ(PlacesIn(""), "1:1 ");
    EXPECT_EQ(PlacesIn("ab\nc\n"), "1:1 1:2 1:3 2:1 2:2 3:1 ");
    EXPECT_EQ(PlacesIn("a\r\n\rb"), "1:1 1:2 1:3 2:1 3:1 3:2 ");
    EXPECT_EQ(PlacesIn("\xEF\xBB\xBF"
                       "a\n"),
              "1:1 1:1 1:1 1:1 1:2 2:1 ");
}

TEST(SourceLines, AreFoundInAnyOrder) {
    TSourceLines lines("a\nb\nc");
    EXPECT_EQ(lines.Find(4).Line, 3u);
    EXPECT_EQ(lines.Find(0).Line, 1u);
    EXPECT_EQ(lines.Find(2).Line, 2u);
    EXPECT_EQ(lines.Find(99).Column, 2u);
}
