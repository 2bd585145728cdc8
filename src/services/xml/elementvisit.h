#pragma once
#include "services/base/progressobserver.h"
#include "services/xml/xmllist.h"
#include <functional>

/// One element of a document that is met and not kept: its texts live until the visit returns.
struct TMetElement {
    TElement::ElemTypes Type;
    std::string_view Name;                       ///< empty for character data
    std::string_view Text;                       ///< the character data
    std::span<const TAttributeView> Attributes;  ///< of a START, whose names differ
    std::uint32_t Place;                         ///< where it begins in the document, in bytes

    /// "" when absent.
    std::string_view GetAttribute(std::string_view name) const {
        for (const TAttributeView& attribute : Attributes)
            if (attribute.first == name) return attribute.second;
        return "";
    }
};
/// Is called with one element, whose texts live until it returns.
using TElementVisit = std::function<void(const TMetElement&)>;

/// Calls `visit` for each element that TXMLList::ReadFromText would make of the document, without
/// the root that `documentType` names ("": none), in the order of the document. Empties `document`
/// as soon as its bytes are not needed. `work` tells an observer what the bytes are read for. On
/// failure, with the reason in `error` (null is allowed), the elements in front of the fault have
/// been met, but for a text that ends there. Null texts count as empty; without a `visit` the
/// document is only read.
HDLBUILDFILE_API bool VisitElements(std::string* document, const char* documentType,
                                    TProgressWork work, const TElementVisit& visit,
                                    TXMLReadError* error);
