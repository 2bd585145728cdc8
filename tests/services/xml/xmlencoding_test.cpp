#include "services/xml/xmlencoding.h"

#include <gtest/gtest.h>

#include "services/xml/xmltext.h"
#include "tests/services/xml/documents.h"

namespace {

const std::string kUtf8Mark = "\xEF\xBB\xBF";
const std::string kLittleEndianMark = "\xFF\xFE";
const std::string kBigEndianMark = "\xFE\xFF";

std::string Declared(const std::string& encoding) {
    return "<?xml version='1.0' encoding='" + encoding + "'?>";
}

std::string TextStream(const std::string& text) {
    return "START a\nTEXT " + text + "\nEND a\n";
}

}  // namespace

TEST(XMLEncoding, ReadsEveryAcceptedEncoding) {
    const std::string utf8 =
        "<a>gr\xC3\xB6\xC3\x9F"
        "e</a>";
    const std::string single =
        "<a>gr\xF6\xDF"
        "e</a>";
    const std::string stream = TextStream(
        "gr\xC3\xB6\xC3\x9F"
        "e");
    // UTF-16 text of its own, as the letters lie beyond ASCII.
    const std::string little = Utf16("<a>gr") + std::string("\xF6\0\xDF\0", 4) + Utf16("e</a>");
    const std::string big =
        Utf16("<a>gr", true) + std::string("\0\xF6\0\xDF", 4) + Utf16("e</a>", true);
    struct Row {
        const char* Label;
        std::string Document;
    };
    const Row rows[] = {
        {"UTF-8", utf8},
        {"UTF-8 with a mark", kUtf8Mark + utf8},
        {"UTF-8 declared", Declared("utf-8") + utf8},
        {"UTF-8 with a mark, declared", kUtf8Mark + Declared("UTF-8") + utf8},
        {"undeclared and not UTF-8", single},
        {"declared without an encoding, not UTF-8", "<?xml version='1.0'?>" + single},
        {"another encoding behind the declaration",
         "<?xml version='1.0'?><!-- encoding='UTF-8' -->" + single},
        {"ISO-8859-1", Declared("ISO-8859-1") + single},
        {"ISO-8859-1 in small letters", Declared("iso-8859-1") + single},
        {"Latin-1", Declared("latin1") + single},
        {"Windows-1252", Declared("Windows-1252") + single},
        {"Windows-1252 by its number", Declared("CP1252") + single},
        {"UTF-16, low byte first", kLittleEndianMark + little},
        {"UTF-16, high byte first", kBigEndianMark + big},
        {"UTF-16 declared", kLittleEndianMark + Utf16(Declared("UTF-16")) + little},
        {"UTF-16 without a mark but declared", Utf16(Declared("UTF-16LE")) + little},
        {"the same, high byte first", Utf16(Declared("UTF-16BE"), true) + big},
        {"UTF-16 with a document type",
         kBigEndianMark + Utf16("<!DOCTYPE a SYSTEM 'a.dtd'>\n", true) + big},
    };
    for (const Row& row : rows) EXPECT_EQ(StreamOf(row.Document), stream) << row.Label;
}

TEST(XMLEncoding, KeepsBlankReferencesOfUtf16) {
    for (const bool isBigEndian : {false, true}) {
        const std::string mark = isBigEndian ? kBigEndianMark : kLittleEndianMark;
        EXPECT_EQ(StreamOf(mark + Utf16("<a>&#32; <b> </b></a>", isBigEndian)),
                  "START a\nTEXT   \nSTART b\nEND b\nEND a\n");
    }
}

TEST(XMLEncoding, SkipsADocumentTypeBeyondAscii) {
    const std::string euro = "\xAC\x20";
    EXPECT_EQ(StreamOf(kLittleEndianMark + Utf16("<!DOCTYPE a [<!--") + euro + Utf16("-->]><a/>")),
              "START a\nEND a\n");
    EXPECT_EQ(StreamOf("<!DOCTYPE a [<!--\xE2\x82\xAC-->]><a/>"), "START a\nEND a\n");
}

TEST(XMLEncoding, RefusesWhatIsNotAsDeclared) {
    struct Row {
        const char* Label;
        std::string Document;
        const char* Expected;
    };
    const Row rows[] = {
        {"declared UTF-8, but is not", Declared("UTF-8") + "<a>\xF6</a>",
         "1:42: not well-formed (invalid token)"},
        {"marked UTF-8, but is not", kUtf8Mark + "<a>\xF6</a>",
         "1:4: not well-formed (invalid token)"},
        {"declared ASCII, but is not", Declared("US-ASCII") + "<a>\xC3\xB6</a>",
         "1:45: not well-formed (invalid token)"},
        {"unknown encoding", Declared("EBCDIC") + "<a/>", "1:31: unknown encoding"},
        {"mark against declaration", kUtf8Mark + Declared("ISO-8859-1") + "<a/>",
         "1:1: the declared encoding contradicts the byte-order mark"},
        {"UTF-16 declared as UTF-8", kLittleEndianMark + Utf16(Declared("UTF-8") + "<a/>"),
         "1:61: encoding specified in XML declaration is incorrect"},
        {"UTF-8 declared as UTF-16", Declared("UTF-16") + "<a/>",
         "1:31: encoding specified in XML declaration is incorrect"},
        {"UTF-16 without mark and declaration", Utf16("<a/>"),
         "1:1: UTF-16 without a byte-order mark"},
        {"the same, high byte first", Utf16("<a/>", true), "1:1: UTF-16 without a byte-order mark"},
        {"error in the second line of UTF-16", kLittleEndianMark + Utf16("<a>\r\n <b></a>"),
         "2:13: mismatched tag: element \"b\" of line 2 is still open"},
        {"entity in UTF-16", kBigEndianMark + Utf16("<!DOCTYPE a [\n<!ENTITY e 'x'>]><a/>", true),
         "2:1: entity declarations are not accepted"},
        {"a name in Windows-1252", "<a>\n<\xE4>\n</a></\xE4>",
         "3:3: mismatched tag: element \"\xC3\xA4\" of line 2 is still open"},
        // Expat takes them there, and not in UTF-8.
        {"the micro sign as a name in Latin-1", Declared("ISO-8859-1") + "<a>\n<b\xB5/></a>",
         "2:1: not well-formed (invalid token)"},
        {"the same as an attribute's", Declared("iso-8859-1") + "<a \xB5='1'/>",
         "1:44: not well-formed (invalid token)"},
        {"the ordinal indicator in UTF-16",
         kBigEndianMark + Utf16("<a><", true) + std::string("\0\xBA", 2) + Utf16("/></a>", true),
         "1:7: not well-formed (invalid token)"},
        {"the mark is no column", kUtf8Mark + "<a></b>",
         "1:6: mismatched tag: element \"a\" of line 1 is still open"},
    };
    for (const Row& row : rows) EXPECT_EQ(StreamOf(row.Document), row.Expected) << row.Label;
}

/// The two bytes of a code unit.
std::string Unit(unsigned unit, bool isBigEndian) {
    const char high = static_cast<char>(unit >> 8U);
    const char low = static_cast<char>(unit & 0xFFU);
    return isBigEndian ? std::string{high, low} : std::string{low, high};
}

TEST(XMLEncoding, RefusesALoneSurrogateWhereverItIs) {
    constexpr unsigned kFirstHigh = 0xD83D;
    constexpr unsigned kLastHigh = 0xDBFF;
    constexpr unsigned kLow = 0xDC61;
    struct Row {
        const char* Label;
        const char* Before;
        std::vector<unsigned> Units;
        const char* After;
        const char* Expected;
    };
    const Row rows[] = {
        {"low", "<a>", {kLow}, "a</a>", "1:7: not well-formed (invalid token)"},
        {"high before a letter",
         "<a>",
         {kFirstHigh},
         "a</a>",
         "1:7: not well-formed (invalid token)"},
        {"high before a tag",
         "<a>xy",
         {kLastHigh},
         "</a>",
         "1:11: not well-formed (invalid token)"},
        {"high before a high",
         "<a>",
         {kFirstHigh, kFirstHigh, kLow},
         "</a>",
         "1:7: not well-formed (invalid token)"},
        {"high behind a pair",
         "<a>",
         {kFirstHigh, kLow, kFirstHigh},
         "</a>",
         "1:11: not well-formed (invalid token)"},
        {"in an attribute",
         "<a b='",
         {kFirstHigh},
         "c'/>",
         "1:13: not well-formed (invalid token)"},
        {"in a name", "<a", {kFirstHigh}, "b/>", "1:5: not well-formed (invalid token)"},
        {"in a comment before the root",
         "<!--",
         {kFirstHigh},
         "--><a/>",
         "1:9: not well-formed (invalid token)"},
        {"behind another fault",
         "<a></b>",
         {kFirstHigh},
         "",
         "1:11: mismatched tag: element \"a\" of line 1 is still open"},
        {"a pair", "<a>", {kFirstHigh, 0xDE00}, "</a>", "START a\nTEXT \xF0\x9F\x98\x80\nEND a\n"},
    };
    for (const Row& row : rows) {
        for (const bool isBigEndian : {false, true}) {
            std::string document = isBigEndian ? kBigEndianMark : kLittleEndianMark;
            document += Utf16(row.Before, isBigEndian);
            for (const unsigned unit : row.Units) document += Unit(unit, isBigEndian);
            document += Utf16(row.After, isBigEndian);
            EXPECT_EQ(StreamOf(document), row.Expected) << row.Label << ' ' << isBigEndian;
        }
    }
}

TEST(XMLEncoding, ReadsAllOfWindows1252) {
    const std::string expected =
        "\xE2\x82\xAC\xC2\x81\xE2\x80\x9A\xC6\x92\xE2\x80\x9E\xE2\x80\xA6\xE2\x80\xA0\xE2\x80\xA1"
        "\xCB\x86\xE2\x80\xB0\xC5\xA0\xE2\x80\xB9\xC5\x92\xC2\x8D\xC5\xBD\xC2\x8F"
        "\xC2\x90\xE2\x80\x98\xE2\x80\x99\xE2\x80\x9C\xE2\x80\x9D\xE2\x80\xA2\xE2\x80\x93\xE2\x80"
        "\x94"
        "\xCB\x9C\xE2\x84\xA2\xC5\xA1\xE2\x80\xBA\xC5\x93\xC2\x9D\xC5\xBE\xC5\xB8\xC2\xA0\xC3\xBF";
    std::string bytes;
    for (int byte = 0x80; byte <= 0xA0; ++byte) bytes += static_cast<char>(byte);
    bytes += '\xFF';
    EXPECT_EQ(StreamOf("<a>" + bytes + "</a>"), TextStream(expected));
    EXPECT_EQ(StreamOf(Declared("windows-1252") + "<a>" + bytes + "</a>"), TextStream(expected));
    EXPECT_EQ(ToUtf8(bytes), expected);
}

TEST(XMLEncoding, ReadsIso88591WithoutTheLettersOfWindows) {
    const std::string document = "<a>\x80\x9F\xA0\xFF</a>";
    const std::string expected = TextStream("\xC2\x80\xC2\x9F\xC2\xA0\xC3\xBF");
    EXPECT_EQ(StreamOf(Declared("ISO-8859-1") + document), expected);
    EXPECT_EQ(StreamOf(Declared("latin-1") + document), expected);
}
