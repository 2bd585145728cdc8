#include "bench/cases/anchors.h"
#include "bench/cases/flatdocument.h"
#include "bench/cases/listedsources.h"
#include "bench/cases/section.h"
#include <deque>
#include <list>
#include <unordered_map>

namespace {

struct TNode {
    std::string Path;
    std::list<TNode*> Dependencies;
    bool Marked = false;
};

struct TVisit {
    TNode* Node;
    std::list<TNode*>::const_iterator Next;
};

/// The nodes of the sources in the order listed.
std::list<TNode*> MakeNodes(const std::vector<TListedSource>& sources, std::deque<TNode>* nodes) {
    std::unordered_map<std::string, TNode*> byPath;
    const auto nodeOf = [&](const std::string& path) {
        TNode*& node = byPath[path];
        if (!node) node = &nodes->emplace_back(TNode{path, {}, false});
        return node;
    };
    std::list<TNode*> listed;
    for (const TListedSource& source : sources) {
        TNode* node = nodeOf(source.Path);
        for (const std::string& dependency : source.Dependencies)
            node->Dependencies.push_back(nodeOf(dependency));
        listed.push_back(node);
    }
    return listed;
}

void Enter(TNode* node, std::vector<TVisit>* visits) {
    if (node->Marked) return;
    node->Marked = true;
    visits->push_back({node, node->Dependencies.begin()});
}

std::vector<TNode*> Order(const std::list<TNode*>& listed) {
    std::vector<TNode*> ordered;
    std::vector<TVisit> visits;
    for (TNode* source : listed) {
        Enter(source, &visits);
        while (!visits.empty()) {
            TVisit& visit = visits.back();
            if (visit.Next != visit.Node->Dependencies.end()) {
                Enter(*visit.Next++, &visits);
            } else {
                ordered.push_back(visit.Node);
                visits.pop_back();
            }
        }
    }
    return ordered;
}

}  // namespace

void MeasureAnchorOrder(const std::string& build) {
    std::deque<TNode> nodes;
    TFlatDocument document;
    document.Read(build);
    const std::list<TNode*> listed = MakeNodes(ListSources(document), &nodes);
    std::vector<TNode*> ordered;
    MeasureTime([&] { ordered = Order(listed); });
    TDigest digest;
    for (const TNode* node : ordered)
        digest.Add(build.substr(0, build.rfind('/') + 1) + node->Path);
    PrintResult(digest.GetText());
}
