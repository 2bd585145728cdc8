#include "flows/scan/includeindex.h"
#include "flows/scan/sourcetext.h"
#include "flows/scan/verilogkeywords.h"
#include "flows/scan/verilogpreprocessor.h"
#include <algorithm>

// What each directive does.

namespace {

// Files without guards that include each other would go on without end, or nearly so.
constexpr std::size_t kMostEntriesOfAFile = 256;

}  // namespace

TVerilogPreprocessor::TDirective TVerilogPreprocessor::FindDirective(std::string_view word) {
    struct TRow {
        std::string_view Word;
        TDirective Directive;
    };
    using P = TVerilogPreprocessor;
    static constexpr TRow kRows[] = {
        {"ifdef", &P::ObeyIfdef},
        {"ifndef", &P::ObeyIfndef},
        {"elsif", &P::ObeyElsif},
        {"else", &P::ObeyElse},
        {"endif", &P::ObeyEndif},
        {"define", &P::ObeyDefine},
        {"undef", &P::ObeyUndef},
        {"undefineall", &P::ObeyUndefineAll},
        {"include", &P::ObeyInclude},
        {"begin_keywords", &P::ObeyBeginKeywords},
        {"end_keywords", &P::ObeyEndKeywords},
        {"protected", &P::ObeyProtected},
        {"protect", &P::ObeyProtect},
        {"pragma", &P::ObeyPragma},
        {"timescale", &P::PassTimescale},
        {"default_nettype", &P::PassWord},
        {"unconnected_drive", &P::PassWord},
        {"default_decay_time", &P::PassWord},
        {"default_trireg_strength", &P::PassWord},
        {"line", &P::PassLine},
        {"uselib", &P::PassLine},
        {"resetall", &P::PassNothing},
        {"celldefine", &P::PassNothing},
        {"endcelldefine", &P::PassNothing},
        {"nounconnected_drive", &P::PassNothing},
        {"endprotect", &P::PassNothing},
        {"endprotected", &P::PassNothing},
        {"delay_mode_path", &P::PassNothing},
        {"delay_mode_unit", &P::PassNothing},
        {"delay_mode_zero", &P::PassNothing},
        {"delay_mode_distributed", &P::PassNothing},
        {"suppress_faults", &P::PassNothing},
        {"nosuppress_faults", &P::PassNothing},
        {"enable_portfaults", &P::PassNothing},
        {"disable_portfaults", &P::PassNothing},
    };
    for (const TRow& row : kRows)
        if (row.Word == word) return row.Directive;
    return nullptr;
}

/// Leaves in `*token` what takes the place of the directive: a step, a word, the use of a macro, or
/// nothing, with an empty text.
void TVerilogPreprocessor::ObeyDirective(TVerilogToken* token) {
    const TDirective directive = FindDirective(token->Text.substr(1));
    if (!directive) return UseMacro(token);
    (this->*directive)(token);
    if (!token->IsStep()) token->Text = {};
}

/// What a use of a macro stands for, as far as macros stand for each other.
std::string_view TVerilogPreprocessor::TextOfMacro(std::string_view use) const {
    constexpr int kMostSteps = 16;
    std::string_view text = use;
    for (int step = 0; step < kMostSteps && text.starts_with('`'); ++step) {
        if (!IsVerilogWord(text.substr(1))) return {};
        text = Defines.FindText(text.substr(1));
        text = text.substr(0, text.find("//"));
        const std::size_t last = text.find_last_not_of(" \t");
        text = text.substr(0, last == std::string_view::npos ? 0 : last + 1);
    }
    return text;
}

void TVerilogPreprocessor::UseMacro(TVerilogToken* token) const {
    if (Defines.IsEmpty(token->Text.substr(1))) {
        token->Text = {};
        return;
    }
    const std::string_view text = TextOfMacro(token->Text);
    const bool isEscaped =
        text.starts_with('\\') && text.find_first_of(" \t\r\n") == std::string_view::npos;
    if (!isEscaped && !IsVerilogWord(text)) return;
    token->Text = text;
    token->Kind = isEscaped ? TVerilogTokenKind::EscapedIdentifier : TVerilogTokenKind::Identifier;
    token->Keyword = FindVerilogKeyword(text, true);
    if (token->Keyword != TVerilogKeyword::None) token->Kind = TVerilogTokenKind::Keyword;
}

/// The one name of a condition; empty for an expression.
std::string_view TVerilogPreprocessor::ReadConditionName() {
    const std::string_view name = Lexer().ReadWord();
    if (name.empty()) Lexer().ReadLine();
    return name;
}

void TVerilogPreprocessor::ObeyIfdef(TVerilogToken* token) {
    MakeStep(Conditions.If(ReadConditionName(), true), token);
}

void TVerilogPreprocessor::ObeyIfndef(TVerilogToken* token) {
    const std::string_view name = ReadConditionName();
    std::string_view next;
    // The guard of a file, or a default value. Either way nothing is lost when it is taken.
    const bool isGuard = !name.empty() && !Conditions.IsSkipping() &&
                         Defines.Find(name) == TVerilogDefined::Maybe &&
                         Lexer().PeekDirective(&next) == "`define" && next == name;
    if (isGuard) Defines.Assume(name, TVerilogDefined::No);
    MakeStep(Conditions.If(name, false), token);
}

void TVerilogPreprocessor::ObeyElsif(TVerilogToken* token) {
    const std::string_view name = ReadConditionName();
    if (Conditions.Depth() <= Sources.back().Conditions) return;
    MakeStep(Conditions.Elsif(name), token);
}

void TVerilogPreprocessor::ObeyElse(TVerilogToken* token) {
    if (Conditions.Depth() <= Sources.back().Conditions) return;
    MakeStep(Conditions.Else(), token);
}

void TVerilogPreprocessor::ObeyEndif(TVerilogToken* token) {
    if (Conditions.Depth() <= Sources.back().Conditions) return;
    MakeStep(Conditions.End(), token);
}

void TVerilogPreprocessor::ObeyDefine(TVerilogToken*) {
    const std::string_view name = Lexer().ReadWord();
    const bool hasParameters = Lexer().SkipParameters();
    std::string_view text = Lexer().ReadMacroText();
    const bool isComment =
        text.starts_with("//") && text.find_first_of("\r\n") == std::string_view::npos;
    if (isComment) text = {};
    if (!Conditions.IsSkipping() && !name.empty()) Defines.Define(name, text, hasParameters);
}

void TVerilogPreprocessor::ObeyUndef(TVerilogToken*) {
    const std::string_view name = Lexer().ReadWord();
    if (!Conditions.IsSkipping() && !name.empty()) Defines.Assume(name, TVerilogDefined::No);
}

void TVerilogPreprocessor::ObeyUndefineAll(TVerilogToken*) {
    if (!Conditions.IsSkipping()) Defines.Forget();
}

void TVerilogPreprocessor::ObeyInclude(TVerilogToken* token) {
    std::string_view quoted = Lexer().ReadQuoted();
    if (!quoted.empty()) {
        token->Offset = Lexer().Offset() - quoted.size();
    } else {
        quoted = Lexer().ReadLine();
        quoted = quoted.starts_with('`') ? TextOfMacro(quoted) : std::string_view();
    }
    if (quoted.size() > 2 && !Conditions.IsSkipping()) Enter(*token, quoted);
}

const std::string* TVerilogPreprocessor::FindIncluded(std::string_view name,
                                                      const std::vector<std::string_view>& folders,
                                                      std::string* path) {
    const std::string* const text = FindIncludeFile(Options.Includes, name, folders, path);
    if (text || !Options.Elsewhere) return text;
    const std::string folder = Options.Elsewhere->FindFolder(name, Sources.back().Folder);
    return folder.empty() ? nullptr : FindIncludeFile(Options.Includes, name, {folder}, path);
}

void TVerilogPreprocessor::Enter(const TVerilogToken& place, std::string_view quoted) {
    const bool isAngled = quoted.front() == '<';
    if ((!isAngled && quoted.front() != '"') || quoted.back() != (isAngled ? '>' : '"')) return;
    const std::string_view name = quoted.substr(1, quoted.size() - 2);
    std::vector<std::string_view> folders;
    if (!isAngled) folders.push_back(Sources.back().Folder);
    folders.insert(folders.end(), Options.IncludeFolders.begin(), Options.IncludeFolders.end());
    TScannedInclude& include = Includes.emplace_back();
    include.Name = IsUtf8Text(name) ? std::string(name) : Latin1ToUtf8(name);
    include.IsAngled = isAngled;
    include.IsCertain = Conditions.IsCertain();
    include.Place = PlaceOf(place);
    const std::string* const text = FindIncluded(name, folders, &include.Path);
    LinesOf.push_back(Lines.size());
    if (!text) {
        HasUnread = true;
        return;
    }
    const bool isOpen = std::any_of(Sources.begin(), Sources.end(), [text](const TSource& source) {
        return source.Included == text;
    });
    if (isOpen || ++Entries[text] > kMostEntriesOfAFile) return;
    Lines.emplace_back(*text);
    const std::string& path = Paths.emplace_back(include.Path);
    Sources.push_back({TVerilogLexer(*text, static_cast<std::uint32_t>(Includes.size())), text,
                       FolderOfPath(path), Conditions.Depth()});
    Lexer().SetSystemVerilog(KeywordSets.empty() || KeywordSets.back());
}

void TVerilogPreprocessor::ObeyBeginKeywords(TVerilogToken*) {
    // 1364 is Verilog, 1800 SystemVerilog.
    KeywordSets.push_back(!Lexer().ReadQuoted().starts_with("\"1364"));
    Lexer().SetSystemVerilog(KeywordSets.back());
}

void TVerilogPreprocessor::ObeyEndKeywords(TVerilogToken*) {
    if (!KeywordSets.empty()) KeywordSets.pop_back();
    Lexer().SetSystemVerilog(KeywordSets.empty() || KeywordSets.back());
}

void TVerilogPreprocessor::ObeyProtected(TVerilogToken*) {
    Lexer().SkipEnvelope();
}

/// Without more, a text that is still to be encrypted.
void TVerilogPreprocessor::ObeyProtect(TVerilogToken*) {
    if (Lexer().ReadLine().starts_with("begin_protected")) Lexer().SkipEnvelope();
}

void TVerilogPreprocessor::ObeyPragma(TVerilogToken*) {
    const bool isProtect = Lexer().ReadWord() == "protect";
    if (Lexer().ReadLine().starts_with("begin_protected") && isProtect) Lexer().SkipEnvelope();
}

void TVerilogPreprocessor::PassWord(TVerilogToken*) {
    Lexer().ReadWord();
}

void TVerilogPreprocessor::PassLine(TVerilogToken*) {
    Lexer().ReadLine();
}

void TVerilogPreprocessor::PassTimescale(TVerilogToken*) {
    Lexer().SkipTimescale();
}

void TVerilogPreprocessor::PassNothing(TVerilogToken*) {}
