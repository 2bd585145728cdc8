#include "services/xml/documenttext.h"

#include <algorithm>

#include "services/base/fold.h"
#include "services/xml/xmlencoding.h"
#include "services/xml/xmltext.h"

namespace {

constexpr char32_t kFirstSurrogate = 0xD800;
constexpr char32_t kFirstLowSurrogate = 0xDC00;
constexpr char32_t kBehindSurrogates = 0xE000;
constexpr char32_t kFirstOfPairs = 0x10000;

bool IsAsciiName(const std::string& name) {
    return EqualIgnoringCase(name, "US-ASCII");
}

char32_t GetUnit(std::string_view units, std::size_t place, std::size_t lowByte) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(units[place + i]); };
    return byte(lowByte) | static_cast<char32_t>(byte(1 - lowByte)) << 8;
}

void AppendUnit(char32_t unit, std::size_t lowByte, std::string* units) {
    char bytes[2];
    bytes[lowByte] = static_cast<char>(unit & 0xFF);
    bytes[1 - lowByte] = static_cast<char>(unit >> 8);
    units->append(bytes, 2);
}

}  // namespace

bool TDocumentText::Decode(std::string_view document) {
    const TXMLEncoding encoding = DetectXMLEncoding(document);
    if (encoding.Refusal) return Fail(encoding.Refusal);
    MarkLength = encoding.MarkLength;
    Document = document.substr(MarkLength);
    UnitSize = encoding.UnitSize;
    LowByte = encoding.LowByte;
    if (UnitSize == 2) return DecodeUnits(LowByte);
    if (encoding.Name) return DecodeBytes(encoding.Name);
    const std::string declared = GetDeclaredEncoding(document, encoding);
    if (!declared.empty() && !EqualIgnoringCase(declared, "UTF-8"))
        return DecodeBytes(declared.c_str());
    return IsUtf8(Document) || Fail("the document is not UTF-8");
}

bool TDocumentText::Fail(const char* reason) {
    Reason = reason;
    return false;
}

bool TDocumentText::DecodeUnits(std::size_t lowByte) {
    IsUtf8Document = false;
    if (Document.size() % 2 != 0) return Fail("half a character at the end");
    Decoded.reserve(Document.size() / 2);
    for (std::size_t i = 0; i < Document.size(); i += 2) {
        char32_t character = GetUnit(Document, i, lowByte);
        if (character >= kFirstSurrogate && character < kBehindSurrogates) {
            i += 2;
            const char32_t low = i < Document.size() ? GetUnit(Document, i, lowByte) : 0;
            if (character >= kFirstLowSurrogate || low < kFirstLowSurrogate ||
                low >= kBehindSurrogates)
                return Fail("half a surrogate pair");
            character =
                kFirstOfPairs + ((character - kFirstSurrogate) << 10) + (low - kFirstLowSurrogate);
        }
        AppendUtf8(character, &Decoded);
    }
    return true;
}

bool TDocumentText::DecodeBytes(const char* encoding) {
    IsUtf8Document = false;
    int table[256];
    // Of ASCII, the lower half.
    const bool isAscii = IsAsciiName(encoding);
    if (!FillEncodingTable(isAscii ? "ISO-8859-1" : encoding, table))
        return Fail("unknown encoding");
    const std::size_t known = isAscii ? 128 : 256;
    for (std::size_t byte = 0; byte < known; ++byte)
        Characters.push_back(
            {static_cast<char32_t>(table[byte]), static_cast<unsigned char>(byte)});
    std::sort(Characters.begin(), Characters.end(),
              [](const auto& one, const auto& other) { return one.Code < other.Code; });
    Decoded.reserve(Document.size());
    for (const char c : Document) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte >= known) return Fail("a byte that is no character");
        AppendUtf8(static_cast<char32_t>(table[byte]), &Decoded);
    }
    return true;
}

bool TDocumentText::CanHold(char32_t character) const {
    return Characters.empty() || FindCharacter(character);
}

const TDocumentText::TCharacter* TDocumentText::FindCharacter(char32_t code) const {
    const auto found = std::lower_bound(
        Characters.begin(), Characters.end(), code,
        [](const TCharacter& known, char32_t wanted) { return known.Code < wanted; });
    return found != Characters.end() && found->Code == code ? &*found : nullptr;
}

std::string TDocumentText::WithReferences(std::string_view text) const {
    std::string referring;
    for (std::size_t i = 0, length = 0; i < text.size(); i += length) {
        length = std::max<std::size_t>(Utf8LengthAt(text, i), 1);
        const char32_t character = GetCodePointAt(text, i);
        if (CanHold(character))
            referring += text.substr(i, length);
        else
            referring += "&#" + std::to_string(static_cast<unsigned long>(character)) + ";";
    }
    return referring;
}

std::string TDocumentText::Encode(std::string_view text) const {
    if (IsUtf8Document) return std::string(text);
    std::string bytes;
    for (std::size_t i = 0, length = 0; i < text.size(); i += length) {
        length = std::max<std::size_t>(Utf8LengthAt(text, i), 1);
        const char32_t character = GetCodePointAt(text, i);
        if (UnitSize == 1) {
            if (const TCharacter* const found = FindCharacter(character))
                bytes += static_cast<char>(found->Byte);
        } else if (character < kFirstOfPairs) {
            AppendUnit(character, LowByte, &bytes);
        } else {
            const char32_t pair = character - kFirstOfPairs;
            AppendUnit(kFirstSurrogate + (pair >> 10), LowByte, &bytes);
            AppendUnit(kFirstLowSurrogate + (pair & 0x3FF), LowByte, &bytes);
        }
    }
    return bytes;
}

// The encodings differ from UTF-8 in the length of a character alone.
std::size_t TDocumentText::GetLengthInDocument(std::string_view text) const {
    if (IsUtf8Document) return text.size();
    std::size_t length = 0;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if ((byte & 0xC0) == 0x80) continue;
        length += UnitSize == 2 && byte >= 0xF0 ? 4 : UnitSize;
    }
    return length;
}

std::vector<TTextEdit> TDocumentText::GetDocumentEdits(
    const std::vector<TTextEdit>& textEdits) const {
    const std::string_view text = GetText();
    std::vector<TTextEdit> edits;
    edits.reserve(textEdits.size());
    std::size_t textPlace = 0;
    std::size_t place = MarkLength;
    for (const TTextEdit& edit : textEdits) {
        place += GetLengthInDocument(text.substr(textPlace, edit.Begin - textPlace));
        const std::size_t removed = GetLengthInDocument(text.substr(edit.Begin, edit.Removed));
        edits.push_back({place, removed, Encode(edit.Inserted)});
        textPlace = edit.Begin + edit.Removed;
        place += removed;
    }
    return edits;
}
