#include "services/xml/documentedit.h"

#include <utility>

#include "services/xml/documenteditor.h"
#include "services/xml/textedits.h"
#include "services/xml/unifieddiff.h"
#include "services/xml/xmllist.h"

struct TKeptDocument {
    std::string Bytes;
    TDocumentPlaces Places;
    bool HasPlaces = false;  // of the bytes, as a reader met them
};

bool TDocumentEdit::Read(std::string document, TXMLList* list, TXMLReadError* error) {
    *this = {};
    auto read = std::make_shared<TKeptDocument>();
    read->Bytes = std::move(document);
    TXMLList unwanted;
    if (!list) list = &unwanted;
    read->HasPlaces = list->Parse(read->Bytes, nullptr, error, nullptr, &read->Places);
    Document = std::move(read);
    return Document->HasPlaces;
}

bool TDocumentEdit::Find(std::string document, const DList<TElement*>& base,
                         const DList<TElement*>& wanted, const TXMLEditRules& rules) {
    auto given = std::make_shared<TKeptDocument>();
    given->Bytes = std::move(document);
    Document = std::move(given);
    return Find(base, wanted, rules);
}

bool TDocumentEdit::Find(const DList<TElement*>& base, const DList<TElement*>& wanted,
                         const TXMLEditRules& rules) {
    Edits.clear();
    DecodedEdits.clear();
    Reason.clear();
    TDocumentText text;
    if (!text.Decode(GetDocument())) {
        Reason = text.GetReason();
        return false;
    }
    // Places in the bytes are places in the text only where nothing was decoded.
    const bool isSameText = text.GetText().data() == GetDocument().data();
    TDocumentPlaces ownPlaces;
    const bool hasPlaces = isSameText && Document && Document->HasPlaces;
    if (!hasPlaces && !ownPlaces.Read(text.GetText())) {
        Reason = ownPlaces.GetReason();
        return false;
    }
    const TElementIdentity identity(rules);
    const TStreamTree baseTree(base);
    const TStreamTree wantedTree(wanted);
    TDocumentEditor editor(text, hasPlaces ? Document->Places : ownPlaces, baseTree, wantedTree,
                           identity);
    if (!editor.Find(&DecodedEdits)) {
        Reason = editor.GetReason();
        return false;
    }
    Edits = text.GetDocumentEdits(DecodedEdits);
    return true;
}

const std::string& TDocumentEdit::GetDocument() const {
    static const std::string none;
    return Document ? Document->Bytes : none;
}

std::string TDocumentEdit::GetEdited() const {
    return ApplyEdits(GetDocument(), Edits);
}

std::string TDocumentEdit::GetUnifiedDiff(std::string_view path) const {
    TDocumentText text;
    if (Edits.empty() || !text.Decode(GetDocument())) return {};
    return MakeUnifiedDiff(text.GetText(), DecodedEdits, path);
}
