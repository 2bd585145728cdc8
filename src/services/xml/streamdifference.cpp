#include "services/xml/streamdifference.h"

#include <algorithm>
#include <string>
#include <utility>

namespace {

using TIndices = std::vector<std::size_t>;

/// The longest part of the sequence, whose numbers differ, that ascends: places in it, in order.
TIndices FindLongestAscent(const TIndices& sequence) {
    constexpr auto kNobody = static_cast<std::size_t>(-1);
    TIndices ends;  // of the best ascent of each length
    TIndices before(sequence.size(), kNobody);
    for (std::size_t i = 0; i < sequence.size(); ++i) {
        const auto place = std::lower_bound(
            ends.begin(), ends.end(), i,
            [&](std::size_t end, std::size_t next) { return sequence[end] < sequence[next]; });
        if (place != ends.begin()) before[i] = *(place - 1);
        if (place == ends.end())
            ends.push_back(i);
        else
            *place = i;
    }
    TIndices ascent;
    for (std::size_t i = ends.empty() ? kNobody : ends.back(); i != kNobody; i = before[i])
        ascent.push_back(i);
    std::reverse(ascent.begin(), ascent.end());
    return ascent;
}

}  // namespace

TStreamDifference::TStreamDifference(const TStreamTree& base, const TStreamTree& wanted,
                                     const TElementIdentity& identity)
    : Base(base), Wanted(wanted), Identity(identity), Changes(wanted.GetCount()) {
    Changes[0].Base = 0;
    // Parents come before their children.
    for (TIndex node = 0; node < wanted.GetCount(); ++node)
        if (!IsNew(node)) Compare(GetBase(node), node);
    SpreadChanges();
}

const std::vector<TStreamDifference::TIndex>& TStreamDifference::GetRemoved(TIndex wanted) const {
    static const std::vector<TIndex> kNobody;
    const TIndex list = Changes[wanted].Removed;
    return list == kNone ? kNobody : RemovedLists[list];
}

void TStreamDifference::Compare(TIndex base, TIndex wanted) {
    TChange& change = Changes[wanted];
    change.IsItselfChanged = !AreEqualAlone(base, wanted);
    change.IsChanged = change.IsItselfChanged;
    CompareChildren(base, wanted);
}

void TStreamDifference::CompareChildren(TIndex base, TIndex wanted) {
    BaseChildren = Base.GetChildren(base);
    WantedChildren = Wanted.GetChildren(wanted);
    IsBasePaired.assign(BaseChildren.size(), false);
    TPair begin{0, 0};
    TPair end{BaseChildren.size(), WantedChildren.size()};
    while (begin.Base < end.Base && begin.Wanted < end.Wanted &&
           AreSame(BaseChildren[begin.Base], WantedChildren[begin.Wanted]))
        Pair(begin.Base++, begin.Wanted++);
    while (begin.Base < end.Base && begin.Wanted < end.Wanted &&
           AreSame(BaseChildren[end.Base - 1], WantedChildren[end.Wanted - 1]))
        Pair(--end.Base, --end.Wanted);
    PairByKey(begin, end);
    NoteRemoved(wanted);
    Changes[wanted].IsChanged |= std::any_of(WantedChildren.begin(), WantedChildren.end(),
                                             [this](TIndex child) { return IsNew(child); });
}

void TStreamDifference::PairByKey(TPair begin, TPair end) {
    if (begin.Base == end.Base || begin.Wanted == end.Wanted) return;
    using TKeyed = std::pair<std::string, std::size_t>;
    const auto sortedKeys = [this](const TStreamTree& tree, const std::vector<TIndex>& children,
                                   std::size_t first, std::size_t last) {
        std::vector<TKeyed> keys;
        for (std::size_t i = first; i < last; ++i)
            keys.emplace_back(tree.MakeKey(children[i], Identity), i);
        std::sort(keys.begin(), keys.end());
        return keys;
    };
    const auto baseKeys = sortedKeys(Base, BaseChildren, begin.Base, end.Base);
    const auto wantedKeys = sortedKeys(Wanted, WantedChildren, begin.Wanted, end.Wanted);
    std::vector<TPair> pairs;
    for (auto one = baseKeys.begin(), other = wantedKeys.begin();
         one != baseKeys.end() && other != wantedKeys.end();) {
        const int order = one->first.compare(other->first);
        if (order == 0) pairs.push_back({one->second, other->second});
        if (order <= 0) ++one;
        if (order >= 0) ++other;
    }
    for (const TPair& pair : pairs) Pair(pair.Base, pair.Wanted);
    std::sort(pairs.begin(), pairs.end(),
              [](const TPair& one, const TPair& other) { return one.Wanted < other.Wanted; });
    MarkMoved(&pairs);
    PairReplaced(pairs, begin, end);
}

// Leaves those that did not move.
void TStreamDifference::MarkMoved(std::vector<TPair>* pairs) {
    TIndices places;
    for (const TPair& pair : *pairs) {
        places.push_back(pair.Base);
        Changes[WantedChildren[pair.Wanted]].IsMoved = true;
    }
    std::vector<TPair> kept;
    for (const std::size_t place : FindLongestAscent(places)) {
        kept.push_back((*pairs)[place]);
        Changes[WantedChildren[kept.back().Wanted]].IsMoved = false;
    }
    *pairs = std::move(kept);
}

void TStreamDifference::PairReplaced(const std::vector<TPair>& kept, TPair begin, TPair end) {
    for (std::size_t i = 0; i <= kept.size(); ++i) {
        const TPair stop = i < kept.size() ? kept[i] : end;
        TIndices gone;
        TIndices come;
        for (std::size_t place = begin.Base; place < stop.Base; ++place)
            if (!IsBasePaired[place]) gone.push_back(place);
        for (std::size_t place = begin.Wanted; place < stop.Wanted; ++place)
            if (IsNew(WantedChildren[place])) come.push_back(place);
        const auto haveOneName = [&](std::size_t one, std::size_t other) {
            return Base.GetName(BaseChildren[one]) == Wanted.GetName(WantedChildren[other]);
        };
        if (std::equal(gone.begin(), gone.end(), come.begin(), come.end(), haveOneName))
            for (std::size_t k = 0; k < gone.size(); ++k) Pair(gone[k], come[k]);
        begin = {stop.Base + 1, stop.Wanted + 1};
    }
}

void TStreamDifference::NoteRemoved(TIndex wanted) {
    std::vector<TIndex> removed;
    for (std::size_t i = 0; i < BaseChildren.size(); ++i)
        if (!IsBasePaired[i]) removed.push_back(BaseChildren[i]);
    if (removed.empty()) return;
    Changes[wanted].IsChanged = true;
    Changes[wanted].Removed = static_cast<TIndex>(RemovedLists.size());
    RemovedLists.push_back(std::move(removed));
}

void TStreamDifference::Pair(std::size_t base, std::size_t wanted) {
    Changes[WantedChildren[wanted]].Base = BaseChildren[base];
    IsBasePaired[base] = true;
}

bool TStreamDifference::AreSame(TIndex base, TIndex wanted) const {
    if (Base.GetName(base) != Wanted.GetName(wanted)) return false;
    const TXMLElementRule* const rule = Identity.FindRule(Base.GetName(base));
    if (!rule || rule->Identity.empty()) return true;
    const TElement& one = *Base[base].Start;
    const TElement& other = *Wanted[wanted].Start;
    const auto isEqual = [&](const std::string& part) {
        if (part.empty()) return Base.GetText(base) == Wanted.GetText(wanted);
        return std::string_view(one.GetAttribute(part.c_str())) == other.GetAttribute(part.c_str());
    };
    return std::all_of(rule->Identity.begin(), rule->Identity.end(), isEqual) ||
           Base.MakeKey(base, Identity) == Wanted.MakeKey(wanted, Identity);
}

bool TStreamDifference::AreEqualAlone(TIndex base, TIndex wanted) const {
    if (wanted == 0) return true;
    return (Base[base].Text != nullptr) == (Wanted[wanted].Text != nullptr) &&
           Base.GetText(base) == Wanted.GetText(wanted) &&
           Base[base].Start->GetAttributes() == Wanted[wanted].Start->GetAttributes();
}

void TStreamDifference::SpreadChanges() {
    for (TIndex node = Wanted.GetCount(); --node > 0;)
        if (IsChanged(node) || IsMoved(node) || IsNew(node))
            Changes[Wanted[node].Parent].IsChanged = true;
}
