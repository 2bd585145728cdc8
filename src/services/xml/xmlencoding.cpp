#include "services/xml/xmlencoding.h"

#include <algorithm>

#include "services/base/fold.h"
#include "services/xml/xmltext.h"

namespace {

constexpr const char* kWindows1252 = "windows-1252";
constexpr std::size_t kLongestDeclaration = 1024;

struct TMark {
    std::string_view Bytes;
    std::size_t UnitSize;
    std::size_t LowByte;
};
constexpr TMark kMarks[] = {{"\xEF\xBB\xBF", 1, 0}, {"\xFF\xFE", 2, 0}, {"\xFE\xFF", 2, 1}};

struct TEncodingName {
    const char* Name;
    bool IsWindows1252;
};
constexpr TEncodingName kEncodingNames[] = {
    {kWindows1252, true}, {"cp1252", true},  {"iso-8859-1", false},
    {"iso8859-1", false}, {"latin1", false}, {"latin-1", false},
};

// The document's first characters, as far as ASCII goes.
std::string GetBeginning(std::string_view document, const TXMLEncoding& encoding) {
    std::string beginning;
    document.remove_prefix(encoding.MarkLength);
    document = document.substr(0, kLongestDeclaration * encoding.UnitSize);
    for (std::size_t i = encoding.LowByte; i < document.size(); i += encoding.UnitSize)
        beginning += document[i];
    return beginning;
}

}  // namespace

std::string GetDeclaredEncoding(std::string_view document, const TXMLEncoding& encoding) {
    constexpr std::string_view kOpen = "<?xml";
    constexpr std::string_view kKey = "encoding";
    std::string beginning = GetBeginning(document, encoding);
    if (!beginning.starts_with(kOpen) || !IsXMLBlank(beginning.substr(kOpen.size(), 1))) return {};
    beginning.resize(std::min(beginning.find("?>"), beginning.size()));
    const std::size_t key = beginning.find(kKey, kOpen.size());
    if (key == std::string::npos) return {};
    const std::size_t quote = beginning.find_first_of("\"'", key + kKey.size());
    if (quote == std::string::npos) return {};
    const std::size_t end = beginning.find(beginning[quote], quote + 1);
    return beginning.substr(quote + 1, end == std::string::npos ? end : end - quote - 1);
}

bool TakesMoreInNames(std::string_view document, const TXMLEncoding& encoding) {
    if (encoding.UnitSize > 1) return true;
    const std::string declared = GetDeclaredEncoding(document, encoding);
    return !declared.empty() && !EqualIgnoringCase(declared, "UTF-8");
}

namespace {

bool ContradictsUtf8Mark(const std::string& declared) {
    return !declared.empty() && !EqualIgnoringCase(declared, "UTF-8");
}

TXMLEncoding DetectWithoutMark(std::string_view document) {
    TXMLEncoding encoding;
    const bool startsWithNul = document.size() > 1 && document[0] == '\0';
    if (startsWithNul || (document.size() > 1 && document[1] == '\0')) {
        encoding.UnitSize = 2;
        encoding.LowByte = startsWithNul ? 1 : 0;
        if (GetDeclaredEncoding(document, encoding).empty())
            encoding.Refusal = "UTF-16 without a byte-order mark";
    } else if (GetDeclaredEncoding(document, encoding).empty() && !IsUtf8(document)) {
        encoding.Name = kWindows1252;
    }
    return encoding;
}

}  // namespace

TXMLEncoding DetectXMLEncoding(std::string_view document) {
    for (const TMark& mark : kMarks) {
        if (!document.starts_with(mark.Bytes)) continue;
        TXMLEncoding encoding;
        encoding.MarkLength = mark.Bytes.size();
        encoding.UnitSize = mark.UnitSize;
        encoding.LowByte = mark.LowByte;
        // Of UTF-16 the parser itself says that the declaration is wrong.
        if (mark.UnitSize == 1 && ContradictsUtf8Mark(GetDeclaredEncoding(document, encoding)))
            encoding.Refusal = "the declared encoding contradicts the byte-order mark";
        return encoding;
    }
    return DetectWithoutMark(document);
}

bool HasLoneHighSurrogate(std::string_view document, const TXMLEncoding& encoding,
                          std::string* refused) {
    constexpr unsigned kKindBits = 0xFC;
    constexpr unsigned kHigh = 0xD8;
    constexpr unsigned kLow = 0xDC;
    if (encoding.UnitSize != 2) return false;
    const std::size_t highByte = 1 - encoding.LowByte;
    const auto isKind = [&](std::size_t unit, unsigned kind) {
        const std::size_t place = unit + highByte;
        return place < document.size() &&
               (static_cast<unsigned char>(document[place]) & kKindBits) == kind;
    };
    bool isFound = false;
    for (std::size_t unit = 0; unit + 1 < document.size(); unit += 2) {
        if (!isKind(unit, kHigh) || isKind(unit + 2, kLow)) continue;
        if (!isFound) *refused = document;
        isFound = true;
        (*refused)[unit + highByte] = static_cast<char>(kLow);
    }
    return isFound;
}

bool FillEncodingTable(const char* name, int* table) {
    for (const TEncodingName& known : kEncodingNames) {
        if (!EqualIgnoringCase(name, known.Name)) continue;
        for (int byte = 0; byte < 256; ++byte)
            table[byte] =
                known.IsWindows1252
                    ? static_cast<int>(GetWindows1252CodePoint(static_cast<unsigned char>(byte)))
                    : byte;
        return true;
    }
    return false;
}

bool EndsLine(std::string_view document, const TXMLEncoding& encoding, std::size_t place) {
    const std::size_t unit = encoding.UnitSize;
    const auto isAscii = [&](std::size_t i, char c) {
        if (i + unit > document.size() || document[i + encoding.LowByte] != c) return false;
        return unit == 1 || document[i + 1 - encoding.LowByte] == '\0';
    };
    return isAscii(place, '\n') || (isAscii(place, '\r') && !isAscii(place + unit, '\n'));
}

void LocateInDocument(std::string_view document, const TXMLEncoding& encoding, std::size_t place,
                      int* line, int* column) {
    const std::size_t unit = encoding.UnitSize;
    *line = 1;
    std::size_t lineStart = encoding.MarkLength;
    for (std::size_t i = lineStart; i < place; i += unit) {
        if (EndsLine(document, encoding, i)) {
            ++*line;
            lineStart = i + unit;
        }
    }
    *column = static_cast<int>(std::max(place, lineStart) - lineStart) + 1;
}
