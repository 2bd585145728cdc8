#pragma once
#include "services/xml/documentlayout.h"
#include "services/xml/documenttext.h"
#include "services/xml/streamdifference.h"
#include <string>
#include <string_view>

/// Prints texts and elements that a document lacks, as the document's encoding and layout want
/// them.
class TNewElements {
public:
    using TIndex = TStreamTree::TIndex;

    /// All must outlive the object.
    TNewElements(const TStreamTree& base, const TStreamTree& wanted,
                 const TStreamDifference& difference, const TElementIdentity& identity,
                 const TDocumentText& document)
        : Base(base),
          Wanted(wanted),
          Difference(difference),
          Identity(identity),
          Document(document) {}

    /// An element of the wanted stream: all of it when the base lacks it, too, else what tells it
    /// apart and what differs from the base.
    std::string Print(TIndex wanted, const TInsertionPlace& place);
    /// Character data, as the whole text of an element.
    std::string PrintText(std::string_view text);
    /// The value of an attribute, without the quotes.
    std::string PrintValue(std::string_view value, char quote);
    /// A name; as it is.
    std::string_view CheckName(std::string_view name);

    /// Why something that was printed cannot stand in a document; "" when everything can.
    const std::string& GetReason() const { return Reason; }

private:
    struct TOpen {
        TIndex Node;
        bool IsWhole;
        std::vector<TIndex> Children;
        std::size_t NextChild = 0;
        std::string Indent;
    };

    TOpen Open(TIndex wanted, bool isWhole, std::string indent) const;
    bool ComesWhole(TIndex wanted) const;
    bool IsPart(TIndex wanted, std::string_view part) const;
    void PrintStart(const TOpen& open, std::string* printed);
    bool HasPrintedText(const TOpen& open) const;
    bool IsPrinted(const TOpen& open, const TAttributeList::TAttribute& attribute) const;
    std::string CheckText(std::string_view text);

    const TStreamTree& Base;
    const TStreamTree& Wanted;
    const TStreamDifference& Difference;
    const TElementIdentity& Identity;
    const TDocumentText& Document;
    std::string Reason;
};
