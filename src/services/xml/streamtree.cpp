#include "services/xml/streamtree.h"

#include <algorithm>

#include "services/xml/elementidentity.h"

TStreamTree::TStreamTree(const DList<TElement*>& elements) {
    Nodes.reserve(elements.GetCount() / 2 + 1);
    Nodes.push_back({nullptr, nullptr, kNone, kNone, kNone, kNone});
    std::vector<TIndex> open{0};
    for (DListIterator<TElement*> element(elements); element.NotAtTail(); ++element) {
        const TElement* const current = element.Current();
        if (!current) continue;
        TNode& innermost = Nodes[open.back()];
        if (current->ElemType == TElement::START)
            Open(*current, &open);
        else if (current->ElemType == TElement::END)
            Close(*current, &open);
        else if (innermost.FirstChild == kNone && !innermost.Text)
            innermost.Text = current;
    }
}

void TStreamTree::Open(const TElement& start, std::vector<TIndex>* open) {
    const auto node = static_cast<TIndex>(Nodes.size());
    TNode& parent = Nodes[open->back()];
    if (parent.LastChild == kNone)
        parent.FirstChild = node;
    else
        Nodes[parent.LastChild].NextSibling = node;
    parent.LastChild = node;
    Nodes.push_back({&start, nullptr, open->back(), kNone, kNone, kNone});
    open->push_back(node);
}

void TStreamTree::Close(const TElement& end, std::vector<TIndex>* open) const {
    const auto isOpened = [&](TIndex node) { return GetName(node) == end.Name.View(); };
    const auto found = std::find_if(open->rbegin(), open->rend() - 1, isOpened);
    if (found != open->rend() - 1) open->erase(found.base() - 1, open->end());
}

std::string_view TStreamTree::GetName(TIndex node) const {
    return Nodes[node].Start ? Nodes[node].Start->Name.View() : std::string_view();
}

std::string_view TStreamTree::GetText(TIndex node) const {
    return Nodes[node].Text ? Nodes[node].Text->Text.View() : std::string_view();
}

std::vector<TStreamTree::TIndex> TStreamTree::GetChildren(TIndex node) const {
    std::vector<TIndex> children;
    for (TIndex child = Nodes[node].FirstChild; child != kNone; child = Nodes[child].NextSibling)
        children.push_back(child);
    return children;
}

std::string TStreamTree::MakeKey(TIndex node, const TElementIdentity& identity) const {
    return identity.MakeKey(GetName(node), [&](const std::string& part) -> std::string_view {
        return part.empty() ? GetText(node) : Nodes[node].Start->GetAttribute(part.c_str());
    });
}
