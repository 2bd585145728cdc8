#pragma once
#include "services/xml/xmllist.h"
#include "tests/support/elementtext.h"
#include <string>

inline constexpr const char* kListType = "<!DOCTYPE List SYSTEM \"list.dtd\">";

/// The stream of a document, or "line:column: reason" when it cannot be read.
inline std::string StreamOf(const std::string& document, const char* documentType = "") {
    TXMLList list;
    list.SetDocumentType(documentType);
    TXMLReadError error;
    if (list.ReadFromText(document, &error)) return ElementsOf(list);
    return std::to_string(error.Line) + ":" + std::to_string(error.Column) + ": " + error.Reason;
}

/// The document of a list, or "cannot be written: reason".
inline std::string DocumentOf(TXMLList& list) {
    std::string document;
    std::string error;
    if (list.WriteToText(&document, &error)) return document;
    return document + "cannot be written: " + error;
}

/// The document of the elements of a text as ElementsOf gives it.
inline std::string DocumentOf(const std::string& elements, const char* documentType = kListType) {
    TXMLList list;
    list.SetDocumentType(documentType);
    PushElements(&list, elements);
    return DocumentOf(list);
}

/// ASCII text in UTF-16 without a mark.
inline std::string Utf16(const std::string& text, bool isBigEndian = false) {
    std::string bytes;
    for (const char c : text) bytes += isBigEndian ? std::string{'\0', c} : std::string{c, '\0'};
    return bytes;
}
