#include "flows/trees/treebuilder.h"
#include "flows/trees/treereaders.h"
#include <algorithm>
#include <nlohmann/json.hpp>

namespace {

/// Walks the tokens of a text that the parser takes, for their places.
class TJsonCursor {
public:
    explicit TJsonCursor(std::string_view text) : Text(text) {
        if (Text.starts_with("\xEF\xBB\xBF")) At = LineBegin = 3;
    }

    /// The place of the next value, key or end, and its text.
    TTreePlace Next(std::string_view* token);
    /// The place of a byte behind what was walked.
    TTreePlace PlaceOf(std::size_t position);

private:
    void Step();
    void StepOverToken();

    std::string_view Text;
    std::size_t At = 0;
    std::size_t LineBegin = 0;
    int Line = 1;
};

bool IsOneOf(char c, std::string_view characters) {
    return characters.find(c) != std::string_view::npos;
}

void TJsonCursor::Step() {
    if (Text[At] == '\n') {
        ++Line;
        LineBegin = At + 1;
    }
    ++At;
}

TTreePlace TJsonCursor::Next(std::string_view* token) {
    while (At < Text.size() && IsOneOf(Text[At], " \t\r\n,:")) Step();
    const TTreePlace place = PlaceOf(At);
    const std::size_t begin = At;
    if (At < Text.size()) StepOverToken();
    if (token) *token = Text.substr(begin, At - begin);
    return place;
}

// No line ends within a token.
void TJsonCursor::StepOverToken() {
    const char first = Text[At++];
    if (IsOneOf(first, "[]{}")) return;
    if (first != '"') {
        while (At < Text.size() && !IsOneOf(Text[At], " \t\r\n,:[]{}\"")) ++At;
        return;
    }
    while (At < Text.size() && Text[At] != '"')
        At += Text[At] == '\\' ? std::size_t{2} : std::size_t{1};
    At = std::min(At + 1, Text.size());
}

TTreePlace TJsonCursor::PlaceOf(std::size_t position) {
    while (At < position && At < Text.size()) Step();
    return {Line, static_cast<int>(position - LineBegin) + 1};
}

/// What the parser tells, without the name of its exception and the place, which is told apart.
std::string ReasonOf(const char* what) {
    const std::string_view text = what;
    std::size_t from = text.find("] ");
    from = from == std::string_view::npos ? 0 : from + 2;
    if (const std::size_t column = text.find(", column ", from); column != std::string_view::npos)
        if (const std::size_t colon = text.find(": ", column); colon != std::string_view::npos)
            from = colon + 2;
    return std::string(text.substr(from));
}

/// Takes the parser's events; each returns whether to go on. The names are the parser's.
struct TJsonEvents {
    bool null() { return AddWritten(TREE_NULL); }
    bool boolean(bool) { return AddWritten(TREE_BOOLEAN); }
    bool number_integer(nlohmann::json::number_integer_t) { return AddWritten(TREE_INTEGER); }
    bool number_unsigned(nlohmann::json::number_unsigned_t number) {
        return number <= static_cast<std::uint64_t>(INT64_MAX) ? AddWritten(TREE_INTEGER)
                                                               : FailRange();
    }
    // Integers that fit into no integer are given as real numbers.
    bool number_float(nlohmann::json::number_float_t, const std::string& written) {
        return written.find_first_of(".eE") != std::string::npos ? AddWritten(TREE_REAL)
                                                                 : FailRange();
    }
    bool string(std::string& text) {
        return Builder.Add(TREE_TEXT, std::move(text), Cursor.Next(nullptr));
    }
    bool binary(nlohmann::json::binary_t&) { return false; }
    bool start_object(std::size_t) { return Builder.Begin(TREE_MAP, Cursor.Next(nullptr)); }
    bool key(std::string& text) { return Builder.Key(std::move(text), Cursor.Next(nullptr)); }
    bool end_object() { return CloseOne(); }
    bool start_array(std::size_t) { return Builder.Begin(TREE_LIST, Cursor.Next(nullptr)); }
    bool end_array() { return CloseOne(); }
    bool parse_error(std::size_t position, const std::string&,
                     const nlohmann::json::exception& error) {
        return Builder.Fail(ReasonOf(error.what()),
                            Cursor.PlaceOf(position == 0 ? 0 : position - 1));
    }

    bool AddWritten(TTreeKind kind) {
        std::string_view token;
        const TTreePlace place = Cursor.Next(&token);
        return Builder.Add(kind, kind == TREE_NULL ? std::string() : std::string(token), place);
    }
    bool FailRange() {
        std::string_view token;
        const TTreePlace place = Cursor.Next(&token);
        return Builder.Fail("the number " + std::string(token) + " is out of range", place);
    }
    bool CloseOne() {
        Cursor.Next(nullptr);
        return Builder.End();
    }

    TJsonCursor Cursor;
    TTreeBuilder Builder;
};

}  // namespace

bool ReadJsonTree(std::string_view text, TTree* tree, TTreeFault* fault) {
    TJsonEvents events{TJsonCursor(text), TTreeBuilder(text.size())};
    const bool isRead = nlohmann::json::sax_parse(text.begin(), text.end(), &events);
    if (events.Builder.HasFailed()) *fault = events.Builder.GetFault();
    if (isRead) *tree = events.Builder.Take();
    return isRead;
}
