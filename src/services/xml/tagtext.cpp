#include "services/xml/tagtext.h"

#include <algorithm>

#include "services/xml/xmltext.h"

namespace {

constexpr std::string_view kCdataBegin = "<![CDATA[";
constexpr std::string_view kCdataEnd = "]]>";

// Places in a text that was cut short are at its end.
std::size_t FindBlankEnd(std::string_view text, std::size_t place) {
    return std::min(text.find_first_not_of(kXMLBlanks, place), text.size());
}

std::size_t FindBehind(std::string_view text, std::string_view mark, std::size_t place) {
    const std::size_t found = text.find(mark, place);
    return found == std::string_view::npos ? text.size() : found + mark.size();
}

// `reference` is what stands between '&' and ';'.
void AppendReference(std::string_view reference, std::string* text) {
    struct TNamed {
        std::string_view Name;
        char Character;
    };
    constexpr TNamed kNamed[] = {
        {"amp", '&'}, {"lt", '<'}, {"gt", '>'}, {"quot", '"'}, {"apos", '\''}};
    for (const TNamed& named : kNamed)
        if (reference == named.Name) return text->push_back(named.Character);
    const bool isHex = reference.starts_with("#x");
    char32_t code = 0;
    for (const char c : reference.substr(isHex ? 2 : 1)) {
        const auto digit = static_cast<char32_t>(c <= '9' ? c - '0' : (c | 0x20) - 'a' + 10);
        code = code * (isHex ? 16 : 10) + digit;
    }
    AppendUtf8(code, text);
}

std::string Resolve(std::string_view raw, bool hasReferences, bool isAttribute) {
    if (raw.find_first_of("&\r\n\t") == std::string_view::npos) return std::string(raw);
    std::string text;
    for (std::size_t i = 0; i < raw.size(); ++i) {
        const char c = raw[i];
        if (c == '&' && hasReferences) {
            const std::size_t end = std::min(raw.find(';', i), raw.size());
            AppendReference(raw.substr(i + 1, end - i - 1), &text);
            i = end;
        } else if (c == '\r' || c == '\n' || c == '\t') {
            if (c == '\r' && i + 1 < raw.size() && raw[i + 1] == '\n') ++i;
            text += isAttribute ? ' ' : c == '\r' ? '\n' : c;
        } else {
            text += c;
        }
    }
    return text;
}

}  // namespace

std::size_t FindNameEnd(std::string_view text, std::size_t begin) {
    const auto isEnd = [](char c) {
        return c == '>' || c == ' ' || c == '/' || c == '\t' || c == '\r' || c == '\n';
    };
    const auto end =
        std::find_if(text.begin() + static_cast<std::ptrdiff_t>(std::min(begin + 1, text.size())),
                     text.end(), isEnd);
    return static_cast<std::size_t>(end - text.begin());
}

std::vector<TAttributePlace> FindAttributes(std::string_view text, std::size_t begin) {
    std::vector<TAttributePlace> attributes;
    for (std::size_t blank = FindNameEnd(text, begin);;) {
        const std::size_t name = FindBlankEnd(text, blank);
        if (name == text.size() || text[name] == '>' || text[name] == '/') return attributes;
        const std::size_t nameEnd = text.find_first_of(" \t\r\n=", name);
        const std::size_t quote = text.find_first_of("\"'", nameEnd);
        if (quote == std::string_view::npos) return attributes;
        const std::size_t end = text.find(text[quote], quote + 1);
        if (end == std::string_view::npos) return attributes;
        attributes.push_back({text.substr(name, nameEnd - name),
                              text.substr(quote + 1, end - quote - 1), blank, name, end});
        blank = end + 1;
    }
}

const TAttributePlace* FindAttribute(const std::vector<TAttributePlace>& attributes,
                                     std::string_view name) {
    const auto found =
        std::find_if(attributes.begin(), attributes.end(),
                     [&](const TAttributePlace& attribute) { return attribute.Name == name; });
    return found == attributes.end() ? nullptr : &*found;
}

std::vector<TTextPiece> FindTextPieces(std::string_view text, std::size_t begin, std::size_t end) {
    text = text.substr(0, end);
    std::vector<TTextPiece> pieces;
    while (begin < end) {
        const std::string_view rest = text.substr(begin);
        std::size_t next = std::min(text.find('<', begin), end);
        if (next > begin) {
            pieces.push_back({begin, next, false});
        } else if (rest.starts_with(kCdataBegin)) {
            next = FindBehind(text, kCdataEnd, begin);
            pieces.push_back({begin, next, true});
        } else {
            next = rest.starts_with("<!--") ? FindBehind(text, "-->", begin + 4)
                                            : FindBehind(text, "?>", begin);
        }
        begin = next;
    }
    return pieces;
}

std::string GetPieceText(std::string_view text, const TTextPiece& piece) {
    const std::string_view raw = text.substr(piece.Begin, piece.End - piece.Begin);
    if (!piece.IsCdata) return Resolve(raw, true, false);
    return Resolve(
        raw.substr(kCdataBegin.size(), raw.size() - kCdataBegin.size() - kCdataEnd.size()), false,
        false);
}

std::string GetAttributeText(std::string_view value) {
    return Resolve(value, true, true);
}
