#pragma once
#include "services/base/countedblock.h"
#include "services/xml/xmlelement.h"
#include "services/xml/xmlname.h"
#include <array>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

/// The attributes of an element: in a block those that it was made with, elsewhere those that it
/// was given later.
struct TElementAttributes {
    struct TEntry {
        TFixedText Name;
        TFixedText Value;
    };
    /// What GetAttributes() answers, made when it is asked; the entries stay what they are.
    std::vector<TAttributeList::TAttribute>* All = nullptr;
    std::uint32_t Count = 0;  // of the entries behind this: none elsewhere than in a block

    bool IsInBlock() const { return Count > 0; }
    std::span<const TEntry> GetEntries() const {
        return {reinterpret_cast<const TEntry*>(this + 1), Count};
    }
};

/// Makes elements in blocks, each block with the names and texts of its elements, and each element
/// with room for its list's node in front.
class TElementBlocks {
public:
    TElementBlocks() = default;
    TElementBlocks(const TElementBlocks&) = delete;
    TElementBlocks& operator=(const TElementBlocks&) = delete;
    ~TElementBlocks() { Close(); }

    /// Copies everything; the names of attributes differ. To be linked by AddAtTailWithNode.
    TElement* Make(TElement::ElemTypes type, std::string_view name, std::string_view text,
                   std::span<const TAttributeView> attributes = {}, bool toPrint = false);
    /// The END of `start`, which is one of these elements.
    TElement* MakeEnd(const TElement& start);
    /// Whether the printer need not look at names and values. Of an element with values that is
    /// known only when it was made to be printed.
    static bool PrintsAsIs(const TElement& element) {
        return (element.Flags & TElement::PRINTS_AS_IS) != 0;
    }
    /// The attributes of an element that was made here and not changed.
    static std::span<const TElementAttributes::TEntry> GetEntries(const TElement& element);
    /// Deletes an element of whatever origin.
    static void Delete(TElement* element, TReturnedParts* returned);
    /// Lets go of the present block, which then ends with its elements.
    void Close();

private:
    struct TName {
        TFixedText Text;
        bool IsAscii = false;  // IsAsciiXMLName
    };

    void Reserve(std::size_t size);
    void AlignNext();
    TElement* Place(TElement::ElemTypes type);
    const TName& Intern(std::string_view name);
    TFixedText Store(std::string_view text);
    TElementAttributes* StoreAttributes(std::span<const TAttributeView> attributes,
                                        bool* areNamesAscii);
    bool IsInPresentBlock(const void* place) const;

    std::array<TName, kNamePlaces> Names;
    TCountedBlock* Block = nullptr;
    std::byte* Next = nullptr;
    std::byte* End = nullptr;
    std::uint32_t Given = 0;
    std::size_t BlockSize = 0;
};
