#include "flows/scan/vhdlnames.h"
#include <algorithm>

bool IsVhdlWord(std::string_view text, std::string_view lowerCase) {
    return std::equal(text.begin(), text.end(), lowerCase.begin(), lowerCase.end(),
                      [](char a, char b) { return FoldAscii(a) == b; });
}

void AppendFoldedVhdlName(std::string_view name, std::string* folded) {
    if (name.starts_with('\\')) {
        *folded += name;
        return;
    }
    char before = 0;
    for (const char c : name) {
        // The capitals of Latin-1 are C3 80 to C3 9E in UTF-8, the sign for times between them.
        const auto byte = static_cast<unsigned char>(c);
        const bool isCapital = before == '\xC3' && byte >= 0x80 && byte <= 0x9E && byte != 0x97;
        *folded += isCapital ? static_cast<char>(byte + 0x20) : FoldAscii(c);
        before = c;
    }
}

std::string FoldVhdlName(std::string_view name) {
    std::string folded;
    AppendFoldedVhdlName(name, &folded);
    return folded;
}
