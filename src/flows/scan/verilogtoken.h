#pragma once
#include <cstddef>
#include <cstdint>
#include <string_view>

enum class TVerilogTokenKind : unsigned char {
    End,  ///< of the text
    Identifier,
    EscapedIdentifier,  ///< with its backslash
    SystemName,         ///< with its dollar
    Keyword,
    Number,
    String,
    Mark,
    Directive,  ///< a backtick and the word behind it; of the macros those without a known text
    Other,      ///< a character that the language has no use for
    Fork,       ///< a condition that nobody has decided opens
    Turn,       ///< its next branch
    Join,       ///< it closes
};

/// The reserved words that a scan minds. `Other` are all the others.
enum class TVerilogKeyword : unsigned char {
    None,
    Other,
    Always,
    AlwaysComb,
    AlwaysFf,
    AlwaysLatch,
    Automatic,
    Begin,
    Bind,
    Case,
    Casex,
    Casez,
    Cell,
    Checker,
    Class,
    Clocking,
    Config,
    Const,
    Covergroup,
    Default,
    Design,
    Disable,
    Do,
    Else,
    End,
    Endcase,
    Endchecker,
    Endclass,
    Endclocking,
    Endconfig,
    Endfunction,
    Endgenerate,
    Endgroup,
    Endinterface,
    Endmodule,
    Endpackage,
    Endprimitive,
    Endprogram,
    Endproperty,
    Endsequence,
    Endspecify,
    Endtable,
    Endtask,
    Export,
    Extends,
    Extern,
    Final,
    For,
    Foreach,
    Forever,
    Fork,
    Function,
    Generate,
    Global,
    If,
    Implements,
    Import,
    Initial,
    Instance,
    Interface,
    Join,
    JoinAny,
    JoinNone,
    Liblist,
    Local,
    Localparam,
    Macromodule,
    Module,
    New,
    Package,
    Parameter,
    Primitive,
    Priority,
    Program,
    Property,
    Protected,
    Pure,
    Rand,
    Randc,
    Randcase,
    Randsequence,
    Repeat,
    Sequence,
    Specify,
    Static,
    Table,
    Task,
    Type,
    Typedef,
    Unique,
    Unique0,
    Use,
    Var,
    Virtual,
    Wait,
    While,
};

// The marks of several characters that matter to a scan. All others come character by character,
// each its own mark.
constexpr char kVerilogScope = 's';          // ::
constexpr char kVerilogOpenAttribute = 'a';  // (* but not of (*)

struct TVerilogToken {
    TVerilogTokenKind Kind = TVerilogTokenKind::End;
    TVerilogKeyword Keyword = TVerilogKeyword::None;
    char Mark = 0;           ///< its character, or one of the constants above
    bool IsCertain = true;   ///< false under conditions that nobody has decided
    std::uint32_t File = 0;  ///< as in TSourcePlace
    std::size_t Offset = 0;
    std::string_view Text;  ///< as written, or what a macro stands for

    bool Is(TVerilogTokenKind kind) const { return Kind == kind; }
    bool Is(TVerilogKeyword keyword) const {
        return Kind == TVerilogTokenKind::Keyword && Keyword == keyword;
    }
    bool Is(char mark) const { return Kind == TVerilogTokenKind::Mark && Mark == mark; }
    /// Whether it stands for conditions, and not for a text.
    bool IsStep() const {
        return Kind == TVerilogTokenKind::Fork || Kind == TVerilogTokenKind::Turn ||
               Kind == TVerilogTokenKind::Join;
    }
    bool IsIdentifier() const {
        return Kind == TVerilogTokenKind::Identifier ||
               Kind == TVerilogTokenKind::EscapedIdentifier;
    }
};
