#pragma once
#include "services/base/fixedtext.h"
#include "services/xml/printbuffer.h"
#include "services/xml/xmlelement.h"
#include <algorithm>
#include <string_view>

// Printing of elements whose names and values were found to need no change.

inline std::string_view ViewOf(std::string_view text) {
    return text;
}
inline std::string_view ViewOf(const TFixedText& text) {
    return text.View();
}

inline char* PutPlain(char* place, std::string_view text) {
    std::memcpy(place, text.data(), text.size());
    return place + text.size();
}

inline char* PutIndent(char* place, int indent) {
    if (indent < 0) return place;
    *place++ = '\n';
    return std::fill_n(place, indent, ' ');
}

/// Prints a tag with its attributes, pairs of texts, or a text. With `indent` >= 0 a line end and
/// so many blanks go in front. False, with nothing printed, for more than the buffer takes at a
/// time.
template <class TAttributes>
bool PrintAsItIs(TPrintBuffer* buffer, int indent, TElement::ElemTypes type, std::string_view name,
                 std::string_view text, const TAttributes& attributes) {
    constexpr std::size_t kTagSigns = std::string_view("\n</>").size();
    constexpr std::size_t kAttributeSigns = std::string_view(" =\"\"").size();
    const auto blanks = static_cast<std::size_t>(std::max(indent, 0));
    std::size_t size = kTagSigns + blanks + name.size() + text.size();
    for (const auto& [attribute, value] : attributes)
        size += kAttributeSigns + ViewOf(attribute).size() + ViewOf(value).size();
    char* place = buffer->Reserve(size);
    if (!place) return false;
    place = PutIndent(place, indent);
    if (type == TElement::TEXT) {
        buffer->Advance(PutPlain(place, text));
        return true;
    }
    *place++ = '<';
    if (type == TElement::END) *place++ = '/';
    place = PutPlain(place, name);
    for (const auto& [attribute, value] : attributes) {
        *place++ = ' ';
        place = PutPlain(place, ViewOf(attribute));
        *place++ = '=';
        *place++ = '"';
        place = PutPlain(place, ViewOf(value));
        *place++ = '"';
    }
    *place++ = '>';
    buffer->Advance(place);
    return true;
}

/// Prints an element without attributes around a text; the rest as above.
inline bool PrintTextElementAsItIs(TPrintBuffer* buffer, int indent, std::string_view name,
                                   std::string_view text) {
    constexpr std::size_t kSigns = std::string_view("\n<></>").size();
    const auto blanks = static_cast<std::size_t>(std::max(indent, 0));
    char* place = buffer->Reserve(kSigns + blanks + 2 * name.size() + text.size());
    if (!place) return false;
    place = PutIndent(place, indent);
    *place++ = '<';
    place = PutPlain(place, name);
    *place++ = '>';
    place = PutPlain(place, text);
    *place++ = '<';
    *place++ = '/';
    place = PutPlain(place, name);
    *place++ = '>';
    buffer->Advance(place);
    return true;
}
