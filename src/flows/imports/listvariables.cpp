#include "flows/imports/listvariables.h"
#include "services/names/environment.h"
#include <algorithm>

namespace {

bool IsNameCharacter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
}

/// A reference at the beginning of a text.
struct TReference {
    std::string Name = {};
    std::size_t Length = 0;  ///< 0: there is none
};

TReference ReferenceIn(std::string_view text, TListVariables form) {
    if (text.size() < 2) return {};
    const char bracket = text[1];
    const bool isBracketed = bracket == '{' || bracket == '(';
    if (!isBracketed && form != VARIABLES_ALL) return {};
    const std::size_t begin = isBracketed ? 2 : 1;
    std::size_t end = begin;
    while (end < text.size() && IsNameCharacter(text[end])) ++end;
    if (end == begin) return {};
    const std::string name(text.substr(begin, end - begin));
    if (!isBracketed) return {name, end};
    if (end == text.size() || text[end] != (bracket == '{' ? '}' : ')')) return {};
    return {name, end + 1};
}

}  // namespace

std::string WithVariables(std::string_view text, TListVariables form, bool keepsUnset,
                          std::vector<std::string>* unset) {
    std::string whole;
    while (!text.empty()) {
        const std::size_t plain = std::min(text.find('$'), text.size());
        whole += text.substr(0, plain);
        text.remove_prefix(plain);
        if (text.empty()) break;
        const TReference reference =
            form == VARIABLES_NONE ? TReference() : ReferenceIn(text, form);
        std::string value;
        const std::size_t length = std::max<std::size_t>(reference.Length, 1);
        if (reference.Length == 0) {
            whole += '$';
        } else if (GetEnvironmentVariableText(reference.Name.c_str(), &value)) {
            whole += value;
        } else {
            unset->push_back(reference.Name);
            if (keepsUnset) whole += text.substr(0, length);
        }
        text.remove_prefix(length);
    }
    return whole;
}
