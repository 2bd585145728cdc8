#include "services/xml/elementblocks.h"

#include <algorithm>
#include <memory>

#include "services/base/dlist.h"
#include "services/xml/xmltext.h"

namespace {

// A document of a few elements needs a small block. The largest fill up one of the allocator's
// units of memory, which it gives to other sizes or back to the system when they are freed.
constexpr std::size_t kSmallestBlock = 1000;
constexpr std::size_t kLargestBlock = 65000;
constexpr std::size_t kElementSize = TDListNodePool::kNodeSize + sizeof(TElement);

constexpr std::size_t Align(std::size_t size) {
    return (size + TCountedBlock::kUnit - 1) / TCountedBlock::kUnit * TCountedBlock::kUnit;
}

std::size_t SizeOf(std::span<const TAttributeView> attributes) {
    if (attributes.empty()) return 0;
    std::size_t size = TCountedBlock::kUnit + sizeof(TElementAttributes);
    for (const auto& [name, value] : attributes)
        size += sizeof(TElementAttributes::TEntry) + TFixedText::SizeOf(name.size()) +
                TFixedText::SizeOf(value.size());
    return size;
}

bool AreValuesPlain(std::span<const TAttributeView> attributes) {
    return std::all_of(attributes.begin(), attributes.end(), [](const TAttributeView& attribute) {
        return IsPlainXMLText(attribute.second);
    });
}

}  // namespace

TElement* TElementBlocks::Make(TElement::ElemTypes type, std::string_view name,
                               std::string_view text, std::span<const TAttributeView> attributes,
                               bool toPrint) {
    Reserve(TCountedBlock::kUnit + kElementSize + TFixedText::SizeOf(name.size()) +
            TFixedText::SizeOf(text.size()) + SizeOf(attributes));
    // The texts come behind their element: the distance of an element is limited.
    TElement* const element = Place(type);
    const TName& known = Intern(name);
    element->Name = known.Text;
    element->Text = Store(text);
    bool isPlain = type == TElement::TEXT ? toPrint && IsPlainXMLContent(text) : known.IsAscii;
    if (!attributes.empty()) {
        bool areNamesAscii = true;
        element->Attributes = StoreAttributes(attributes, &areNamesAscii);
        isPlain = isPlain && toPrint && areNamesAscii && AreValuesPlain(attributes);
    }
    if (isPlain) element->Flags = TElement::PRINTS_AS_IS;
    return element;
}

TElement* TElementBlocks::MakeEnd(const TElement& start) {
    Reserve(TCountedBlock::kUnit + kElementSize + TFixedText::SizeOf(start.Name.Length()));
    TElement* const element = Place(TElement::END);
    const bool isNear = IsInPresentBlock(start.Name.c_str());
    element->Name = isNear ? start.Name : Intern(start.Name.View()).Text;
    return element;
}

std::span<const TElementAttributes::TEntry> TElementBlocks::GetEntries(const TElement& element) {
    if (!element.Attributes) return {};
    return element.Attributes->GetEntries();
}

void TElementBlocks::Delete(TElement* element, TReturnedParts* returned) {
    if (!element || element->Distance == 0) return delete element;
    const TCountedBlock::TDistance distance = element->Distance;
    // Of most elements there is nothing but what lies in the block.
    if (element->Attributes || (element->Flags & TElement::OWNS_TEXTS) != 0) element->~TElement();
    returned->Add(new (element) TCountedBlock::TDistance(distance));
}

void TElementBlocks::Close() {
    if (Block) Block->Close(Given);
    Block = nullptr;
    Next = End = nullptr;
    BlockSize = 0;
}

void TElementBlocks::Reserve(std::size_t size) {
    // Behind an element that is longer than a block there may be room, but no distance tells of it.
    const bool isNear = !Block || Next <= Block->GetRoom() + kLargestBlock;
    if (isNear && static_cast<std::size_t>(End - Next) >= size) return;
    const std::size_t grown = std::clamp(4 * BlockSize, kSmallestBlock, kLargestBlock);
    Close();
    BlockSize = grown;
    const std::size_t room = std::max(size, grown);
    Block = TCountedBlock::Make(room);
    Next = Block->GetRoom();
    End = Next + room;
    Given = 0;
    Names.fill({});
}

void TElementBlocks::AlignNext() {
    std::byte* const begin = Block->GetRoom();
    Next = begin + Align(static_cast<std::size_t>(Next - begin));
}

// Behind the node, which is the list's: the two are two parts, though one distance serves both.
TElement* TElementBlocks::Place(TElement::ElemTypes type) {
    AlignNext();
    void* const place = Next + TDListNodePool::kNodeSize;
    Next += kElementSize;
    Given += 2;
    return new (place) TElement(type, Block->GetDistance(place));
}

const TElementBlocks::TName& TElementBlocks::Intern(std::string_view name) {
    static constexpr TName kNone = {};
    if (name.empty()) return kNone;
    TName& known = Names[GetNamePlace(name)];
    if (known.Text != name) known = {Store(name), IsAsciiXMLName(name)};
    return known;
}

TFixedText TElementBlocks::Store(std::string_view text) {
    if (text.empty()) return {};
    const TFixedText stored = TFixedText::Store(text, Next);
    Next += TFixedText::SizeOf(text.size());
    return stored;
}

TElementAttributes* TElementBlocks::StoreAttributes(std::span<const TAttributeView> attributes,
                                                    bool* areNamesAscii) {
    AlignNext();
    auto* const stored = new (Next) TElementAttributes;
    Next += sizeof(TElementAttributes);
    auto* entry = reinterpret_cast<TElementAttributes::TEntry*>(Next);
    Next += attributes.size() * sizeof(TElementAttributes::TEntry);
    for (const auto& [name, value] : attributes) {
        // Once: names of the same look take each other's place, and room is reserved for each once.
        const TName& known = Intern(name);
        *areNamesAscii = *areNamesAscii && known.IsAscii;
        new (entry++) TElementAttributes::TEntry{known.Text, Store(value)};
    }
    stored->Count = static_cast<std::uint32_t>(attributes.size());
    return stored;
}

bool TElementBlocks::IsInPresentBlock(const void* place) const {
    return std::less_equal<>()(Block->GetRoom(), place) && std::less<>()(place, End);
}
