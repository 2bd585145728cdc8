#include "flows/scan/verilogpreprocessor.h"
#include "flows/scan/sourcetext.h"
#include "flows/scan/verilogkeywords.h"
#include <algorithm>
#include <array>

namespace {

/// The keywords that nobody writes in an attribute: one that does not end is none.
bool EndsAttribute(const TVerilogToken& token) {
    constexpr std::array kKeywords = {TVerilogKeyword::Module, TVerilogKeyword::Endmodule,
                                      TVerilogKeyword::Begin, TVerilogKeyword::End};
    return token.Is(';') || std::any_of(kKeywords.begin(), kKeywords.end(),
                                        [&](TVerilogKeyword word) { return token.Is(word); });
}

}  // namespace

TVerilogPreprocessor::TVerilogPreprocessor(std::string_view text, std::string_view path,
                                           const TScanOptions& options,
                                           std::vector<TScannedInclude>* includes)
    : Options(options),
      Includes(*includes),
      Defines(options.Defines),
      Conditions(&Defines),
      LinesOf(1, 0) {
    Sources.push_back({TVerilogLexer(text), nullptr, FolderOfPath(path), 0});
    Lines.emplace_back(text);
}

void TVerilogPreprocessor::Next(TVerilogToken* token) {
    do Lexer().Next(token);
    while (!IsWanted(token));
    token->IsCertain = Conditions.IsCertain();
}

bool TVerilogPreprocessor::IsWanted(TVerilogToken* token) {
    if (token->Is(TVerilogTokenKind::End)) return LeaveSource(token);
    if (token->Is(TVerilogTokenKind::Directive)) {
        ObeyDirective(token);
        if (token->IsStep()) return true;
        if (token->Text.empty()) return false;
    }
    return !Conditions.IsSkipping() && !IsPartOfAttribute(*token);
}

bool TVerilogPreprocessor::IsPartOfAttribute(const TVerilogToken& token) {
    if (!IsInAttribute) {
        IsInAttribute = token.Is(kVerilogOpenAttribute);
        AttributeEnd = 0;
        return IsInAttribute;
    }
    const bool isEnd = token.Is(')') && token.Offset == AttributeEnd;
    AttributeEnd = token.Is('*') ? token.Offset + 1 : 0;
    IsInAttribute = !isEnd && !EndsAttribute(token);
    return IsInAttribute || isEnd;
}

/// At the end of a text. Makes the steps that are wanting, then goes on behind the include.
bool TVerilogPreprocessor::LeaveSource(TVerilogToken* token) {
    while (Conditions.Depth() > Sources.back().Conditions) {
        MakeStep(Conditions.End(), token);
        if (token->IsStep()) return true;
    }
    if (Sources.size() == 1) return true;
    Sources.pop_back();
    Lexer().SetSystemVerilog(KeywordSets.empty() || KeywordSets.back());
    return false;
}

void TVerilogPreprocessor::MakeStep(TStep step, TVerilogToken* token) {
    if (step == TStep::Fork) token->Kind = TVerilogTokenKind::Fork;
    if (step == TStep::Turn) token->Kind = TVerilogTokenKind::Turn;
    if (step == TStep::Join) token->Kind = TVerilogTokenKind::Join;
}

TSourcePlace TVerilogPreprocessor::PlaceOf(const TVerilogToken& token) {
    TSourcePlace place = Lines[LinesOf[token.File]].Find(token.Offset);
    place.Include = token.File;
    return place;
}

std::string TVerilogPreprocessor::NameOf(const TVerilogToken& token) {
    std::string_view name = token.Text;
    if (name.starts_with('\\')) {
        const std::string_view bare = name.substr(1);
        if (IsVerilogWord(bare) && FindVerilogKeyword(bare, true) == TVerilogKeyword::None)
            name = bare;
    }
    return IsUtf8Text(name) ? std::string(name) : Latin1ToUtf8(name);
}
