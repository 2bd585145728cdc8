// The library's own limits and ways are chosen before it is included. It asserts what a wrong file
// may break, and with NDEBUG takes it for granted: without both it tells the fault.
#pragma push_macro("NDEBUG")
#undef NDEBUG
#define TOML_ASSERT(expression) static_assert(true)
#define TOML_EXCEPTIONS 0
#define TOML_ENABLE_FORMATTERS 0
#define TOML_MAX_NESTED_VALUES 64
#include "flows/trees/treebuilder.h"
#include "flows/trees/treereaders.h"
#include <algorithm>
#include <toml++/toml.h>
#include <unordered_map>
#pragma pop_macro("NDEBUG")

namespace {

/// Places of the library count characters, those of a tree count bytes.
class TTomlLines {
public:
    explicit TTomlLines(std::string_view text) : Text(text) {
        Begins.push_back(0);
        for (std::size_t at = 0; at < text.size(); ++at)
            if (text[at] == '\n') Begins.push_back(at + 1);
    }

    TTreePlace PlaceOf(const toml::source_position& position);
    TTreePlace PlaceOf(const toml::source_region& region) { return PlaceOf(region.begin); }

private:
    /// As many characters as are walked anew for each place.
    static constexpr std::size_t kStride = 256;

    std::size_t Behind(std::size_t at, std::size_t characters) const;
    std::size_t ByteOf(std::size_t line, std::size_t characters);

    std::string_view Text;
    std::vector<std::size_t> Begins;
    /// Of each line that was asked for beyond the first stride: where the strides begin.
    std::unordered_map<std::size_t, std::vector<std::size_t>> Strides;
};

/// Where the character begins that lies behind so many.
std::size_t TTomlLines::Behind(std::size_t at, std::size_t characters) const {
    const auto isInside = [this](std::size_t byte) {
        return (static_cast<unsigned char>(Text[byte]) & 0xC0) == 0x80;
    };
    for (; characters > 0 && at < Text.size(); --characters)
        for (++at; at < Text.size() && isInside(at);) ++at;
    return at;
}

// Files of one line are common: no place in it may cost a walk from its begin.
std::size_t TTomlLines::ByteOf(std::size_t line, std::size_t characters) {
    const std::size_t begin = Begins[line];
    if (characters < kStride) return Behind(begin, characters);
    std::vector<std::size_t>& strides = Strides[line];
    if (strides.empty()) strides.push_back(begin);
    while (strides.size() <= characters / kStride && strides.back() < Text.size())
        strides.push_back(Behind(strides.back(), kStride));
    const std::size_t stride = std::min(characters / kStride, strides.size() - 1);
    return Behind(strides[stride], characters - stride * kStride);
}

TTreePlace TTomlLines::PlaceOf(const toml::source_position& position) {
    if (position.line == 0 || position.line > Begins.size()) return {1, 1};
    const std::size_t line = position.line - 1;
    const std::size_t characters = position.column > 0 ? position.column - 1 : 0;
    return {static_cast<int>(position.line),
            static_cast<int>(ByteOf(line, characters) - Begins[line]) + 1};
}

/// Looks for what the library cannot be handed: keys of very many parts, each of which would be a
/// table in another, as it goes as deep as they say, and outside of texts and comments characters
/// that are not ASCII, for some of which its tables have no answer.
class TTomlKeys {
public:
    explicit TTomlKeys(std::string_view text) : Text(text) {}

    /// False with the first fault; the column of its place counts characters.
    bool AreTakable(std::string* reason, toml::source_position* place);

private:
    bool StepOverText();
    void CountLinesFrom(std::size_t begin, std::size_t end);
    toml::source_index ColumnHere() const;

    std::string_view Text;
    std::size_t At = 0;
    toml::source_index Line = 1;
    std::size_t LineBegin = 0;
};

bool TTomlKeys::AreTakable(std::string* reason, toml::source_position* place) {
    std::size_t points = 0;
    while (At < Text.size()) {
        const char c = Text[At];
        if (c == '#') At = std::min(Text.find('\n', At), Text.size());
        if (At >= Text.size()) return true;
        if (StepOverText()) continue;
        if (static_cast<unsigned char>(Text[At]) >= 0x80) {
            *reason = "a character that is not ASCII, outside of texts and comments";
            *place = {Line, ColumnHere()};
            return false;
        }
        CountLinesFrom(At, At + 1);
        points = Text[At] == '.' ? points + 1
                 : std::string_view("\n=,[]{}").find(Text[At]) != std::string_view::npos ? 0
                                                                                         : points;
        if (points > kDeepestTree) {
            *reason = "a key of more than " + std::to_string(kDeepestTree) + " parts";
            *place = {Line, 1};
            return false;
        }
        ++At;
    }
    return true;
}

void TTomlKeys::CountLinesFrom(std::size_t begin, std::size_t end) {
    for (std::size_t at = begin; at < std::min(end, Text.size()); ++at)
        if (Text[at] == '\n') {
            ++Line;
            LineBegin = at + 1;
        }
}

toml::source_index TTomlKeys::ColumnHere() const {
    toml::source_index column = 1;
    for (const char c : Text.substr(LineBegin, At - LineBegin))
        if ((static_cast<unsigned char>(c) & 0xC0) != 0x80) ++column;
    return column;
}

// One that has no end is a fault that the library tells.
bool TTomlKeys::StepOverText() {
    const char quote = Text[At];
    if (quote != '"' && quote != '\'') return false;
    const std::string fence(3, quote);
    const bool isLong = Text.substr(At, 3) == fence;
    const std::string_view end = isLong ? std::string_view(fence) : Text.substr(At, 1);
    const std::size_t begin = At;
    At += end.size();
    while (At < Text.size() && Text.substr(At, end.size()) != end) {
        if (!isLong && Text[At] == '\n') return true;
        At += quote == '"' && Text[At] == '\\' ? std::size_t{2} : std::size_t{1};
    }
    At += end.size();
    CountLinesFrom(begin, At);
    return true;
}

/// Makes a tree of the library's tables.
class TTomlWalk {
public:
    TTomlWalk(TTomlLines& lines, std::size_t size) : Lines(lines), Builder(size) {}

    bool Add(const toml::node& node);
    TTreeBuilder& GetBuilder() { return Builder; }

private:
    bool AddTable(const toml::table& table);
    bool AddArray(const toml::array& array);

    TTomlLines& Lines;
    TTreeBuilder Builder;
};

// No deeper than the builder lets it.
bool TTomlWalk::Add(const toml::node& node) {
    const TTreePlace place = Lines.PlaceOf(node.source());
    if (const toml::table* const table = node.as_table()) return AddTable(*table);
    if (const toml::array* const array = node.as_array()) return AddArray(*array);
    if (const auto* const text = node.as_string()) return Builder.Add(TREE_TEXT, **text, place);
    if (const auto* const integer = node.as_integer())
        return Builder.Add(TREE_INTEGER, std::to_string(**integer), place);
    if (const auto* const boolean = node.as_boolean())
        return Builder.Add(TREE_BOOLEAN, **boolean ? "true" : "false", place);
    if (const auto* const real = node.as_floating_point())
        return Builder.Add(TREE_REAL, std::to_string(**real), place);
    return Builder.Fail("dates and times have no meaning here", place);
}

// The library sorts keys by their names.
bool TTomlWalk::AddTable(const toml::table& table) {
    if (!Builder.Begin(TREE_MAP, Lines.PlaceOf(table.source()))) return false;
    struct TMember {
        const toml::key* Key;
        const toml::node* Value;
    };
    std::vector<TMember> members;
    members.reserve(table.size());
    for (auto at = table.begin(); at != table.end(); ++at)
        members.push_back({&at->first, &at->second});
    std::stable_sort(members.begin(), members.end(), [](const TMember& left, const TMember& right) {
        return left.Key->source().begin < right.Key->source().begin;
    });
    for (const TMember& member : members)
        if (!Builder.Key(std::string(member.Key->str()), Lines.PlaceOf(member.Key->source())) ||
            !Add(*member.Value))
            return false;
    return Builder.End();
}

bool TTomlWalk::AddArray(const toml::array& array) {
    if (!Builder.Begin(TREE_LIST, Lines.PlaceOf(array.source()))) return false;
    for (const toml::node& value : array)
        if (!Add(value)) return false;
    return Builder.End();
}

}  // namespace

bool ReadTomlTree(std::string_view text, TTree* tree, TTreeFault* fault) {
    static_assert(TOML_MAX_NESTED_VALUES == kDeepestTree);
    TTomlLines lines(text);
    std::string reason;
    toml::source_position place;
    if (!TTomlKeys(text).AreTakable(&reason, &place)) {
        *fault = {std::move(reason), lines.PlaceOf(place)};
        return false;
    }
    const toml::parse_result result = toml::parse(text);
    if (!result) {
        *fault = {std::string(result.error().description()),
                  lines.PlaceOf(result.error().source())};
        return false;
    }
    TTomlWalk walk(lines, text.size());
    if (!walk.Add(result.table())) {
        *fault = walk.GetBuilder().GetFault();
        return false;
    }
    *tree = walk.GetBuilder().Take();
    return true;
}
