#include "flows/scan/includefiles.h"
#include "flows/scan/veriloglexer.h"
#include "flows/scan/verilogscan.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

[[noreturn]] void Give(const char* complaint) {
    std::fprintf(stderr, "%s\n", complaint);
    std::abort();
}

void CheckTokens(std::string_view text) {
    TVerilogLexer lexer(text);
    std::size_t end = 0;
    for (TVerilogToken token = lexer.Next(); !token.Is(TVerilogTokenKind::End);
         token = lexer.Next()) {
        if (token.Offset < end || token.Text.empty()) Give("a token that overlaps or is empty");
        end = token.Offset + token.Text.size();
        if (end > text.size()) Give("a token beyond the end");
    }
}

void CheckPlace(const TSourcePlace& place, const TScannedFile& file) {
    if (place.Line < 1 || place.Column < 1 || place.Include > file.Includes.size())
        Give("something without a place");
}

void CheckNeeds(const std::vector<TUnitNeed>& needs, const TScannedFile& file) {
    for (const TUnitNeed& need : needs) {
        if (need.Unit.empty()) Give("a need without a name");
        CheckPlace(need.Place, file);
    }
}

}  // namespace

// Whatever is read, tokens stand in a row and every unit and need has a name and a place. A file
// may include itself, and a part of itself.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    CheckTokens(text);
    TIncludeFiles includes([&](const std::string& path) -> std::optional<std::string> {
        if (path == "half") return text.substr(text.size() / 2);
        if (path == "whole") return text;
        return std::nullopt;
    });
    TScanOptions options = {{{"SYNTHESIS", ""}, {"FILE", "\"half\""}}};
    options.Includes = &includes;
    const TScannedFile file = ScanVerilog(text, "", options);
    for (const TDesignUnit& unit : file.Units) {
        if (unit.Name.empty()) Give("a unit without a name");
        CheckPlace(unit.Place, file);
        CheckNeeds(unit.Needs, file);
    }
    CheckNeeds(file.Needs, file);
    for (const TScannedInclude& include : file.Includes) CheckPlace(include.Place, file);
    return 0;
}
