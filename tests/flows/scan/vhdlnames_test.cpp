#include "flows/scan/vhdlnames.h"
#include "services/hdl/identifier.h"
#include <gtest/gtest.h>

namespace {

struct TRow {
    const char* A;
    const char* B;
    bool AreEqual;
};
constexpr TRow kRows[] = {
    {"counter", "COUNTER", true},
    {"counter", "counter2", false},
    {"Z\xC3\xA4hler", "z\xC3\x84HLER", true},
    {"\xC3\x9F", "\xC3\x9F", true},
    {"\xC3\xBF", "\xC3\x9F", false},  // neither has a capital in Latin-1
    {"\\Counter\\", "\\counter\\", false},
    {"\\counter\\", "counter", false},
    {"\\a\\\\b\\", "\\a\\\\b\\", true},
};

}  // namespace

TEST(VhdlNames, AreEqualAsVhdlHasIt) {
    for (const TRow& row : kRows)
        EXPECT_EQ(FoldVhdlName(row.A) == FoldVhdlName(row.B), row.AreEqual)
            << row.A << " " << row.B;
}

TEST(VhdlNames, AreEqualWhereIdentifiersAre) {
    for (const TRow& row : kRows)
        EXPECT_EQ(TTBIdentifier(row.A, LANGUAGE_VHDL) == TTBIdentifier(row.B, LANGUAGE_VHDL),
                  row.AreEqual)
            << row.A << " " << row.B;
}

TEST(VhdlNames, FoldToSmallLetters) {
    EXPECT_EQ(FoldVhdlName("A_1\xC3\x80\xC3\x97\xC3\x9E"), "a_1\xC3\xA0\xC3\x97\xC3\xBE");
    std::string folded = "lib.";
    AppendFoldedVhdlName("PKG", &folded);
    EXPECT_EQ(folded, "lib.pkg");
}

TEST(VhdlNames, AreWordsInAnyCase) {
    EXPECT_TRUE(IsVhdlWord("Context", "context"));
    EXPECT_FALSE(IsVhdlWord("context_", "context"));
    EXPECT_FALSE(IsVhdlWord("", "context"));
}
