#include "flows/scan/sourceplace.h"
#include "flows/scan/sourcetext.h"
#include <algorithm>

TSourceLines::TSourceLines(std::string_view text)
    : Text(text), Starts(1, LengthOfByteOrderMark(text)), Sought(Starts[0]) {}

void TSourceLines::FindLines(std::size_t end) {
    for (; Sought < end; ++Sought) {
        if (Text[Sought] != '\n' && Text[Sought] != '\r') continue;
        const bool isHalf =
            Text[Sought] == '\r' && Sought + 1 < Text.size() && Text[Sought + 1] == '\n';
        if (!isHalf) Starts.push_back(Sought + 1);
    }
}

TSourcePlace TSourceLines::Find(std::size_t offset) {
    offset = std::clamp(offset, Starts[0], Text.size());
    FindLines(offset);
    const auto line = std::upper_bound(Starts.begin(), Starts.end(), offset) - 1;
    return {static_cast<std::uint32_t>(line - Starts.begin() + 1),
            static_cast<std::uint32_t>(offset - *line + 1)};
}
