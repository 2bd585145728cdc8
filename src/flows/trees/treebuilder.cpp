#include "flows/trees/treebuilder.h"
#include <utility>

bool TTreeBuilder::Begin(TTreeKind kind, TTreePlace place) {
    if (!MayGrow(1, 1, place)) return false;
    TTree& value = Open.emplace_back();
    value.Kind = kind;
    value.Place = place;
    value.Key = std::exchange(NextKey, {});
    value.KeyPlace = NextKeyPlace;
    HasKey = false;
    Keys.emplace_back();
    return true;
}

bool TTreeBuilder::End() {
    if (HasFailed() || Open.empty()) return false;
    TTree value = std::move(Open.back());
    Open.pop_back();
    Keys.pop_back();
    return Place(std::move(value));
}

bool TTreeBuilder::Key(std::string text, TTreePlace place) {
    if (HasFailed() || Open.empty() || !IsText(text, place)) return false;
    if (!Keys.back().insert(text).second)
        return Fail("the key \"" + text + "\" is there a second time", place);
    NextKey = std::move(text);
    NextKeyPlace = place;
    HasKey = true;
    return true;
}

bool TTreeBuilder::Add(TTreeKind kind, std::string text, TTreePlace place) {
    if (!MayGrow(1, 0, place) || !IsText(text, place)) return false;
    TTree value;
    value.Kind = kind;
    value.Text = std::move(text);
    value.Place = place;
    value.Key = std::exchange(NextKey, {});
    value.KeyPlace = NextKeyPlace;
    HasKey = false;
    return Place(std::move(value));
}

bool TTreeBuilder::AddCopy(const TTree& value, std::size_t count, std::size_t depth,
                           TTreePlace place) {
    if (!MayGrow(count, depth, place)) return false;
    TTree copy = value;
    copy.Place = place;
    copy.Key = std::exchange(NextKey, {});
    copy.KeyPlace = NextKeyPlace;
    HasKey = false;
    return Place(std::move(copy));
}

bool TTreeBuilder::Fail(std::string reason, TTreePlace place) {
    if (!HasFailed()) Fault = {std::move(reason), place};
    return false;
}

const TTree* TTreeBuilder::GetLast() const {
    if (Open.empty()) return HasRoot ? &Root : nullptr;
    return Open.back().Values.empty() ? nullptr : &Open.back().Values.back();
}

bool TTreeBuilder::Place(TTree value) {
    if (!Open.empty()) {
        Open.back().Values.push_back(std::move(value));
        return true;
    }
    if (HasRoot) return Fail("a second value follows", value.Place);
    Root = std::move(value);
    HasRoot = true;
    return true;
}

// No name of a file or of anything else has that character.
bool TTreeBuilder::IsText(const std::string& text, TTreePlace place) {
    return text.find('\0') == std::string::npos || Fail("a text with the character U+0000", place);
}

bool TTreeBuilder::MayGrow(std::size_t count, std::size_t depth, TTreePlace place) {
    if (HasFailed()) return false;
    if (Open.size() + depth > kDeepestTree)
        return Fail("more than " + std::to_string(kDeepestTree) + " values lie in each other",
                    place);
    if (Count + count > MostValues)
        return Fail("more than " + std::to_string(MostValues) + " values", place);
    Count += count;
    return true;
}
