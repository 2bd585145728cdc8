#include "flows/trees/treebuilder.h"
#include "flows/trees/treereaders.h"
#include "flows/trees/yamlinput.h"
#include <algorithm>
#include <array>
#include <charconv>
#include <istream>
#include <map>
#include <yaml-cpp/eventhandler.h>
#include <yaml-cpp/exceptions.h>
#include <yaml-cpp/parser.h>

namespace {

constexpr std::string_view kTextTag = "tag:yaml.org,2002:str";

TTreePlace PlaceOf(const YAML::Mark& mark) {
    return {mark.line + 1, mark.column + 1};
}

bool IsAnyOf(std::string_view text, std::initializer_list<std::string_view> words) {
    return std::find(words.begin(), words.end(), text) != words.end();
}

// As readers of YAML 1.1 do, which most tools use.
bool IsBoolean(std::string_view text) {
    return IsAnyOf(text, {"true", "True", "TRUE", "yes", "Yes", "YES", "on", "On", "ON", "false",
                          "False", "FALSE", "no", "No", "NO", "off", "Off", "OFF"});
}

bool IsDigits(std::string_view text, std::string_view digits) {
    return !text.empty() && text.find_first_not_of(digits) == std::string_view::npos;
}

/// What a plain word is: an integer or a real number, else a text.
TTreeKind KindOfNumber(std::string_view text, bool* isOutOfRange) {
    std::string_view number = text;
    if (number.starts_with('+')) number.remove_prefix(1);
    const bool isHex = number.starts_with("0x");
    const std::string_view digits = isHex                     ? number.substr(2)
                                    : number.starts_with('-') ? number.substr(1)
                                                              : number;
    const bool isInteger = IsDigits(digits, isHex ? "0123456789abcdefABCDEF" : "0123456789");
    if (!isInteger && (digits.empty() || !IsDigits(digits, "0123456789.eE+-") ||
                       digits.find_first_of("0123456789") == std::string_view::npos))
        return TREE_TEXT;
    long long integer = 0;
    double real = 0;
    if (isHex) number.remove_prefix(2);
    const char* const end = number.data() + number.size();
    const auto read = isInteger ? std::from_chars(number.data(), end, integer, isHex ? 16 : 10)
                                : std::from_chars(number.data(), end, real);
    *isOutOfRange = read.ec == std::errc::result_out_of_range && read.ptr == end;
    if (read.ptr != end) return TREE_TEXT;
    return isInteger ? TREE_INTEGER : TREE_REAL;
}

/// Makes a tree of the parser's events.
class TYamlEvents : public YAML::EventHandler {
public:
    /// Keeps the input, whose text has so many bytes.
    TYamlEvents(TYamlInput* input, std::size_t size) : Input(*input), Builder(size) {}

    TTreeBuilder& GetBuilder() { return Builder; }

    void OnDocumentStart(const YAML::Mark& mark) override {
        if (++Documents == 2) Builder.Fail("a second document", PlaceOf(mark));
    }
    void OnDocumentEnd() override {}
    void OnNull(const YAML::Mark& mark, YAML::anchor_t anchor) override {
        AddSingle(TREE_NULL, "", mark, anchor);
    }
    void OnAlias(const YAML::Mark& mark, YAML::anchor_t anchor) override;
    void OnScalar(const YAML::Mark& mark, const std::string& tag, YAML::anchor_t anchor,
                  const std::string& value) override;
    void OnSequenceStart(const YAML::Mark& mark, const std::string& tag, YAML::anchor_t anchor,
                         YAML::EmitterStyle::value) override {
        Begin(TREE_LIST, mark, tag, anchor);
    }
    void OnSequenceEnd() override { End(); }
    void OnMapStart(const YAML::Mark& mark, const std::string& tag, YAML::anchor_t anchor,
                    YAML::EmitterStyle::value) override {
        Begin(TREE_MAP, mark, tag, anchor);
    }
    void OnMapEnd() override { End(); }

private:
    /// What an alias stands for.
    struct TAnchored {
        TTree Value;
        std::size_t Count = 0;
        std::size_t Depth = 0;
    };

    /// Whether what is told does not matter any more.
    bool IsOver() {
        Input.Forget();
        return Builder.HasFailed() || Input.IsCut();
    }
    void AddSingle(TTreeKind kind, const std::string& text, const YAML::Mark& mark,
                   YAML::anchor_t anchor);
    void Begin(TTreeKind kind, const YAML::Mark& mark, const std::string& tag,
               YAML::anchor_t anchor);
    void End();
    void Keep(YAML::anchor_t anchor);

    TYamlInput& Input;
    TTreeBuilder Builder;
    int Documents = 0;
    std::map<YAML::anchor_t, TAnchored> Anchors;
    std::vector<YAML::anchor_t> OpenAnchors;  // of each open value; 0: none
};

void Measure(const TTree& value, std::size_t depth, std::size_t* count, std::size_t* deepest) {
    ++*count;
    if (!value.IsList() && !value.IsMap()) return;
    *deepest = std::max(*deepest, depth + 1);
    for (const TTree& inner : value.Values) Measure(inner, depth + 1, count, deepest);
}

void TYamlEvents::OnAlias(const YAML::Mark& mark, YAML::anchor_t anchor) {
    if (IsOver()) return;
    const auto found = Anchors.find(anchor);
    if (found == Anchors.end())
        Builder.Fail("an alias stands within what it stands for", PlaceOf(mark));
    else if (Builder.WantsKey())
        Builder.Fail("an alias is no key", PlaceOf(mark));
    else
        Builder.AddCopy(found->second.Value, found->second.Count, found->second.Depth,
                        PlaceOf(mark));
}

// The tag "?" is that of plain words, "!" that of texts in quotes.
void TYamlEvents::OnScalar(const YAML::Mark& mark, const std::string& tag, YAML::anchor_t anchor,
                           const std::string& value) {
    if (IsOver()) return;
    if (tag == "!" || tag == kTextTag) return AddSingle(TREE_TEXT, value, mark, anchor);
    if (!tag.empty() && tag != "?") {
        Builder.Fail("the tag " + tag + " has no meaning here", PlaceOf(mark));
        return;
    }
    if (value == "<<" && Builder.WantsKey()) {
        Builder.Fail("maps are not merged here", PlaceOf(mark));
        return;
    }
    if (IsAnyOf(value, {"", "~", "null", "Null", "NULL"}))
        return AddSingle(TREE_NULL, value, mark, anchor);
    if (IsBoolean(value)) return AddSingle(TREE_BOOLEAN, value, mark, anchor);
    bool isOutOfRange = false;
    const TTreeKind kind = KindOfNumber(value, &isOutOfRange);
    if (isOutOfRange)
        Builder.Fail("the number " + value + " is out of range", PlaceOf(mark));
    else
        AddSingle(kind, value, mark, anchor);
}

void TYamlEvents::AddSingle(TTreeKind kind, const std::string& text, const YAML::Mark& mark,
                            YAML::anchor_t anchor) {
    if (IsOver()) return;
    if (!Builder.WantsKey()) {
        Builder.Add(kind, kind == TREE_NULL ? "" : text, PlaceOf(mark));
        return Keep(anchor);
    }
    if (kind == TREE_NULL)
        Builder.Fail("a value has no key", PlaceOf(mark));
    else
        Builder.Key(text, PlaceOf(mark));
}

void TYamlEvents::Begin(TTreeKind kind, const YAML::Mark& mark, const std::string& tag,
                        YAML::anchor_t anchor) {
    if (IsOver()) return;
    if (Builder.WantsKey())
        Builder.Fail("a key is no single value", PlaceOf(mark));
    else if (!tag.empty() && tag != "?" && tag != "!")
        Builder.Fail("the tag " + tag + " has no meaning here", PlaceOf(mark));
    else if (Builder.Begin(kind, PlaceOf(mark)))
        OpenAnchors.push_back(anchor);
}

void TYamlEvents::End() {
    if (IsOver() || !Builder.End()) return;
    const YAML::anchor_t anchor = OpenAnchors.back();
    OpenAnchors.pop_back();
    Keep(anchor);
}

void TYamlEvents::Keep(YAML::anchor_t anchor) {
    if (anchor == 0 || !Builder.GetLast()) return;
    const TTree& value = *Builder.GetLast();
    TAnchored anchored;
    Measure(value, 0, &anchored.Count, &anchored.Depth);
    if (!Builder.MayKeep(anchored.Count, value.Place)) return;
    anchored.Value = value;
    Anchors[anchor] = std::move(anchored);
}

}  // namespace

bool ReadYamlTree(std::string_view text, TTree* tree, TTreeFault* fault) {
    TYamlInput input(text);
    TYamlEvents events(&input, text.size());
    TTreeBuilder& builder = events.GetBuilder();
    try {
        std::istream stream(&input);
        YAML::Parser parser(stream);
        if (parser.HandleNextDocument(events) && !builder.HasFailed())
            parser.HandleNextDocument(events);
    } catch (const YAML::Exception& exception) {
        if (!input.IsCut()) builder.Fail(exception.msg, PlaceOf(exception.mark));
    }
    if (input.IsCut()) builder.Fail(input.GetReason(), input.GetCut());
    if (builder.HasFailed()) {
        *fault = builder.GetFault();
        return false;
    }
    if (!builder.GetLast()) builder.Add(TREE_NULL, "", {1, 1});
    *tree = builder.Take();
    return true;
}
