#include "services/xml/documentedit.h"

#include <utility>

#include "services/xml/documenteditor.h"
#include "services/xml/textedits.h"
#include "services/xml/unifieddiff.h"

bool TDocumentEdit::Find(std::string document, const DList<TElement*>& base,
                         const DList<TElement*>& wanted, const TXMLEditRules& rules) {
    Document = std::move(document);
    Edits.clear();
    DecodedEdits.clear();
    Decoded.clear();
    Reason.clear();
    TDocumentText text;
    TDocumentPlaces places;
    if (!text.Decode(Document)) {
        Reason = text.GetReason();
        return false;
    }
    if (!places.Read(text.GetText())) {
        Reason = places.GetReason();
        return false;
    }
    const TElementIdentity identity(rules);
    const TStreamTree baseTree(base);
    const TStreamTree wantedTree(wanted);
    TDocumentEditor editor(text, places, baseTree, wantedTree, identity);
    if (!editor.Find(&DecodedEdits)) {
        Reason = editor.GetReason();
        return false;
    }
    Edits = text.GetDocumentEdits(DecodedEdits);
    if (!Edits.empty()) Decoded = text.GetText();
    return true;
}

std::string TDocumentEdit::GetEdited() const {
    return ApplyEdits(Document, Edits);
}

std::string TDocumentEdit::GetUnifiedDiff(std::string_view path) const {
    return MakeUnifiedDiff(Decoded, DecodedEdits, path);
}
