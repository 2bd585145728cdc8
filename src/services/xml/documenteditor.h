#pragma once
#include "services/xml/documentlayout.h"
#include "services/xml/documenttext.h"
#include "services/xml/editcollection.h"
#include "services/xml/newelements.h"
#include "services/xml/siblingindex.h"
#include "services/xml/streamdifference.h"
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

/// Carries what differs between two streams over to the elements of a document.
class TDocumentEditor {
public:
    /// All must outlive the object. The document has a root.
    TDocumentEditor(const TDocumentText& document, const TDocumentPlaces& places,
                    const TStreamTree& base, const TStreamTree& wanted,
                    const TElementIdentity& identity);

    /// The edits of the text. False, with GetReason(), for what no document can hold.
    bool Find(std::vector<TTextEdit>* edits);
    const std::string& GetReason() const { return Reason; }

private:
    using TIndex = TDocumentPlaces::TIndex;
    using TIndices = std::vector<TIndex>;
    using TNode = TStreamTree::TIndex;
    static constexpr TIndex kNone = TDocumentPlaces::kNone;

    /// An element of the wanted stream and those of the document that it stands for. The document
    /// itself is node 0, without elements.
    struct TVisit {
        TNode Wanted;
        TIndices Elements;
    };
    /// The children of one visited element, while they are compared.
    struct TFamily {
        TVisit Visit;
        std::vector<TNode> Children;
        std::optional<TSiblingIndex> Index;
        std::unordered_set<TIndex> Gone;  // removed or moved
        std::unordered_set<TIndex> Moved;
        std::string NewText;  // of a blank element, escaped
        struct TInsertion {
            std::size_t Place;  // in Children
            TTextRange Moved;
            TIndex Behind = kNone;
        };
        std::vector<TInsertion> Insertions;
    };

    void Edit(TVisit visit);
    TIndices FindElements(TFamily* family, TNode base);
    TIndices FindCandidates(const TVisit& visit) const;
    TIndices FindAnywhere(TNode base);
    void FindChanges(TFamily* family);
    void FindChange(TFamily* family, std::size_t place);
    void FindNeighbours(TFamily* family);
    TIndex FindKept(TFamily* family, std::size_t place);
    TIndex FindLastKeptChild(TIndex parent, TIndex end, const TFamily& family) const;
    void InsertAll(TFamily* family);
    TInsertionPlace PlaceOf(TFamily* family, TIndex behind);
    TInsertionPlace PlaceAmongStrangers(TFamily* family) const;
    void FillBlank(TIndex element, const std::string& text);
    void RemoveAll(const TFamily& family);
    bool LosesAll(TIndex parent, const TFamily& family) const;
    void Remove(const TIndices& siblings, const TFamily& family);

    std::string EditText(const TVisit& visit);
    void ReplaceText(TIndex element, TNode wanted);
    void EditAttributes(const TVisit& visit);
    void EditAttribute(const TVisit& visit, const TAttributeList::TAttribute& attribute,
                       const std::string& former);
    void InsertAttribute(TIndex element, const TAttributeList::TAttribute& attribute,
                         const std::string& former);
    void RemoveAttribute(TIndex element, const std::string& name);

    const TDocumentPlaces& Places;
    const std::string_view Text;
    const TStreamTree& Base;
    const TStreamTree& Wanted;
    const TElementIdentity& Identity;
    const TStreamDifference Difference;
    const TDocumentLayout Layout;
    TNewElements New;
    TEditCollection Edits;
    std::vector<TVisit> Visits;                                         // still to come
    std::optional<std::unordered_map<std::string, TIndices>> Anywhere;  // elements by key
    std::string Reason;
};
