#pragma once
#include "services/xml/elementidentity.h"
#include "services/xml/streamtree.h"
#include <cstdint>
#include <vector>

/// What became of each element of a stream: which elements of another one are new, moved or
/// changed, and which are gone.
///
/// Elements are the same under parents that are the same, by their identity; of several with one
/// identity the first is the first, and so on. Where as many elements of one name went as came
/// between two that stayed, each of them changed its identity.
class TStreamDifference {
public:
    using TIndex = TStreamTree::TIndex;
    static constexpr TIndex kNone = TStreamTree::kNone;

    /// All three must outlive the object.
    TStreamDifference(const TStreamTree& base, const TStreamTree& wanted,
                      const TElementIdentity& identity);

    /// The element of the base that a wanted one is; kNone for a new one.
    TIndex GetBase(TIndex wanted) const { return Changes[wanted].Base; }
    bool IsNew(TIndex wanted) const { return Changes[wanted].Base == kNone; }
    /// Whether it stands in another order among the siblings that the base has, too.
    bool IsMoved(TIndex wanted) const { return Changes[wanted].IsMoved; }
    /// Whether its own attributes or its text differ.
    bool IsItselfChanged(TIndex wanted) const { return Changes[wanted].IsItselfChanged; }
    /// Whether anything in it, itself included, differs.
    bool IsChanged(TIndex wanted) const { return Changes[wanted].IsChanged; }
    /// The children of the base's element that a wanted one no longer has, in their order.
    const std::vector<TIndex>& GetRemoved(TIndex wanted) const;

private:
    struct TChange {
        TIndex Base = kNone;
        TIndex Removed = kNone;  // place in RemovedLists
        bool IsMoved = false;
        bool IsItselfChanged = false;
        bool IsChanged = false;
    };
    struct TPair {
        std::size_t Base;
        std::size_t Wanted;
    };

    void Compare(TIndex base, TIndex wanted);
    void CompareChildren(TIndex base, TIndex wanted);
    void PairByKey(TPair begin, TPair end);
    void MarkMoved(std::vector<TPair>* pairs);
    void PairReplaced(const std::vector<TPair>& kept, TPair begin, TPair end);
    void NoteRemoved(TIndex wanted);
    void Pair(std::size_t base, std::size_t wanted);
    bool AreSame(TIndex base, TIndex wanted) const;
    bool AreEqualAlone(TIndex base, TIndex wanted) const;
    void SpreadChanges();

    const TStreamTree& Base;
    const TStreamTree& Wanted;
    const TElementIdentity& Identity;
    std::vector<TChange> Changes;  // by wanted element
    std::vector<std::vector<TIndex>> RemovedLists;

    // Of the parents that are being compared.
    std::vector<TIndex> BaseChildren;
    std::vector<TIndex> WantedChildren;
    std::vector<bool> IsBasePaired;
};
