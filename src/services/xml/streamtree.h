#pragma once
#include "services/xml/xmllist.h"
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

class TElementIdentity;

/// The elements of a stream as a tree, in the order of the stream. Node 0 is the document itself.
///
/// The text of an element is the character data in front of its first child; what stands between
/// and behind children is not looked at.
class TStreamTree {
public:
    using TIndex = std::uint32_t;
    static constexpr TIndex kNone = static_cast<TIndex>(-1);

    struct TNode {
        const TElement* Start;  ///< null for the document
        const TElement* Text;   ///< null without one
        TIndex Parent;
        TIndex FirstChild;
        TIndex LastChild;
        TIndex NextSibling;
    };

    /// The elements must outlive the tree. A START without END is closed with what encloses it, an
    /// END without START is left out, as when a stream is written.
    explicit TStreamTree(const DList<TElement*>& elements);

    TIndex GetCount() const { return static_cast<TIndex>(Nodes.size()); }
    const TNode& operator[](TIndex node) const { return Nodes[node]; }
    std::string_view GetName(TIndex node) const;
    /// "" without one.
    std::string_view GetText(TIndex node) const;
    std::vector<TIndex> GetChildren(TIndex node) const;
    std::string MakeKey(TIndex node, const TElementIdentity& identity) const;

private:
    void Open(const TElement& start, std::vector<TIndex>* open);
    void Close(const TElement& end, std::vector<TIndex>* open) const;

    std::vector<TNode> Nodes;
};
