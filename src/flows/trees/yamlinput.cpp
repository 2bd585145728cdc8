#include "flows/trees/yamlinput.h"
#include <algorithm>

TYamlInput::TYamlInput(std::string_view text)
    : Text(text), MostKept(kMostKeptYamlValues + text.size() / kBytesOfKeptYamlValue) {}

TTreePlace TYamlInput::GetCut() const {
    const std::string_view before = Text.substr(0, End);
    const std::size_t lineEnd = before.rfind('\n');
    const std::size_t lineBegin = lineEnd == std::string_view::npos ? 0 : lineEnd + 1;
    return {static_cast<int>(std::count(before.begin(), before.end(), '\n')) + 1,
            static_cast<int>(End - lineBegin) + 1};
}

std::string TYamlInput::GetReason() const {
    return "more than " + std::to_string(MostKept) + " values in brackets that lie in each other";
}

// What a bracket opens and what a comma ends is a value, or text: no text has as many.
TYamlInput::int_type TYamlInput::underflow() {
    constexpr std::size_t kBlock = 2048;
    const std::string_view block = Text.substr(End, kBlock);
    if (HasTooMany || block.empty()) return traits_type::eof();
    std::size_t size = 0;
    for (; size < block.size() && !HasTooMany; ++size)
        if (std::string_view("[{,").find(block[size]) != std::string_view::npos)
            HasTooMany = ++Kept > MostKept;
    // The standard wants a pointer to what it never changes.
    char* const begin = const_cast<char*>(block.data());  // NOLINT(*-const-cast)
    setg(begin, begin, begin + size);
    End += HasTooMany ? size - 1 : size;
    return traits_type::to_int_type(*begin);
}
