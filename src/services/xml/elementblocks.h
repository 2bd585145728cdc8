#pragma once
#include "services/base/countedblock.h"
#include "services/xml/xmlelement.h"
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
    std::uint32_t Count = 0;
    bool IsInBlock = false;

    std::span<const TEntry> GetEntries() const {
        return {reinterpret_cast<const TEntry*>(this + 1), Count};
    }
};

/// An attribute to be copied.
using TAttributeView = std::pair<std::string_view, std::string_view>;

/// Makes elements in blocks, each block with the names and texts of its elements, and each element
/// with room for its list's node in front.
class TElementBlocks {
public:
    TElementBlocks() = default;
    TElementBlocks(const TElementBlocks&) = delete;
    TElementBlocks& operator=(const TElementBlocks&) = delete;
    ~TElementBlocks() { Close(); }

    /// Copies everything. To be linked by AddAtTailWithNode.
    TElement* Make(TElement::ElemTypes type, std::string_view name, std::string_view text,
                   std::span<const TAttributeView> attributes = {});
    /// The END of `start`, which is one of these elements.
    TElement* MakeEnd(const TElement& start);
    /// Deletes an element of whatever origin.
    static void Delete(TElement* element, TReturnedParts* returned);
    /// Lets go of the present block, which then ends with its elements.
    void Close();

private:
    void Reserve(std::size_t size);
    TElement* Place(TElement::ElemTypes type);
    TFixedText Intern(std::string_view name);
    TFixedText Store(std::string_view text);
    TElementAttributes* StoreAttributes(std::span<const TAttributeView> attributes);
    bool IsInPresentBlock(const void* place) const;

    // Formats have few names, so that most are found where the last of the same look was.
    std::array<TFixedText, 32> Names;
    TCountedBlock* Block = nullptr;
    std::byte* Next = nullptr;
    std::byte* End = nullptr;
    std::uint32_t Given = 0;
    std::size_t BlockSize = 0;
};
