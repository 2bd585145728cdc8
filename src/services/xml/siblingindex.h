#pragma once
#include "services/xml/documentplaces.h"
#include "services/xml/elementidentity.h"
#include "services/xml/streamtree.h"
#include <cstdint>
#include <utility>
#include <vector>

/// Finds the elements of a document that the children of one element of a stream stand for, by
/// their identity, in whatever order the document has them.
///
/// A child without siblings of its identity stands for all of that identity in the document: a
/// reader takes them together, or one of them. Of several, the first stands for the first, and so
/// on, the last for all that are left. Elements without a rule stand for one each.
class TSiblingIndex {
public:
    using TIndex = TDocumentPlaces::TIndex;

    /// `nodes` are the children, `elements` those of the document that they may stand for, both in
    /// order. The references must outlive the object.
    TSiblingIndex(const TStreamTree& stream, const std::vector<TStreamTree::TIndex>& nodes,
                  const TDocumentPlaces& places, const std::vector<TIndex>& elements,
                  const TElementIdentity& identity);

    /// In document order; empty when the document has none.
    std::vector<TIndex> Find(TStreamTree::TIndex node) const;

private:
    // The hash of an identity, and whose it is: siblings of one identity lie together, in order.
    using TEntry = std::pair<std::size_t, std::uint32_t>;

    const TStreamTree& Stream;
    const TDocumentPlaces& Places;
    const TElementIdentity& Identity;
    std::vector<TEntry> Nodes;
    std::vector<TEntry> Elements;
};

/// What TElementIdentity makes of an element of a document.
std::string MakeKey(const TDocumentPlaces& places, TDocumentPlaces::TIndex element,
                    const TElementIdentity& identity);
/// The text of an element in front of its first child.
std::string GetElementText(const TDocumentPlaces& places, TDocumentPlaces::TIndex element);
