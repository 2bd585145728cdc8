#pragma once
#include "services/base/dlist.h"
#include "services/xml/elementblocks.h"

/// Elements that belong together: made in blocks, deleted with the sequence.
class TElementSequence : private DList<TElement*> {
public:
    ~TElementSequence() override;

    TElement* Push(TElement::ElemTypes type, std::string_view name, std::string_view text,
                   std::span<const TAttributeView> attributes = {});
    /// The END of `start`, an element of this sequence.
    void PushEnd(const TElement& start);
    void Clear();

    using DList::GetCount;
    using DList::IsEmpty;
    /// Takes the first element out, which is then the caller's, as its node is: to be linked by
    /// AddAtTailWithNode. Not for the empty sequence.
    TElement* TakeFirst() {
        TElement* element = nullptr;
        UnlinkHead(&element);
        return element;
    }

private:
    TElementBlocks Blocks;
};
