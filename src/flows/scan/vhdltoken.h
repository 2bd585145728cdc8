#pragma once
#include <cstddef>

enum class TVhdlTokenKind : unsigned char {
    End,  ///< of the text
    Identifier,
    ExtendedIdentifier,  ///< with its backslashes
    Keyword,
    Number,
    String,
    BitString,
    Character,
    Delimiter,
    Other,  ///< a character that the language has no use for
};

/// The reserved words of VHDL-93. Those that later versions added are identifiers in older sources:
/// whoever reads a declaration knows them by their place.
enum class TVhdlKeyword : unsigned char {
    None,
    Abs,
    Access,
    After,
    Alias,
    All,
    And,
    Architecture,
    Array,
    Assert,
    Attribute,
    Begin,
    Block,
    Body,
    Buffer,
    Bus,
    Case,
    Component,
    Configuration,
    Constant,
    Disconnect,
    Downto,
    Else,
    Elsif,
    End,
    Entity,
    Exit,
    File,
    For,
    Function,
    Generate,
    Generic,
    Group,
    Guarded,
    If,
    Impure,
    In,
    Inertial,
    Inout,
    Is,
    Label,
    Library,
    Linkage,
    Literal,
    Loop,
    Map,
    Mod,
    Nand,
    New,
    Next,
    Nor,
    Not,
    Null,
    Of,
    On,
    Open,
    Or,
    Others,
    Out,
    Package,
    Port,
    Postponed,
    Procedure,
    Process,
    Pure,
    Range,
    Record,
    Register,
    Reject,
    Rem,
    Report,
    Return,
    Rol,
    Ror,
    Select,
    Severity,
    Shared,
    Signal,
    Sla,
    Sll,
    Sra,
    Srl,
    Subtype,
    Then,
    To,
    Transport,
    Type,
    Unaffected,
    Units,
    Until,
    Use,
    Variable,
    Wait,
    When,
    While,
    With,
    Xnor,
    Xor,
};

// The marks of delimiters of several characters that matter to a scan. All others come character by
// character, each its own mark.
constexpr char kVhdlArrow = 'a';          // =>
constexpr char kVhdlAssign = 'v';         // :=
constexpr char kVhdlOpenExternal = 'l';   // <<
constexpr char kVhdlCloseExternal = 'r';  // >>

struct TVhdlToken {
    TVhdlTokenKind Kind = TVhdlTokenKind::End;
    TVhdlKeyword Keyword = TVhdlKeyword::None;
    char Mark = 0;  ///< of a delimiter: its character, or one of the constants above
    std::size_t Offset = 0;
    std::size_t Length = 0;

    bool Is(TVhdlTokenKind kind) const { return Kind == kind; }
    bool Is(TVhdlKeyword keyword) const {
        return Kind == TVhdlTokenKind::Keyword && Keyword == keyword;
    }
    bool Is(char mark) const { return Kind == TVhdlTokenKind::Delimiter && Mark == mark; }
    bool IsIdentifier() const {
        return Kind == TVhdlTokenKind::Identifier || Kind == TVhdlTokenKind::ExtendedIdentifier;
    }
};
