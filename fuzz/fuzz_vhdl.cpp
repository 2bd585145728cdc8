#include "flows/scan/vhdllexer.h"
#include "flows/scan/vhdlscan.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace {

[[noreturn]] void Give(const char* complaint) {
    std::fprintf(stderr, "%s\n", complaint);
    std::abort();
}

void CheckTokens(std::string_view text, const TScanOptions& options) {
    TVhdlLexer lexer(text, options);
    std::size_t end = 0;
    for (TVhdlToken token = lexer.Next(); !token.Is(TVhdlTokenKind::End); token = lexer.Next()) {
        if (token.Offset < end || token.Length == 0) Give("a token that overlaps or is empty");
        end = token.Offset + token.Length;
        if (end > text.size()) Give("a token beyond the end");
        if (token.IsIdentifier() && lexer.NameOf(token).empty())
            Give("an identifier without a name");
    }
}

}  // namespace

// Whatever is read, tokens stand in a row and every unit and need has a name and a place.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const TScanOptions options = {{{"TOOL", "x"}, {"VHDL_VERSION", "2008"}}};
    CheckTokens(text, options);
    for (const TDesignUnit& unit : ScanVhdl(text, options).Units) {
        if (unit.Name.empty() || unit.Place.Line < 1 || unit.Place.Column < 1)
            Give("a unit without a name or place");
        for (const TUnitNeed& need : unit.Needs)
            if ((need.Unit.empty() && need.Library.empty()) || need.Place.Line < 1)
                Give("a need without a name or place");
    }
    return 0;
}
