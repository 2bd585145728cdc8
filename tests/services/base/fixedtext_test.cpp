#include "services/base/fixedtext.h"

#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "services/base/mystring.h"

namespace {

// A text with the memory that it lies in, at an odd address.
class StoredText {
public:
    explicit StoredText(std::string_view text)
        : Memory(1 + TFixedText::SizeOf(text.size()), 'x'),
          Text(TFixedText::Store(text, Memory.data() + 1)) {}
    const void* GetBegin() const { return Memory.data() + 1; }
    const TFixedText& operator*() const { return Text; }

private:
    std::vector<char> Memory;
    TFixedText Text;
};

}  // namespace

TEST(FixedText, IsATextWithAnEndingZeroInTheMemoryGiven) {
    const StoredText text("one");
    EXPECT_STREQ(*text, "one");
    EXPECT_EQ(std::strcmp(*text, "one"), 0);
    EXPECT_EQ((*text).View(), "one");
    EXPECT_EQ((*text).Str(), "one");
    EXPECT_EQ((*text).Length(), 3U);
    EXPECT_FALSE((*text).IsEmpty());
    EXPECT_EQ((*text).GetMemory(), text.GetBegin());
}

TEST(FixedText, IsEmptyWithoutMemory) {
    const TFixedText none;
    EXPECT_STREQ(none, "");
    EXPECT_TRUE(none.IsEmpty());
    EXPECT_EQ(none, *StoredText(""));
}

TEST(FixedText, ComparesByContentWithTextsOfEveryKind) {
    const StoredText one("one"), same("one"), longer("ones");
    EXPECT_TRUE(*one == *same);
    EXPECT_FALSE(*one == *longer);
    EXPECT_TRUE(*one < *longer);
    EXPECT_FALSE(*one < *same);
    EXPECT_TRUE(*one == "one");
    EXPECT_TRUE("one" == *one);
    EXPECT_FALSE(*one == "on");
    EXPECT_FALSE(*one == "ones");
    EXPECT_TRUE(*one != "One");
    EXPECT_TRUE(*one == std::string("one"));
    EXPECT_FALSE(*one == std::string_view("ones"));
    EXPECT_TRUE(*one == TMyString("one"));
    EXPECT_FALSE(TMyString("two") == *one);
    const char* const null = nullptr;
    EXPECT_FALSE(*one == null);
    EXPECT_TRUE(TFixedText() == null);
}

TEST(FixedText, MayHoldZeros) {
    const std::string_view bytes("a\0b", 3);
    const StoredText text(bytes);
    EXPECT_EQ((*text).View(), bytes);
    EXPECT_FALSE(*text == "a");
    EXPECT_FALSE(*text == std::string_view("a\0c", 3));
}

TEST(FixedText, BecomesAStringThatChanges) {
    const StoredText text(" one ");
    TMyString copied = *text;
    copied.Trim(1, 0);
    EXPECT_EQ(copied, "one");
    const TMyString direct(*text);
    EXPECT_EQ(direct, " one ");
    copied = *text;
    EXPECT_EQ(copied, " one ");
}
