#include "services/ini/inifile.h"
#include <gtest/gtest.h>

namespace {

TIniChange Set(const char* section, const char* key, const char* value) {
    return {IniAddress(section, key), value};
}
TIniChange Delete(const char* section, const char* key) {
    return {IniAddress(section, key), std::nullopt};
}

std::string ValueIn(const std::string& text, const std::string& section, const std::string& key) {
    TIniValues values;
    values.Parse(text);
    return values.Find(IniAddress(section, key)).value_or("<absent>");
}

}  // namespace

TEST(IniValues, ReadsTheLinesThatCount) {
    struct Row {
        const char* label;
        const char* text;
        const char* section;
        const char* key;
        const char* value;
    };
    const Row rows[] = {
        {"plain", "[A]\nk=v\n", "A", "k", "v"},
        {"blanks around", "  [A]\n\t k\t = v w \t\n", "A", "k", "v w"},
        {"blanks inside a section name stay", "[ A ]\nk=v\n", " A ", "k", "v"},
        {"CRLF", "[A]\r\nk=v\r\n", "A", "k", "v"},
        {"old line ends", "[A]\rk=v\rl=w\r", "A", "l", "w"},
        {"no line end", "[A]\nk=v", "A", "k", "v"},
        {"byte order mark", "\xEF\xBB\xBF[A]\nk=v", "A", "k", "v"},
        {"last bracket ends the section", "[a[1]_b]\nk=v\n", "a[1]_b", "k", "v"},
        {"rest after the bracket", "[A] x=1\nk=v\n", "A", "k", "v"},
        {"header without bracket is nothing", "[A]\nk=v\n[B\nl=w\n", "A", "l", "w"},
        {"empty value", "[A]\nk=\n", "A", "k", ""},
        {"value with equals sign", "[A]\nk=a=b\n", "A", "k", "a=b"},
        {"value with semicolon and hash", "[A]\nk=a;b #c\n", "A", "k", "a;b #c"},
        {"quotes are stripped once", "[A]\nk=\" /dll \"\n", "A", "k", " /dll "},
        {"quoted quotes", "[A]\nk=\"\"a\"\"\n", "A", "k", "\"a\""},
        {"one quote stays", "[A]\nk=\"\n", "A", "k", "\""},
        {"open quote stays", "[A]\nk=\"a\n", "A", "k", "\"a"},
        {"multi-line marks mean nothing", "[A]\nk=<<<END\nl=w\nEND\n", "A", "k", "<<<END"},
        {"comment", "[A]\n;k=v\n#k=w\n", "A", "k", "<absent>"},
        {"comment before a section", "[A]\n; c\n\n[B]\nk=v\n", "B", "k", "v"},
        {"line without equals sign", "[A]\nk\n", "A", "k", "<absent>"},
        {"line without key", "[A]\n=v\nk=w\n", "A", "k", "w"},
        {"other case of section", "[a]\nk=v\n", "A", "k", "<absent>"},
        {"other case of key", "[A]\nK=v\n", "A", "k", "<absent>"},
        {"last of a repeated key", "[A]\nk=1\nk=2\n", "A", "k", "2"},
        {"repeated section", "[A]\nk=1\n[B]\n[A]\nl=2\n", "A", "k", "1"},
        {"key before any section", "k=v\n[A]\n", "", "k", "v"},
        {"digits as section", "[1]\nk=v\n[0]\nk=w\n", "0", "k", "w"},
        {"missing section", "[A]\nk=v\n", "B", "k", "<absent>"},
        {"empty file", "", "A", "k", "<absent>"},
        {"bytes that are not UTF-8", "[\xC4]\n\xD6=\xFC\n", "\xC4", "\xD6", "\xFC"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        EXPECT_EQ(ValueIn(row.text, row.section, row.key), row.value);
    }
}

TEST(IniValues, ParseReplacesEarlierValues) {
    TIniValues values;
    values.Parse("[A]\nk=v\n");
    values.Parse("[B]\nl=w\n");
    EXPECT_EQ(values.Find(IniAddress("A", "k")), std::nullopt);
    EXPECT_EQ(values.Find(IniAddress("B", "l")), "w");
}

TEST(MergedIniText, ChangesOnlyWhatItMust) {
    struct Row {
        const char* label;
        const char* text;
        std::vector<TIniChange> changes;
        const char* merged;
    };
    const Row rows[] = {
        {"nothing", "; c\n[A]\n k = 1 \n", {}, "; c\n[A]\n k = 1 \n"},
        {"empty file", "", {Set("A", "k", "1"), Set("A", "l", "2")}, "[A]\nk=1\nl=2\n"},
        {"value in place",
         "; c\n[A]\nj=0\nk=1\nl=2\n",
         {Set("A", "k", "9")},
         "; c\n[A]\nj=0\nk=9\nl=2\n"},
        {"layout of the line stays", "[A]\n  k\t= 1 \n", {Set("A", "k", "9")}, "[A]\n  k\t= 9\n"},
        {"empty value replaced", "[A]\nk=\n", {Set("A", "k", "9")}, "[A]\nk=9\n"},
        {"value made empty", "[A]\nk=1\n", {Set("A", "k", "")}, "[A]\nk=\n"},
        {"quotes for outer blanks",
         "",
         {Set("A", "k", " /dll"), Set("A", "l", "a\t")},
         "[A]\nk=\" /dll\"\nl=\"a\t\"\n"},
        {"quotes for outer quotes",
         "",
         {Set("A", "k", "\"a\""), Set("A", "l", "\"")},
         "[A]\nk=\"\"a\"\"\nl=\"\n"},
        {"new key after the last of its section",
         "[A]\nk=1\n\n; of B\n[B]\nm=3\n",
         {Set("A", "l", "2"), Set("B", "n", "4")},
         "[A]\nk=1\nl=2\n\n; of B\n[B]\nm=3\nn=4\n"},
        {"new key in an empty section", "[A]\n\n[B]\n", {Set("A", "k", "1")}, "[A]\nk=1\n\n[B]\n"},
        {"new section at the end",
         "[A]\nk=1\n",
         {Set("B", "k", "2"), Set("C", "k", "3"), Set("B", "l", "4")},
         "[A]\nk=1\n\n[B]\nk=2\nl=4\n\n[C]\nk=3\n"},
        {"open last line is ended", "[A]\nk=1", {Set("A", "l", "2")}, "[A]\nk=1\nl=2\n"},
        {"open last line keeps its end", "[A]\nk=1", {Set("A", "k", "2")}, "[A]\nk=2"},
        {"deleted", "[A]\nk=1\nl=2\n", {Delete("A", "k")}, "[A]\nl=2\n"},
        {"deleted every time", "[A]\nk=1\nl=2\nk=3\n", {Delete("A", "k")}, "[A]\nl=2\n"},
        {"deleted but absent", "[A]\nk=1\n", {Delete("A", "l"), Delete("B", "k")}, "[A]\nk=1\n"},
        {"deleted and added", "[A]\nk=1\n", {Delete("A", "k"), Set("A", "l", "2")}, "[A]\nl=2\n"},
        {"repeated key: the one that counts",
         "[A]\nk=1\nk=2\n",
         {Set("A", "k", "9")},
         "[A]\nk=1\nk=9\n"},
        {"repeated section",
         "[A]\nk=1\n[B]\n[A]\nl=2\n",
         {Set("A", "k", "9"), Set("A", "m", "3")},
         "[A]\nk=9\n[B]\n[A]\nl=2\nm=3\n"},
        {"same key of another section",
         "[A]\nk=1\n[B]\nk=2\n",
         {Set("B", "k", "9")},
         "[A]\nk=1\n[B]\nk=9\n"},
        {"comment that looks like a key", "[A]\n;k=1\n", {Set("A", "k", "2")}, "[A]\nk=2\n;k=1\n"},
        {"CRLF",
         "[A]\r\nk=1\r\n",
         {Set("A", "l", "2"), Set("B", "m", "3")},
         "[A]\r\nk=1\r\nl=2\r\n\r\n[B]\r\nm=3\r\n"},
        {"byte order mark",
         "\xEF\xBB\xBF[A]\nk=1\n",
         {Set("A", "k", "2")},
         "\xEF\xBB\xBF[A]\nk=2\n"},
        {"byte order mark alone", "\xEF\xBB\xBF", {Set("A", "k", "2")}, "\xEF\xBB\xBF[A]\nk=2\n"},
        {"no section", "[A]\nk=1\n", {Set("", "g", "0")}, "g=0\n[A]\nk=1\n"},
        {"no section, with keys", "f=0\n[A]\nk=1\n", {Set("", "g", "0")}, "f=0\ng=0\n[A]\nk=1\n"},
        {"open last line before a new section",
         "[A]\nk=1",
         {Set("B", "k", "2")},
         "[A]\nk=1\n\n[B]\nk=2\n"},
        {"line without key is not the last key",
         "[A]\nk=1\n=z\n",
         {Set("A", "l", "2")},
         "[A]\nk=1\nl=2\n=z\n"},
        {"broken lines stay",
         "x\n[y\n=z\n[A]\nk=1\n",
         {Set("A", "k", "2")},
         "x\n[y\n=z\n[A]\nk=2\n"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        EXPECT_EQ(MergedIniText(row.text, row.changes), row.merged);
    }
}

TEST(MergedIniText, StoresAwkwardNamesSoThatTheyReadBack) {
    struct Row {
        const char* section;
        const char* key;
        const char* text;
    };
    const Row rows[] = {
        {"a]b", "k", "[a]b]\nk=v\n"},
        {" a ", "k", "[ a ]\nk=v\n"},
        {"a\nb\r", "k", "[\"a%0Ab%0D\"]\nk=v\n"},
        {"\"a\"", "k", "[\"a\"]\nk=v\n"},
        {"\"50%\"", "k", "[\"%2250%25%22\"]\nk=v\n"},
        {"50%", "50%", "[50%]\n50%=v\n"},
        {"A", "a=b", "[A]\n\"a%3Db\"=v\n"},
        {"A", "a=b~", "[A]\n\"a%3Db~\"=v\n"},
        {"A~", "k~", "[A~]\nk~=v\n"},
        {"A", ";k", "[A]\n\"%3Bk\"=v\n"},
        {"A", "#k", "[A]\n\"%23k\"=v\n"},
        {"A", "[k]", "[A]\n\"%5Bk]\"=v\n"},
        {"A", " k", "[A]\n\"%20k\"=v\n"},
        {"A", "k\t", "[A]\n\"k%09\"=v\n"},
        {"A", "\";k\"", "[A]\n\";k\"=v\n"},
        {"A", "k\nl", "[A]\n\"k%0Al\"=v\n"},
        {"A", "", "[A]\n\"\"=v\n"},
        {"A", "\"\"", "[A]\n\"%22%22\"=v\n"},
        {"A", "\"k\"", "[A]\n\"k\"=v\n"},
        {"A", "\"a%3Db\"", "[A]\n\"%22a%253Db%22\"=v\n"},
        {"A", "k;l [m]", "[A]\nk;l [m]=v\n"},
        {"gr\xC3\xB6\xC3\x9F"
         "e",
         "\xC3\xA4",
         "[gr\xC3\xB6\xC3\x9F"
         "e]\n\xC3\xA4=v\n"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(MergedIniText("", {Set(row.section, row.key, "v")}), row.text);
        EXPECT_EQ(ValueIn(row.text, row.section, row.key), "v");
        EXPECT_EQ(IniKeyOf(IniAddress(row.section, row.key)), row.key);
    }
    for (const auto& a : rows)
        for (const auto& b : rows)
            EXPECT_EQ(IniAddress(a.section, a.key) == IniAddress(b.section, b.key), &a == &b);
}

TEST(MergedIniText, ReadsBackEveryValue) {
    const std::vector<std::string> pieces{"a", " ", "\t", "\"", ";", "=", "[", "%", "\\", "<<<"};
    std::vector<std::string> values{""};
    for (std::size_t begin = 0, round = 0; round < 3; ++round)
        for (const std::size_t end = values.size(); begin < end; ++begin)
            for (const auto& piece : pieces) values.push_back(values[begin] + piece);
    std::vector<TIniChange> changes;
    for (std::size_t i = 0; i < values.size(); ++i)
        changes.push_back({IniAddress("A", std::to_string(i)), values[i]});
    TIniValues read;
    read.Parse(MergedIniText("", changes));
    ASSERT_EQ(values.size(), 1111u);
    for (const auto& change : changes) EXPECT_EQ(read.Find(change.Address), change.Value);
}
