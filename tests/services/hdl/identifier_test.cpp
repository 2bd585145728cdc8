#include "services/hdl/identifier.h"
#include "services/base/mystring.h"
#include <gtest/gtest.h>

namespace {

std::string Escaped(const TTBIdentifier& identifier, THdlLanguage language) {
    return identifier.GetEscapedName(language, '-', false, false).Str();
}

/// All texts of up to `length` pieces.
std::vector<std::string> TextsOf(const std::vector<std::string>& pieces, int length) {
    std::vector<std::string> texts{""};
    std::size_t begin = 0;
    for (int i = 0; i < length; ++i) {
        const std::size_t end = texts.size();
        for (; begin < end; ++begin)
            for (const auto& piece : pieces) texts.push_back(texts[begin] + piece);
    }
    return texts;
}

}  // namespace

TEST(Identifier, IsEqualByTheRuleOfItsLanguage) {
    struct Row {
        const char* label;
        THdlLanguage language;
        const char* a;
        const char* b;
        bool equal;
    };
    const Row rows[] = {
        {"VHDL ignores case", LANGUAGE_VHDL, "Counter_1", "COUNTER_1", true},
        {"VHDL names differ", LANGUAGE_VHDL, "counter", "counters", false},
        {"VHDL folds Latin-1", LANGUAGE_VHDL,
         "gr\xC3\x96\xC3\x9F"
         "e",
         "GR\xC3\xB6\xC3\x9F"
         "E",
         true},
        {"VHDL first and last Latin-1 capital", LANGUAGE_VHDL, "a\xC3\x80\xC3\x9E",
         "a\xC3\xA0\xC3\xBE", true},
        {"VHDL sharp s is no y with diaeresis", LANGUAGE_VHDL, "a\xC3\x9F", "a\xC3\xBF", false},
        {"VHDL first and last letters and digits", LANGUAGE_VHDL, "azAZ09", "AZaz09", true},
        {"VHDL opening Latin-1 letter", LANGUAGE_VHDL, "\xC3\x89t", "\xC3\xA9T", true},
        {"VHDL byte before A is no letter", LANGUAGE_VHDL, "a@", "A@", false},
        {"VHDL byte behind Z is no letter", LANGUAGE_VHDL, "a[", "A[", false},
        {"VHDL byte before a is no letter", LANGUAGE_VHDL, "a`", "A`", false},
        {"VHDL byte behind z is no letter", LANGUAGE_VHDL, "a{", "A{", false},
        {"VHDL byte before 0 is no digit", LANGUAGE_VHDL, "a/", "A/", false},
        {"VHDL byte behind 9 is no digit", LANGUAGE_VHDL, "a:", "A:", false},
        {"VHDL times sign is no letter", LANGUAGE_VHDL, "a\xC3\x97", "A\xC3\x97", false},
        {"VHDL other scripts do not fold", LANGUAGE_VHDL, "a\xCE\xB1", "a\xCE\x91", false},
        {"VHDL extended keep case", LANGUAGE_VHDL, "\\a\\", "\\A\\", false},
        {"VHDL extended equal", LANGUAGE_VHDL, "\\a b\\", "\\a b\\", true},
        {"VHDL extended is never basic", LANGUAGE_VHDL, "\\a\\", "a", false},
        {"VHDL illegal counts as extended", LANGUAGE_VHDL, "a b", "\\a b\\", true},
        {"VHDL illegal keeps case", LANGUAGE_VHDL, "1a", "1A", false},
        {"VHDL closing underline is illegal", LANGUAGE_VHDL, "a_", "A_", false},
        {"VHDL double underline is illegal", LANGUAGE_VHDL, "a__b", "A__b", false},
        {"VHDL opening underline is illegal", LANGUAGE_VHDL, "_a", "_A", false},
        {"VHDL doubled backslash is one", LANGUAGE_VHDL, "\\a\\\\b\\", "a\\b", true},
        {"VHDL single inner backslash is illegal", LANGUAGE_VHDL, "\\a\\b\\", "\\\\\\a\\\\b\\\\\\",
         true},
        {"VHDL empty", LANGUAGE_VHDL, "", nullptr, true},
        {"Verilog keeps case", LANGUAGE_VERILOG, "Counter", "counter", false},
        {"Verilog escaped equals simple", LANGUAGE_VERILOG, "\\counter ", "counter", true},
        {"Verilog escaped without blank", LANGUAGE_VERILOG, "\\a+b", "\\a+b ", true},
        {"Verilog escaped by a tab", LANGUAGE_VERILOG, "\\a+b\t", "\\a+b", true},
        {"Verilog inner backslash counts", LANGUAGE_VERILOG, "\\a\\b ", "ab", false},
        {"Verilog two backslashes", LANGUAGE_VERILOG, "\\\\a ", "\\a ", false},
        {"Verilog empty", LANGUAGE_VERILOG, "", nullptr, true},
        {"C++ keeps case", LANGUAGE_CPLUSPLUS, "Main", "main", false},
        {"C++ keeps backslashes", LANGUAGE_CPLUSPLUS, "\\a", "a", false},
        {"no language", LANGUAGE_NONE, "a", "a", true},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        const TTBIdentifier a(row.a, row.language);
        const TTBIdentifier b(row.b, row.language);
        EXPECT_EQ(a == b, row.equal);
        EXPECT_EQ(b == a, row.equal);
        EXPECT_TRUE(!row.equal || a.GetHash() == b.GetHash());
        EXPECT_TRUE(a == a);
    }
}

TEST(Identifier, OfDifferentLanguagesComparesContents) {
    const TTBIdentifier vhdl("counter", LANGUAGE_VHDL);
    EXPECT_TRUE(vhdl == TTBIdentifier("counter", LANGUAGE_VERILOG));
    EXPECT_FALSE(vhdl == TTBIdentifier("Counter", LANGUAGE_VERILOG));
    EXPECT_TRUE(TTBIdentifier("\\a+b\\", LANGUAGE_VHDL) ==
                TTBIdentifier("\\a+b ", LANGUAGE_VERILOG));
}

TEST(Identifier, HasOneHashWithAllThatEqualItInAnyLanguage) {
    const TTBIdentifier vhdl("Counter", LANGUAGE_VHDL);
    const TTBIdentifier verilog("Counter", LANGUAGE_VERILOG);
    const TTBIdentifier lower("counter", LANGUAGE_VHDL);
    EXPECT_EQ(vhdl.GetHash(), verilog.GetHash());
    EXPECT_EQ(vhdl.GetHash(), lower.GetHash());
    EXPECT_NE(vhdl.GetHash(), TTBIdentifier("counters", LANGUAGE_VHDL).GetHash());
}

TEST(Identifier, KnowsItsLanguageAndWhetherItIsEmpty) {
    EXPECT_EQ(TTBIdentifier().GetLanguage(), LANGUAGE_NONE);
    EXPECT_TRUE(TTBIdentifier().IsEmpty());
    EXPECT_EQ(TTBIdentifier("a", LANGUAGE_VHDL).GetLanguage(), LANGUAGE_VHDL);
    EXPECT_FALSE(TTBIdentifier("a", LANGUAGE_VHDL).IsEmpty());
    EXPECT_TRUE(TTBIdentifier(nullptr, LANGUAGE_VHDL).IsEmpty());
}

TEST(Identifier, IsEscapedForItsLanguage) {
    struct Row {
        const char* label;
        const char* text;
        THdlLanguage language;
        THdlLanguage target;
        const char* escaped;
    };
    const Row rows[] = {
        {"VHDL basic as typed", "Counter_1", LANGUAGE_VHDL, LANGUAGE_VHDL, "Counter_1"},
        {"VHDL Latin-1 as typed",
         "gr\xC3\xB6\xC3\x9F"
         "e",
         LANGUAGE_VHDL, LANGUAGE_VHDL,
         "gr\xC3\xB6\xC3\x9F"
         "e"},
        {"VHDL extended is not shortened", "\\a\\", LANGUAGE_VHDL, LANGUAGE_VHDL, "\\a\\"},
        {"VHDL extended backslash", "\\a\\\\b\\", LANGUAGE_VHDL, LANGUAGE_VHDL, "\\a\\\\b\\"},
        {"VHDL illegal becomes extended", "a b", LANGUAGE_VHDL, LANGUAGE_VHDL, "\\a b\\"},
        {"VHDL illegal backslash", "a\\b", LANGUAGE_VHDL, LANGUAGE_VHDL, "\\a\\\\b\\"},
        {"VHDL one backslash", "\\", LANGUAGE_VHDL, LANGUAGE_VHDL, "\\\\\\\\"},
        {"VHDL reserved word untreated", "entity", LANGUAGE_VHDL, LANGUAGE_VHDL, "entity"},
        {"VHDL empty", "", LANGUAGE_VHDL, LANGUAGE_VHDL, ""},
        {"Verilog simple", "_counter$1", LANGUAGE_VERILOG, LANGUAGE_VERILOG, "_counter$1"},
        {"Verilog needlessly escaped", "\\counter ", LANGUAGE_VERILOG, LANGUAGE_VERILOG, "counter"},
        {"Verilog odd characters", "\\a+b", LANGUAGE_VERILOG, LANGUAGE_VERILOG, "\\a+b "},
        {"Verilog digit first", "1a", LANGUAGE_VERILOG, LANGUAGE_VERILOG, "\\1a "},
        {"Verilog dollar first", "$a", LANGUAGE_VERILOG, LANGUAGE_VERILOG, "\\$a "},
        {"Verilog empty", "", LANGUAGE_VERILOG, LANGUAGE_VERILOG, ""},
        {"C++ as typed", "a::b<c>", LANGUAGE_CPLUSPLUS, LANGUAGE_CPLUSPLUS, "a::b<c>"},
        {"VHDL extended for Verilog", "\\a+b\\", LANGUAGE_VHDL, LANGUAGE_VERILOG, "\\a+b "},
        {"Verilog escaped for VHDL", "\\a+b ", LANGUAGE_VERILOG, LANGUAGE_VHDL, "\\a+b\\"},
        {"Verilog simple for VHDL", "a_b", LANGUAGE_VERILOG, LANGUAGE_VHDL, "a_b"},
        {"Verilog dollar for VHDL", "a$b", LANGUAGE_VERILOG, LANGUAGE_VHDL, "\\a$b\\"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        EXPECT_EQ(Escaped(TTBIdentifier(row.text, row.language), row.target), row.escaped);
    }
}

TEST(Identifier, SpareArgumentsHaveNoEffect) {
    const TTBIdentifier identifier("a b", LANGUAGE_VHDL);
    for (const bool first : {false, true})
        for (const bool second : {false, true})
            EXPECT_EQ(identifier.GetEscapedName(LANGUAGE_VHDL, '+', first, second), "\\a b\\");
}

TEST(Identifier, ReadsBackFromItsEscapedFormAlsoTrimmed) {
    const auto texts =
        TextsOf({"a", "B", "_", "1", "$", "\\", " ", "\t", "\xC3\x84", "\xC3\x97", "\xE4"}, 4);
    ASSERT_EQ(texts.size(), 1u + 11 + 121 + 1331 + 14641);
    for (const auto language : {LANGUAGE_VHDL, LANGUAGE_VERILOG, LANGUAGE_CPLUSPLUS})
        for (const auto& text : texts) {
            const TTBIdentifier identifier(text.c_str(), language);
            const std::string escaped = Escaped(identifier, language);
            TMyString trimmed(escaped);
            trimmed.Trim(1, 0);
            ASSERT_TRUE(TTBIdentifier(escaped.c_str(), language) == identifier)
                << language << " <" << text << "> <" << escaped << ">";
            ASSERT_TRUE(TTBIdentifier(trimmed, language) == identifier)
                << language << " <" << text << "> <" << trimmed.Str() << ">";
        }
}

TEST(Identifier, UnequalOnesHaveDifferentEscapedForms) {
    const auto texts = TextsOf({"a", "A", "\\", " "}, 3);
    for (const auto language : {LANGUAGE_VHDL, LANGUAGE_VERILOG, LANGUAGE_CPLUSPLUS})
        for (const auto& a : texts)
            for (const auto& b : texts) {
                const TTBIdentifier first(a.c_str(), language);
                const TTBIdentifier second(b.c_str(), language);
                if (Escaped(first, language) != Escaped(second, language)) continue;
                ASSERT_TRUE(first == second) << language << " <" << a << "> <" << b << ">";
            }
}
