#include "services/base/fold.h"
#include <gtest/gtest.h>

TEST(Fold, ChangesAsciiCapitalsOnly) {
    const std::string capitals = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";
    const std::string smalls = "abcdefghijklmnopqrstuvwxyz";
    for (int byte = 0; byte < 256; ++byte) {
        const char c = static_cast<char>(byte);
        const auto place = capitals.find(c);
        const char expected = place == std::string::npos ? c : smalls[place];
        EXPECT_EQ(FoldChar(c), expected) << byte;
        EXPECT_EQ(FoldCase(std::string_view(&c, 1)), std::string(1, expected)) << byte;
    }
}

TEST(Fold, ComparesAndHashesAlike) {
    struct Row {
        const char* label;
        std::string a;
        std::string b;
        bool equal;
    };
    const Row rows[] = {
        {"empty", "", "", true},
        {"letters", "/Proj/FIFO.vhd", "/pROJ/fifo.VHD", true},
        {"neighbours of the letters", "@[`{", "@[`{", true},
        {"at sign is no grave", "@", "`", false},
        {"bracket is no brace", "[", "{", false},
        {"umlauts do not fold", "\xC3\x84", "\xC3\xA4", false},
        {"prefix", "fifo", "fifo2", false},
        {"zero bytes count", std::string("a\0b", 3), std::string("a\0c", 3), false},
        {"Kelvin sign is no k", "\xE2\x84\xAA", "k", false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        EXPECT_EQ(EqualIgnoringCase(row.a, row.b), row.equal);
        EXPECT_EQ(HashIgnoringCase(row.a) == HashIgnoringCase(row.b), row.equal);
    }
}

TEST(Fold, ComparesBytesAtEachOfEightPlaces) {
    for (const char neighbour : {'Z', '\0', '\xFF'})
        for (std::size_t place = 0; place < 8; ++place)
            for (int one = 0; one < 256; ++one)
                for (int other = 0; other < 256; ++other) {
                    std::string a(8, neighbour), b(8, neighbour);
                    a[place] = static_cast<char>(one);
                    b[place] = static_cast<char>(other);
                    ASSERT_EQ(EqualIgnoringCase(a, b), FoldChar(a[place]) == FoldChar(b[place]))
                        << one << " and " << other << " at " << place;
                }
}

TEST(Fold, HashIsThatOfTheFoldedText) {
    for (const char* text : {"", "A", "/Proj/Src/FIFO.VHD",
                             "gr\xC3\x96\xC3\x9F"
                             "e"})
        EXPECT_EQ(HashIgnoringCase(text), HashIgnoringCase(FoldCase(text))) << text;
}

TEST(Fold, TrimsWhiteSpaceAtBothEnds) {
    struct Row {
        std::string_view text;
        std::string_view trimmed;
    };
    const Row rows[] = {
        {"", ""},
        {"a", "a"},
        {" \t\n\v\f\r", ""},
        {" \t\n\v\f\ra b\r\f\v\n\t ", "a b"},
        {"\xC2\xA0"
         "a",
         "\xC2\xA0"
         "a"},
        {std::string_view("\0a\0", 3), std::string_view("\0a\0", 3)},
    };
    for (const auto& row : rows) EXPECT_EQ(TrimmedView(row.text), row.trimmed);
}

TEST(Fold, ReadsTheNumberThatATextBeginsWith) {
    struct Row {
        const char* text;
        int number;
    };
    const Row rows[] = {
        {"0", 0},
        {"42", 42},
        {" \t-7 x", -7},
        {"+5", 5},
        {"+-5", 0},
        {"-+5", 0},
        {"++5", 0},
        {"+", 0},
        {"-", 0},
        {"", 0},
        {"+ 5", 0},
        {"12abc", 12},
        {"abc", 0},
        {"3.9", 3},
        {"2147483647", 2147483647},
        {"2147483648", 2147483647},
        {"+99999999999", 2147483647},
        {"-2147483648", -2147483647 - 1},
        {"-99999999999", -2147483647 - 1},
    };
    for (const auto& row : rows) EXPECT_EQ(LeadingNumber(row.text), row.number) << row.text;
}

// In a table that looks at one place behind the other, two thirds full of numbered names, also when
// the lowest bits of all hashes are the same.
TEST(Fold, SpreadsTheHashesOfNumberedNames) {
    for (const char* begin : {"/proj/rtl/f", "/a/f", "/p/src/unit_", "C:\\work\\fifo"})
        for (const std::size_t tables : {1U, 16U}) {
            std::vector<std::uint32_t> hashes;
            for (int number = 0; number < 200'000; ++number) {
                const std::size_t hash = HashIgnoringCase(begin + std::to_string(number) + ".vhd");
                if (hash % tables == 0) hashes.push_back(static_cast<std::uint32_t>(hash / 16));
            }
            std::vector<bool> isTaken(hashes.size() / 2 * 3, false);
            std::size_t steps = 0;
            for (const std::uint32_t hash : hashes) {
                std::size_t place = PlaceOfHash(hash, isTaken.size());
                ASSERT_LT(place, isTaken.size());
                for (; isTaken[place]; ++steps) place = place + 1 < isTaken.size() ? place + 1 : 0;
                isTaken[place] = true;
            }
            // Hashes without any order take one step for each name.
            EXPECT_LT(steps, 2 * hashes.size()) << begin << " in " << tables;
        }
}
