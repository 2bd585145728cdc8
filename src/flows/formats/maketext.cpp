#include "flows/formats/maketext.h"
#include "flows/formats/exportwriter.h"

const char* MakeComplaint(std::string_view name) {
    if (HasAny(name, "\t\n\r")) return "a tabulator or line end ends it";
    if (name.starts_with('~')) return "make reads it as somebody's home";
    return HasAny(name, "\\:*?[]%=;|&()") ? "make reads one of its characters as something else"
                                          : nullptr;
}

std::string MakeName(const std::string& name) {
    std::string escaped;
    for (const char c : name) {
        if (c == ' ' || c == '#') escaped += '\\';
        if (c == '$') escaped += '$';
        escaped += c;
    }
    return escaped;
}
