#include <gtest/gtest.h>

#include "services/xml/documentedit.h"
#include "tests/services/xml/documents.h"
#include "tests/services/xml/editing.h"

namespace {

constexpr const char* kBase = "<L><a>1</a></L>";
// e acute, the euro sign, a clef: one byte, a byte of Windows-1252 only, a surrogate pair.
constexpr const char* kWanted =
    "<L><a>\xC3\xA9\xE2\x82\xAC\xF0\x9D\x84\x9E</a><b c='\xC3\xA9'/></L>";

struct EncodingRow {
    const char* Label;
    std::string Document;
    std::string Expected;
};

std::string Units(const std::u16string& text, bool isBigEndian) {
    std::string bytes;
    for (const char16_t unit : text) {
        const char high = static_cast<char>(unit >> 8);
        const char low = static_cast<char>(unit & 0xFF);
        bytes += isBigEndian ? std::string{high, low} : std::string{low, high};
    }
    return bytes;
}

}  // namespace

TEST(DocumentEdit, KeepsTheEncodingAndReferencesWhatItLacks) {
    const std::string utf8 = "\xC3\xA9\xE2\x82\xAC\xF0\x9D\x84\x9E";
    const std::vector<EncodingRow> rows = {
        {"UTF-8", "<L>\n <!--\xC3\xBC-->\n <a>1</a>\n</L>",
         "<L>\n <!--\xC3\xBC-->\n <a>" + utf8 + "</a>\n <b c=\"\xC3\xA9\"/>\n</L>"},
        {"UTF-8 with a mark", "\xEF\xBB\xBF<L>\r\n <a>1</a>\r\n</L>",
         "\xEF\xBB\xBF<L>\r\n <a>" + utf8 + "</a>\r\n <b c=\"\xC3\xA9\"/>\r\n</L>"},
        {"Latin-1",
         "<?xml version='1.0' encoding='ISO-8859-1'?>\n<L>\n <!--\xFC-->\n <a>1</a>\n</L>",
         "<?xml version='1.0' encoding='ISO-8859-1'?>\n<L>\n <!--\xFC-->\n"
         " <a>\xE9&#8364;&#119070;</a>\n <b c=\"\xE9\"/>\n</L>"},
        {"Windows-1252",
         "<?xml version='1.0' encoding='windows-1252'?>\n<L>\n <!--\x80-->\n <a>1</a>\n</L>",
         "<?xml version='1.0' encoding='windows-1252'?>\n<L>\n <!--\x80-->\n"
         " <a>\xE9\x80&#119070;</a>\n <b c=\"\xE9\"/>\n</L>"},
        {"not declared, and not UTF-8", "<L>\n <!--\xFC-->\n <a>1</a>\n</L>",
         "<L>\n <!--\xFC-->\n <a>\xE9\x80&#119070;</a>\n <b c=\"\xE9\"/>\n</L>"},
        {"ASCII", "<?xml version='1.0' encoding='us-ascii'?>\n<L>\n <a>1</a>\n</L>",
         "<?xml version='1.0' encoding='us-ascii'?>\n<L>\n"
         " <a>&#233;&#8364;&#119070;</a>\n <b c=\"&#233;\"/>\n</L>"},
    };
    for (const EncodingRow& row : rows)
        EXPECT_EQ(Edited(row.Document, kBase, kWanted), row.Expected) << row.Label;
}

TEST(DocumentEdit, KeepsBothOrdersOfUtf16) {
    const std::u16string before =
        u"\xFEFF<?xml version='1.0' encoding='UTF-16'?>\r\n<L>\r\n"
        u"\t<!--\xD834\xDD1E \x20AC-->\r\n\t<a>1</a>\r\n</L>";
    const std::u16string after =
        u"\xFEFF<?xml version='1.0' encoding='UTF-16'?>\r\n<L>\r\n"
        u"\t<!--\xD834\xDD1E \x20AC-->\r\n\t<a>\xE9\x20AC\xD834\xDD1E</a>"
        u"\r\n\t<b c=\"\xE9\"/>\r\n</L>";
    for (const bool isBigEndian : {false, true})
        EXPECT_EQ(Edited(Units(before, isBigEndian), kBase, kWanted), Units(after, isBigEndian))
            << isBigEndian;
}

TEST(DocumentEdit, RefusesBytesThatAreNoCharacters) {
    EXPECT_EQ(Edited("\xFF\xFE" + Utf16("<L>") + "\x01\xD8" + Utf16("</L>"), kBase, kWanted),
              "refused: half a surrogate pair");
    EXPECT_EQ(Edited("\xFF\xFE" + Utf16("<L/>") + "<", kBase, kWanted),
              "refused: half a character at the end");
    EXPECT_EQ(Edited(Utf16("<L/>"), kBase, kWanted), "refused: UTF-16 without a byte-order mark");
    EXPECT_EQ(Edited("<?xml version='1.0' encoding='KOI8-R'?><L/>", kBase, kWanted),
              "refused: unknown encoding");
    EXPECT_EQ(Edited("<?xml version='1.0' encoding='us-ascii'?><L>\x80</L>", kBase, kWanted),
              "refused: a byte that is no character");
    EXPECT_EQ(Edited("\xEF\xBB\xBF<L>\xE9</L>", kBase, kWanted),
              "refused: the document is not UTF-8");
}

TEST(DocumentEdit, PassesOverTheDocumentType) {
    const std::string head =
        "<?xml version=\"1.0\"?>\n<!DOCTYPE L [\n  <!ELEMENT a ANY>\n"
        "  <!ATTLIST a x CDATA 'default'>\n  <!-- <a>1</a> -->\n]>\n<?p <a>1</a>?>\n";
    EXPECT_EQ(
        Edited(head + "<L><a>1</a></L>\n<!-- </L> -->\n", kBase, "<L><a x='default'>2</a></L>"),
        head + "<L><a x=\"default\">2</a></L>\n<!-- </L> -->\n");
    EXPECT_EQ(Edited("<!DOCTYPE L [<!ENTITY e 'x'>]>\n<L/>", kBase, kWanted),
              "refused: entity declarations are not accepted");
}

TEST(DocumentEdit, ShowsTheDifferenceInUtf8) {
    const std::string document =
        "<?xml version='1.0' encoding='ISO-8859-1'?>\n<L>\n <!--\xFC-->\n <a>1</a>\n</L>";
    EXPECT_EQ(EditOf(document, kBase, kWanted).GetUnifiedDiff("b\xC3\xBC.xml"),
              "--- b\xC3\xBC.xml\n"
              "+++ b\xC3\xBC.xml\n"
              "@@ -1,5 +1,6 @@\n"
              " <?xml version='1.0' encoding='ISO-8859-1'?>\n"
              " <L>\n"
              "  <!--\xC3\xBC-->\n"
              "- <a>1</a>\n"
              "+ <a>\xC3\xA9&#8364;&#119070;</a>\n"
              "+ <b c=\"\xC3\xA9\"/>\n"
              " </L>\n"
              "\\ No newline at end of file\n");
}
