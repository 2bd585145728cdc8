#include "services/xml/elementsequence.h"

TElementSequence::~TElementSequence() {
    Clear();
}

TElement* TElementSequence::Push(TElement::ElemTypes type, std::string_view name,
                                 std::string_view text,
                                 std::span<const TAttributeView> attributes) {
    TElement* const element = Blocks.Make(type, name, text, attributes);
    AddAtTailWithNode(element);
    return element;
}

void TElementSequence::PushEnd(const TElement& start) {
    AddAtTailWithNode(Blocks.MakeEnd(start));
}

void TElementSequence::Clear() {
    TReturnedParts returned;
    while (!IsEmpty()) {
        TElement* const element = TakeFirst();
        returned.Add(element);  // the node
        TElementBlocks::Delete(element, &returned);
    }
    Blocks.Close();
}
