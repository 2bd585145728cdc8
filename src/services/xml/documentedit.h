#pragma once
#include "services/base/dlist.h"
#include "services/xml/textedit.h"
#include "services/xml/xmleditrules.h"
#include <memory>
#include <string>
#include <string_view>
#include <vector>

class TElement;
struct TKeptDocument;
class TXMLList;
struct TXMLReadError;

/// The edits that bring a change of a model into the document that it was read from. Every byte
/// outside them stays: comments, blank lines, indentation, order and quotes of attributes, line
/// ends, encoding and byte-order mark, declarations, unknown elements.
///
/// The change is what differs between two streams: the one that a save of the model as it was read
/// would write, and the one that a save of the changed model would write. So what a save adds to
/// every document, such as defaults, is no change. Elements of the streams are looked for in the
/// document by the rules of the format. What changed and is not there is inserted among its
/// neighbours, in their layout; what was removed and is not there needs nothing.
///
/// Of an element's texts, the one in front of its first child is edited.
class HDLBUILDFILE_API TDocumentEdit {
public:
    /// Keeps `document`, and reads it into `list` as ReadFromText() of the list does. `list` and
    /// `error` may be null.
    bool Read(std::string document, TXMLList* list, TXMLReadError* error);
    /// Finds the edits of the document that was read. `base` and `wanted` are streams as they are
    /// pushed for a save. Whoever saves the result reads it first and compares the models: only the
    /// readers know whether they take a document as it was meant. False, with GetReason() and
    /// without edits, for a document that cannot be read and for a change that no document can
    /// hold.
    bool Find(const DList<TElement*>& base, const DList<TElement*>& wanted,
              const TXMLEditRules& rules);
    /// The same of a document that is kept without a list.
    bool Find(std::string document, const DList<TElement*>& base, const DList<TElement*>& wanted,
              const TXMLEditRules& rules);
    const std::string& GetReason() const { return Reason; }

    /// In the order of their places, as bytes of the document and in its encoding. None: the
    /// document already is as wanted.
    const std::vector<TTextEdit>& GetEdits() const { return Edits; }
    bool IsEmpty() const { return Edits.empty(); }

    /// The document as it was given; "" before.
    const std::string& GetDocument() const;
    /// The document after the edits.
    std::string GetEdited() const;
    /// The difference of both in the unified form with three lines of context, in UTF-8 whatever
    /// the document's encoding; "" without edits. `path` is put into both head lines.
    std::string GetUnifiedDiff(std::string_view path) const;

private:
    std::shared_ptr<const TKeptDocument> Document;  // null before there is one
    std::vector<TTextEdit> Edits;
    std::string Reason;
    std::vector<TTextEdit> DecodedEdits;  // of the document in UTF-8
};
