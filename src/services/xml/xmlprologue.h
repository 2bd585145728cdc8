#pragma once
#include <cstddef>
#include <string>
#include <string_view>

#include "services/xml/xmlencoding.h"

/// What a document type declaration begins with.
inline constexpr std::string_view kXMLDocumentType = "<!DOCTYPE";

/// The part of a document before its first element.
struct TXMLPrologue {
    std::size_t DocumentTypeBegin = 0;  ///< place of the document type declaration
    std::size_t DocumentTypeEnd = 0;    ///< behind it; 0 without a document type
    std::string DocumentType;           ///< the declaration in UTF-8; empty without one
    std::string Reason;                 ///< why the prologue is malformed; empty when it is not
    std::size_t FailurePlace = 0;
};

/// Reads up to the end of the document type or to the first element, whichever comes first; a
/// document with neither is a failure. So are entity declarations and versions of XML other
/// than 1.x; nothing outside the document is ever looked at.
TXMLPrologue ReadXMLPrologue(std::string_view document, const TXMLEncoding& encoding);

/// The document up to the end of its document type, with blanks in the place of that. Nothing in
/// there can then supply attributes or hide an entity that nobody declared, and every place stays
/// the same.
std::string BlankDocumentType(std::string_view document, const TXMLEncoding& encoding,
                              const TXMLPrologue& prologue);

/// The name of the root that a document type declaration announces; "" for any other text.
std::string GetDocumentTypeRoot(std::string_view documentType);
