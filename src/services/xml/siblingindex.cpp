#include "services/xml/siblingindex.h"

#include <algorithm>
#include <functional>
#include <string>

#include "services/xml/tagtext.h"

TSiblingIndex::TSiblingIndex(const TStreamTree& stream,
                             const std::vector<TStreamTree::TIndex>& nodes,
                             const TDocumentPlaces& places, const std::vector<TIndex>& elements,
                             const TElementIdentity& identity)
    : Stream(stream), Places(places), Identity(identity) {
    const std::hash<std::string> hash;
    Nodes.reserve(nodes.size());
    for (const TStreamTree::TIndex node : nodes)
        Nodes.emplace_back(hash(stream.MakeKey(node, identity)), node);
    Elements.reserve(elements.size());
    for (const TIndex element : elements)
        Elements.emplace_back(hash(MakeKey(places, element, identity)), element);
    std::sort(Nodes.begin(), Nodes.end());
    std::sort(Elements.begin(), Elements.end());
}

std::vector<TSiblingIndex::TIndex> TSiblingIndex::Find(TStreamTree::TIndex node) const {
    const std::string key = Stream.MakeKey(node, Identity);
    const std::size_t hash = std::hash<std::string>()(key);
    const auto hasLessHash = [](const auto& one, const auto& other) {
        return one.first < other.first;
    };
    const TEntry wanted{hash, node};
    const auto nodes = std::equal_range(Nodes.begin(), Nodes.end(), wanted, hasLessHash);
    const auto elements = std::equal_range(Elements.begin(), Elements.end(), wanted, hasLessHash);
    const auto place = std::lower_bound(nodes.first, nodes.second, wanted) - nodes.first;
    if (elements.second - elements.first <= place) return {};
    const bool isLast = place + 1 == nodes.second - nodes.first;
    const bool takesRest = isLast && Identity.FindRule(Stream.GetName(node));
    const auto begin = elements.first + place;
    std::vector<TIndex> found;
    for (auto entry = begin; entry != (takesRest ? elements.second : begin + 1); ++entry)
        if (MakeKey(Places, entry->second, Identity) == key) found.push_back(entry->second);
    return found;
}

std::string MakeKey(const TDocumentPlaces& places, TDocumentPlaces::TIndex element,
                    const TElementIdentity& identity) {
    const std::string_view text = places.GetText();
    return identity.MakeKey(places.GetName(element), [&](const std::string& part) -> std::string {
        if (part.empty()) return GetElementText(places, element);
        const auto attributes = FindAttributes(text, places[element].Begin);
        const TAttributePlace* const found = FindAttribute(attributes, part);
        return found ? GetAttributeText(found->Value) : std::string();
    });
}

std::string GetElementText(const TDocumentPlaces& places, TDocumentPlaces::TIndex element) {
    // Most have one piece of text, and nothing else.
    const TDocumentPlaces::TPlace& place = places[element];
    const bool hasChildren = place.FirstChild != TDocumentPlaces::kNone;
    const std::size_t end = hasChildren ? places[place.FirstChild].Begin : place.ContentEnd;
    const std::string_view front =
        places.GetText().substr(place.ContentBegin, end - place.ContentBegin);
    if (front.find('<') == std::string_view::npos)
        return GetPieceText(places.GetText(), {place.ContentBegin, end, false});
    std::string text;
    for (const TTextPiece& piece : places.FindPieces(element))
        text += GetPieceText(places.GetText(), piece);
    return text;
}
