#include "settings/uniquetextlist.h"
#include <algorithm>

namespace {

constexpr std::size_t kIndexedFrom = 32;

}  // namespace

bool TUniqueTextList::AddStringToVector(std::string text) {
    if (Index.empty() && Texts.size() >= kIndexedFrom) Index.insert(Texts.begin(), Texts.end());
    const bool isNew = Index.empty() ? std::find(Texts.begin(), Texts.end(), text) == Texts.end()
                                     : Index.insert(text).second;
    if (isNew) Texts.push_back(std::move(text));
    return isNew;
}

bool TUniqueTextList::RemoveStringFromVector(std::string_view text) {
    const auto found = std::find(Texts.begin(), Texts.end(), text);
    if (found == Texts.end()) return false;
    Index.erase(*found);
    Texts.erase(found);
    return true;
}

void TUniqueTextList::Clear() {
    Texts.clear();
    Index.clear();
}
