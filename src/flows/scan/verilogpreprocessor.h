#pragma once
#include "flows/scan/includefiles.h"
#include "flows/scan/scannedfile.h"
#include "flows/scan/verilogconditions.h"
#include "flows/scan/verilogdefines.h"
#include "flows/scan/veriloglexer.h"
#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

/// The tokens of a Verilog source and of what it includes, as far as conditions leave them in.
///
/// Obeys the directives that tell what is compiled and passes over the others and over attributes.
/// A macro that stands for a single word is that word, one that stands for nothing is nothing; each
/// other use is a token of its own, and the arguments follow it: no text of a macro is read.
class TVerilogPreprocessor {
public:
    /// Keeps `text` and `options`, not copies; adds to `*includes` whenever it meets one.
    TVerilogPreprocessor(std::string_view text, std::string_view path, const TScanOptions& options,
                         std::vector<TScannedInclude>* includes);

    /// The next token, or Fork, Turn and Join where conditions that nobody has decided begin, go on
    /// and end: in pairs, at the latest at the end of their file.
    void Next(TVerilogToken* token);

    TSourcePlace PlaceOf(const TVerilogToken& token);
    /// The text of an identifier in UTF-8, without a backslash that it does not need.
    static std::string NameOf(const TVerilogToken& token);
    /// Whether there was an include whose file was not read.
    bool MissesIncludes() const { return HasUnread; }

private:
    using TStep = TVerilogConditions::TStep;
    using TDirective = void (TVerilogPreprocessor::*)(TVerilogToken* token);
    struct TSource {
        TVerilogLexer Lexer;
        const std::string* Included;  // null for the file itself
        std::string_view Folder;
        std::size_t Conditions;  // that were open before it
    };

    TVerilogLexer& Lexer() { return Sources.back().Lexer; }
    bool IsWanted(TVerilogToken* token);
    bool IsPartOfAttribute(const TVerilogToken& token);
    bool LeaveSource(TVerilogToken* token);
    void ObeyDirective(TVerilogToken* token);
    static void MakeStep(TStep step, TVerilogToken* token);
    std::string_view ReadConditionName();
    std::string_view TextOfMacro(std::string_view use) const;

    void ObeyIfdef(TVerilogToken* token);
    void ObeyIfndef(TVerilogToken* token);
    void ObeyElsif(TVerilogToken* token);
    void ObeyElse(TVerilogToken* token);
    void ObeyEndif(TVerilogToken* token);
    void ObeyDefine(TVerilogToken* token);
    void ObeyUndef(TVerilogToken* token);
    void ObeyUndefineAll(TVerilogToken* token);
    void ObeyInclude(TVerilogToken* token);
    void ObeyBeginKeywords(TVerilogToken* token);
    void ObeyEndKeywords(TVerilogToken* token);
    void ObeyProtected(TVerilogToken* token);
    void ObeyProtect(TVerilogToken* token);
    void ObeyPragma(TVerilogToken* token);
    void PassWord(TVerilogToken* token);
    void PassLine(TVerilogToken* token);
    void PassTimescale(TVerilogToken* token);
    void PassNothing(TVerilogToken* token);
    static TDirective FindDirective(std::string_view word);

    void UseMacro(TVerilogToken* token) const;
    const std::string* FindIncluded(std::string_view name,
                                    const std::vector<std::string_view>& folders,
                                    std::string* path);
    void Enter(const TVerilogToken& place, std::string_view quoted);

    const TScanOptions& Options;
    std::vector<TScannedInclude>& Includes;
    TVerilogDefines Defines;
    TVerilogConditions Conditions;
    std::vector<TSource> Sources;
    std::deque<TSourceLines> Lines;    // of the file itself, then of those that were read
    std::vector<std::size_t> LinesOf;  // by the number of a file
    std::deque<std::string> Paths;     // of those that were read
    std::unordered_map<const std::string*, std::size_t> Entries;  // how often a file was entered
    std::vector<bool> KeywordSets;  // whether each is of SystemVerilog
    bool IsInAttribute = false;
    std::size_t AttributeEnd = 0;  // where its parenthesis would be, behind an asterisk
    bool HasUnread = false;
};
