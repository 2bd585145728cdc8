#include "services/xml/longtags.h"
#include "services/xml/xmlreader.h"
#include <gtest/gtest.h>

namespace {

constexpr std::size_t kNone = std::string_view::npos;

/// A start tag without its '>'.
std::string TagOf(std::size_t count, const std::string& value = "\"\"") {
    std::string tag = "<X";
    for (std::size_t number = 0; number < count; ++number)
        tag += " a" + std::to_string(number) + "=" + value;
    return tag;
}

}  // namespace

TEST(LongTags, AreFoundByTheirAttributes) {
    const std::string full = TagOf(kMaxXMLAttributes);
    const std::string overfull = TagOf(kMaxXMLAttributes + 1);
    const std::string others(1'000'000, 'a');
    const struct {
        const char* Label;
        std::string Document;
        std::size_t Place;
    } rows[] = {
        {"nothing", "", kNone},
        {"no tag", others, kNone},
        {"short tags", "<a><b c=\"\"/>" + others + "</a>", kNone},
        {"as many as are taken", full + "/>", kNone},
        {"one more", overfull + "/>", 0},
        {"behind others", "<a><b/>" + overfull + "/></a>", 7},
        {"behind a long text", "<a>" + others + overfull + "/></a>", others.size() + 3},
        {"behind a full one", full + "/>" + overfull + "/>", full.size() + 2},
        {"without an end", overfull, 0},
        {"in a comment", "<a><!--" + overfull + "--></a>", 7},
        {"= in values", TagOf(kMaxXMLAttributes, "'=\"=>='") + ">", kNone},
        {"= in text", "<a>" + std::string(1'000'000, '=') + "</a>", kNone},
        {"a quote that is not closed", "<a b=\"" + overfull + "/>", 6},
    };
    for (const auto& row : rows)
        EXPECT_EQ(FindOverfullTag(row.Document, 0), row.Place) << row.Label;
    EXPECT_EQ(FindOverfullTag(overfull + "/>", 1), kNone);
    EXPECT_EQ(FindOverfullTag(overfull + "/>" + overfull + "/>", 1), overfull.size() + 2);
}
