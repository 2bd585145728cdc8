#include "services/xml/documenteditor.h"

#include <algorithm>
#include <iterator>
#include <utility>

TDocumentEditor::TDocumentEditor(const TDocumentText& document, const TDocumentPlaces& places,
                                 const TStreamTree& base, const TStreamTree& wanted,
                                 const TElementIdentity& identity)
    : Places(places),
      Text(places.GetText()),
      Base(base),
      Wanted(wanted),
      Identity(identity),
      Difference(base, wanted, identity),
      Layout(places),
      New(base, wanted, Difference, identity, document),
      Edits(places.GetText()) {}

bool TDocumentEditor::Find(std::vector<TTextEdit>* edits) {
    // A document type alone is read, too.
    if (Places.GetCount() == 0) Reason = "no element found";
    if (Difference.IsChanged(0)) Visits.push_back({0, {}});
    while (!Visits.empty() && Reason.empty()) {
        TVisit visit = std::move(Visits.back());
        Visits.pop_back();
        Edit(std::move(visit));
    }
    if (Reason.empty()) Reason = New.GetReason();
    if (Reason.empty() && !Edits.Take(edits)) Reason = "the changes of the document overlap";
    if (!Reason.empty()) edits->clear();
    return Reason.empty();
}

void TDocumentEditor::Edit(TVisit visit) {
    TFamily family;
    family.Visit = std::move(visit);
    const TNode wanted = family.Visit.Wanted;
    family.Children = Wanted.GetChildren(wanted);
    const bool isItself = Difference.IsItselfChanged(wanted);
    if (isItself) family.NewText = EditText(family.Visit);
    FindChanges(&family);
    // A list that loses all its children goes with its tag.
    const bool goes = family.Insertions.empty() && !family.Visit.Elements.empty() &&
                      LosesAll(family.Visit.Elements.front(), family);
    if (isItself && !goes) EditAttributes(family.Visit);
    InsertAll(&family);
    RemoveAll(family);
}

// Which elements of the document a child of the family's element in the base stands for.
TDocumentEditor::TIndices TDocumentEditor::FindElements(TFamily* family, TNode base) {
    const TXMLElementRule* const rule = Identity.FindRule(Base.GetName(base));
    if (rule && rule->IsAnywhere) return FindAnywhere(base);
    if (!family->Index)
        family->Index.emplace(Base, Base.GetChildren(Difference.GetBase(family->Visit.Wanted)),
                              Places, FindCandidates(family->Visit), Identity);
    return family->Index->Find(base);
}

// A reader drops the root that the document type names, so that what is outermost in the stream
// may be the root or a child of it.
TDocumentEditor::TIndices TDocumentEditor::FindCandidates(const TVisit& visit) const {
    TIndices candidates;
    if (visit.Wanted == 0) candidates.push_back(0);
    for (const TIndex element : visit.Wanted == 0 ? TIndices{0} : visit.Elements) {
        const TIndices children = Places.GetChildren(element);
        candidates.insert(candidates.end(), children.begin(), children.end());
    }
    return candidates;
}

TDocumentEditor::TIndices TDocumentEditor::FindAnywhere(TNode base) {
    if (!Anywhere) {
        Anywhere.emplace();
        for (TIndex element = 0; element < Places.GetCount(); ++element) {
            const TXMLElementRule* const rule = Identity.FindRule(Places.GetName(element));
            if (rule && rule->IsAnywhere)
                (*Anywhere)[MakeKey(Places, element, Identity)].push_back(element);
        }
    }
    const auto found = Anywhere->find(Base.MakeKey(base, Identity));
    return found == Anywhere->end() ? TIndices() : found->second;
}

void TDocumentEditor::FindChanges(TFamily* family) {
    for (const TNode removed : Difference.GetRemoved(family->Visit.Wanted))
        for (const TIndex element : FindElements(family, removed)) family->Gone.insert(element);
    for (std::size_t i = 0; i < family->Children.size(); ++i) FindChange(family, i);
    FindNeighbours(family);
}

// What the document lacks and a change needs is inserted; what does not change and is not there is
// one of the defaults that a stream has in addition.
void TDocumentEditor::FindChange(TFamily* family, std::size_t place) {
    const TNode child = family->Children[place];
    const bool isChanged = Difference.IsChanged(child);
    const bool isMoved = Difference.IsMoved(child);
    if (Difference.IsNew(child)) family->Insertions.push_back({place, {}});
    if (Difference.IsNew(child) || (!isChanged && !isMoved)) return;
    TIndices elements = FindElements(family, Difference.GetBase(child));
    if (elements.empty()) {
        if (isChanged) family->Insertions.push_back({place, {}});
        return;
    }
    if (isMoved) {
        family->Gone.insert(elements.begin(), elements.end());
        family->Moved.insert(elements.front());
        family->Insertions.push_back({place, Layout.GetRangeWithComments(elements.front())});
        elements.resize(1);
    }
    if (isChanged) Visits.push_back({child, std::move(elements)});
}

// The nearest element in front that stays, else none.
void TDocumentEditor::FindNeighbours(TFamily* family) {
    TIndex behind = kNone;
    std::size_t begin = 0;
    for (TFamily::TInsertion& insertion : family->Insertions) {
        for (std::size_t place = insertion.Place; place-- > begin;) {
            const TIndex kept = FindKept(family, place);
            if (kept == kNone) continue;
            behind = kept;
            break;
        }
        begin = insertion.Place + 1;
        insertion.Behind = behind;
    }
}

TDocumentEditor::TIndex TDocumentEditor::FindKept(TFamily* family, std::size_t place) {
    const TNode child = family->Children[place];
    if (Difference.IsNew(child) || Difference.IsMoved(child)) return kNone;
    for (const TIndex element : FindElements(family, Difference.GetBase(child)))
        if (element != 0 && !family->Gone.contains(element)) return element;
    return kNone;
}

void TDocumentEditor::InsertAll(TFamily* family) {
    const auto& insertions = family->Insertions;
    for (std::size_t i = 0; i < insertions.size();) {
        const TIndex behind = insertions[i].Behind;
        const TInsertionPlace place = PlaceOf(family, behind);
        std::vector<TEditCollection::TPart> parts;
        for (; i < insertions.size() && insertions[i].Behind == behind; ++i) {
            const TTextRange moved = insertions[i].Moved;
            TEditCollection::TPart part{parts.empty() ? place.First : place.Next, moved};
            if (moved.IsEmpty())
                part.Text += New.Print(family->Children[insertions[i].Place], place);
            parts.push_back(std::move(part));
        }
        parts.push_back({place.Behind, {}});
        Edits.Insert(place.Begin, place.Removed, std::move(parts));
    }
    if (!family->NewText.empty()) FillBlank(family->Visit.Elements.back(), family->NewText);
}

void TDocumentEditor::FillBlank(TIndex element, const std::string& text) {
    const TDocumentPlaces::TPlace& place = Places[element];
    if (!place.IsEmptyTag())
        return Edits.Replace(place.ContentBegin, place.ContentEnd - place.ContentBegin, text);
    const std::size_t begin = Layout.FindTagEnd(element);
    Edits.Replace(begin, place.End - begin,
                  ">" + text + "</" + std::string(Places.GetName(element)) + ">");
}

TInsertionPlace TDocumentEditor::PlaceOf(TFamily* family, TIndex behind) {
    if (behind != kNone) return Layout.PlaceBehind(behind);
    // Nothing that stays comes before: in front of the first that stays.
    for (std::size_t place = 0; place < family->Children.size(); ++place) {
        const TIndex next = FindKept(family, place);
        if (next == kNone) continue;
        const TIndex parent = Places[next].Parent;
        const TIndex former = FindLastKeptChild(parent, next, *family);
        return former == kNone ? Layout.PlaceAtBegin(parent) : Layout.PlaceBehind(former);
    }
    return PlaceAmongStrangers(family);
}

// None of the children that stay is known.
TInsertionPlace TDocumentEditor::PlaceAmongStrangers(TFamily* family) const {
    const TIndex parent = family->Visit.Wanted == 0 ? 0 : family->Visit.Elements.back();
    if (Places[parent].FirstChild == kNone)
        return Layout.PlaceInside(parent, std::exchange(family->NewText, {}));
    const TIndex last = FindLastKeptChild(parent, kNone, *family);
    return last == kNone ? Layout.PlaceAtBegin(parent) : Layout.PlaceBehind(last);
}

TDocumentEditor::TIndex TDocumentEditor::FindLastKeptChild(TIndex parent, TIndex end,
                                                           const TFamily& family) const {
    TIndex last = kNone;
    for (TIndex child = Places[parent].FirstChild; child != end; child = Places[child].NextSibling)
        if (!family.Gone.contains(child)) last = child;
    return last;
}

void TDocumentEditor::RemoveAll(const TFamily& family) {
    if (family.Gone.contains(0)) {
        Reason = "a document cannot be without its root";
        return;
    }
    TIndices gone(family.Gone.begin(), family.Gone.end());
    std::sort(gone.begin(), gone.end());
    TIndices lists;
    if (family.Insertions.empty())
        std::copy_if(family.Visit.Elements.begin(), family.Visit.Elements.end(),
                     std::back_inserter(lists),
                     [&](TIndex element) { return LosesAll(element, family); });
    std::erase_if(gone, [&](TIndex child) {
        return std::binary_search(lists.begin(), lists.end(), Places[child].Parent);
    });
    Remove(lists, family);
    Remove(gone, family);
}

bool TDocumentEditor::LosesAll(TIndex parent, const TFamily& family) const {
    const TXMLElementRule* const rule = Identity.FindRule(Places.GetName(parent));
    if (!rule || !rule->IsList || Places[parent].FirstChild == kNone) return false;
    return FindLastKeptChild(parent, kNone, family) == kNone;
}

void TDocumentEditor::Remove(const TIndices& siblings, const TFamily& family) {
    std::vector<TTextRange> elements;
    for (const TIndex element : siblings)
        elements.push_back(family.Moved.contains(element) ? Layout.GetRangeWithComments(element)
                                                          : Layout.GetRange(element));
    for (const TTextRange& range : Layout.FindRemovedRanges(elements))
        Edits.Replace(range.Begin, range.End - range.Begin, {});
}
