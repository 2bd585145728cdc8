#pragma once
#include "services/base/dlist.h"
#include "services/xml/elementblocks.h"

/// Elements that belong together: made in blocks, deleted with the sequence.
class TElementSequence : public DList<TElement*> {
public:
    ~TElementSequence() override;

    TElement* Push(TElement::ElemTypes type, std::string_view name, std::string_view text,
                   std::span<const TAttributeView> attributes = {});
    /// The END of `start`, an element of this sequence.
    void PushEnd(const TElement& start);
    void Clear();

    /// Unlinks the first element, which is then the caller's. Not for the empty sequence.
    using DList::UnlinkHead;

private:
    TElementBlocks Blocks;
};
