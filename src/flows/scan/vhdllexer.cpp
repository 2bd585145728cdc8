#include "flows/scan/vhdllexer.h"
#include "flows/scan/sourcetext.h"
#include "flows/scan/vhdlkeywords.h"
#include "flows/scan/vhdlnames.h"
#include <algorithm>
#include <array>

namespace {

enum TCharClass : unsigned char { CLASS_OTHER, CLASS_BLANK, CLASS_LETTER, CLASS_DIGIT, CLASS_HIGH };

constexpr auto MakeClasses() {
    std::array<TCharClass, 256> classes{};
    // Control characters too: nothing that they may do is of use to a scan.
    for (std::size_t c = 0; c <= ' '; ++c) classes[c] = CLASS_BLANK;
    classes[0x7F] = CLASS_BLANK;
    for (std::size_t c = '0'; c <= '9'; ++c) classes[c] = CLASS_DIGIT;
    for (std::size_t c = 'a'; c <= 'z'; ++c) classes[c] = classes[c - 'a' + 'A'] = CLASS_LETTER;
    for (std::size_t c = 0x80; c <= 0xFF; ++c) classes[c] = CLASS_HIGH;
    return classes;
}
constexpr auto kClasses = MakeClasses();

TCharClass ClassOf(char c) {
    return kClasses[static_cast<unsigned char>(c)];
}
bool IsWordChar(char c) {
    return ClassOf(c) == CLASS_LETTER || ClassOf(c) == CLASS_DIGIT || c == '_';
}

/// Every format effector but the horizontal tabulation ends a line.
bool EndsLine(char c) {
    return c >= '\n' && c <= '\r';
}

constexpr std::string_view kBitStringBases[] = {"b",  "o",  "x",  "d",  "ub",
                                                "uo", "ux", "sb", "so", "sx"};

bool IsBitStringBase(std::string_view text) {
    return text.size() <= 2 &&
           std::any_of(std::begin(kBitStringBases), std::end(kBitStringBases),
                       [text](std::string_view base) { return IsVhdlWord(text, base); });
}

// Words of later versions that a character literal may follow. In older sources they name objects,
// whose attributes stand without a blank.
constexpr std::string_view kWordsBeforeLiterals[] = {
    "force", "always",   "never",  "eventually",       "assume",
    "cover", "restrict", "strong", "assume_guarantee", "restrict_guarantee"};

bool IsWordBeforeLiteral(std::string_view text) {
    return std::any_of(std::begin(kWordsBeforeLiterals), std::end(kWordsBeforeLiterals),
                       [text](std::string_view word) { return IsVhdlWord(text, word); });
}

}  // namespace

TVhdlLexer::TVhdlLexer(std::string_view text, const TScanOptions& options)
    : Text(text), Conditions(options.Defines), At(LengthOfByteOrderMark(text)) {
    if (At > 0) Encoding = TEncoding::Utf8;
}

bool TVhdlLexer::IsUtf8() {
    if (Encoding == TEncoding::Undecided)
        Encoding = IsUtf8Text(Text) ? TEncoding::Utf8 : TEncoding::Latin1;
    return Encoding == TEncoding::Utf8;
}

std::string TVhdlLexer::NameOf(const TVhdlToken& token) {
    const std::string_view text = TextOf(token);
    const bool isAscii =
        std::none_of(text.begin(), text.end(), [](char c) { return ClassOf(c) == CLASS_HIGH; });
    return isAscii || IsUtf8() ? std::string(text) : Latin1ToUtf8(text);
}

/// The length of the character at `at`, in bytes, of whatever is there.
std::size_t TVhdlLexer::CharacterLength(std::size_t at) {
    if (ClassOf(CharAt(at)) != CLASS_HIGH || !IsUtf8()) return 1;
    return std::max<std::size_t>(LengthOfUtf8Character(Text.substr(at)), 1);
}

/// The length of the letter beyond ASCII at `at`; 0 when there is none.
std::size_t TVhdlLexer::LetterLength(std::size_t at) {
    if (ClassOf(CharAt(at)) != CLASS_HIGH) return 0;
    auto byte = static_cast<unsigned char>(Text[at]);
    const std::size_t length = IsUtf8() ? 2 : 1;
    if (length == 2)
        byte = byte == 0xC3 && at + 1 < Text.size()
                   ? static_cast<unsigned char>(Text[at + 1] + 0x40)
                   : 0;
    const bool isSign = byte == 0xD7 || byte == 0xF7;  // for times and division
    return byte >= 0xC0 && !isSign ? length : 0;
}

std::size_t TVhdlLexer::EndOfLine(std::size_t at) const {
    while (at < Text.size() && !EndsLine(Text[at])) ++at;
    return at;
}

TVhdlToken TVhdlLexer::Next() {
    while (true) {
        const TVhdlToken token = ReadToken();
        if (token.Is(TVhdlTokenKind::End) || !Conditions.IsSkipping()) return token;
    }
}

TVhdlToken TVhdlLexer::ReadToken() {
    while (At < Text.size()) {
        if (SkipBlank() || SkipComment()) continue;
        const char c = Text[At];
        if (c == '`') {
            ObeyDirective();
            continue;
        }
        TVhdlToken token;
        if (ClassOf(c) == CLASS_LETTER || LetterLength(At) > 0) return ReadWord();
        if (ClassOf(c) == CLASS_DIGIT) return ReadNumber();
        if (c == '"') return Make(TVhdlTokenKind::String, LengthOfQuoted(At, c));
        if (c == '\\') return Make(TVhdlTokenKind::ExtendedIdentifier, LengthOfQuoted(At, c));
        if (c == '\'' && ReadTick(&token)) return token;
        return ReadMark();
    }
    return Make(TVhdlTokenKind::End, 0);
}

/// Notes whether a tick behind the token belongs to it.
TVhdlToken TVhdlLexer::Make(TVhdlTokenKind kind, std::size_t length) {
    const TVhdlToken before = Last;
    Last = {kind, TVhdlKeyword::None, 0, At, length};
    At += length;
    EndsName = kind == TVhdlTokenKind::Identifier || kind == TVhdlTokenKind::ExtendedIdentifier ||
               kind == TVhdlTokenKind::String || kind == TVhdlTokenKind::BitString;
    if (kind == TVhdlTokenKind::Identifier) {
        Last.Keyword = FindVhdlKeyword(TextOf(Last));
        if (Last.Keyword != TVhdlKeyword::None) {
            Last.Kind = TVhdlTokenKind::Keyword;
            // Some attributes are called as keywords are: x'range, x'subtype.
            EndsName = Last.Keyword == TVhdlKeyword::All || before.Is('\'');
        }
    }
    return Last;
}

bool TVhdlLexer::SkipBlank() {
    const std::size_t begin = At;
    while (At < Text.size() && ClassOf(Text[At]) == CLASS_BLANK) ++At;
    // The non-breaking space of Latin-1 separates as well.
    const std::size_t space = CharAt(At) == '\xC2' ? 1 : 0;
    if (CharAt(At + space) == '\xA0' && IsUtf8() == (space > 0)) At += space + 1;
    return At > begin;
}

bool TVhdlLexer::SkipComment() {
    const char second = CharAt(At + 1);
    if (Text[At] == '-' && second == '-') {
        At = EndOfLine(At);
        return true;
    }
    if (Text[At] != '/' || second != '*') return false;
    const std::size_t end = Text.find("*/", At + 2);
    At = end == std::string_view::npos ? Text.size() : end + 2;
    return true;
}

/// The length of the literal at `at`, both quotes included, in which a quote stands doubled.
std::size_t TVhdlLexer::LengthOfQuoted(std::size_t at, char quote) const {
    std::size_t end = at + 1;
    while (end < Text.size() && !EndsLine(Text[end])) {
        if (Text[end++] != quote) continue;
        if (CharAt(end) != quote) break;
        ++end;
    }
    return end - at;
}

/// The length of the base and value of a bit string at `at`; 0 when there is none.
std::size_t TVhdlLexer::LengthOfBitString(std::size_t at) const {
    std::size_t base = 0;
    while (base < 3 && ClassOf(CharAt(at + base)) == CLASS_LETTER) ++base;
    const bool isBitString =
        base > 0 && CharAt(at + base) == '"' && IsBitStringBase(Text.substr(at, base));
    return isBitString ? base + LengthOfQuoted(at + base, '"') : 0;
}

TVhdlToken TVhdlLexer::ReadWord() {
    if (const std::size_t length = LengthOfBitString(At))
        return Make(TVhdlTokenKind::BitString, length);
    std::size_t end = At;
    while (end < Text.size()) {
        const std::size_t length = IsWordChar(Text[end]) ? 1 : LetterLength(end);
        if (length == 0) break;
        end += length;
    }
    TVhdlToken token = Make(TVhdlTokenKind::Identifier, end - At);
    if (ClassOf(CharAt(At)) == CLASS_BLANK && IsWordBeforeLiteral(TextOf(token))) EndsName = false;
    return token;
}

TVhdlToken TVhdlLexer::ReadNumber() {
    std::size_t end = At;
    const auto readDigits = [this, &end] {
        while (ClassOf(CharAt(end)) == CLASS_DIGIT || CharAt(end) == '_') ++end;
    };
    readDigits();
    if (const std::size_t length = LengthOfBitString(end))
        return Make(TVhdlTokenKind::BitString, end - At + length);
    if (CharAt(end) == '#') {
        const auto isBasedChar = [](char c) { return IsWordChar(c) || c == '.'; };
        do ++end;
        while (isBasedChar(CharAt(end)));
        if (CharAt(end) == '#') ++end;
    } else if (CharAt(end) == '.' && ClassOf(CharAt(end + 1)) == CLASS_DIGIT) {
        ++end;
        readDigits();
    }
    if (FoldAscii(CharAt(end)) == 'e') {
        const bool isSigned = CharAt(end + 1) == '-' || CharAt(end + 1) == '+';
        const std::size_t digits = end + (isSigned ? 2 : 1);
        if (ClassOf(CharAt(digits)) == CLASS_DIGIT) {
            end = digits;
            readDigits();
        }
    }
    return Make(TVhdlTokenKind::Number, end - At);
}

/// Sets `*token` to the character literal that begins here; false when the tick is one of its own.
bool TVhdlLexer::ReadTick(TVhdlToken* token) {
    if (EndsName || At + 1 >= Text.size() || EndsLine(Text[At + 1])) return false;
    const std::size_t length = CharacterLength(At + 1);
    if (CharAt(At + 1 + length) != '\'') return false;
    *token = Make(TVhdlTokenKind::Character, length + 2);
    return true;
}

TVhdlToken TVhdlLexer::ReadMark() {
    struct TCompound {
        std::string_view Text;
        char Mark;
    };
    constexpr TCompound kCompounds[] = {{"=>", kVhdlArrow},
                                        {":=", kVhdlAssign},
                                        {"<<", kVhdlOpenExternal},
                                        {">>", kVhdlCloseExternal}};
    constexpr std::string_view kMarks = "&'()*+,-./:;<=>|[]?@^!{}$";
    const char c = Text[At];
    if (c == '%') {
        // What may stand for the quotes of a string, where there are two on the line.
        const std::size_t length = LengthOfQuoted(At, c);
        if (length > 1 && Text[At + length - 1] == c) return Make(TVhdlTokenKind::String, length);
    }
    if (kMarks.find(c) == std::string_view::npos)
        return Make(TVhdlTokenKind::Other, CharacterLength(At));
    char mark = c;
    std::size_t length = 1;
    for (const TCompound& compound : kCompounds)
        if (c == compound.Text[0] && CharAt(At + 1) == compound.Text[1]) {
            mark = compound.Mark;
            length = 2;
        }
    Make(TVhdlTokenKind::Delimiter, length);
    Last.Mark = mark;
    EndsName = mark == ')' || mark == ']' || mark == kVhdlCloseExternal;
    return Last;
}
