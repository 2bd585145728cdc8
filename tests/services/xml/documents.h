#pragma once
#include "services/xml/elementvisit.h"
#include "services/xml/xmllist.h"
#include "tests/support/elementtext.h"
#include <gtest/gtest.h>
#include <string>

inline constexpr const char* kListType = "<!DOCTYPE List SYSTEM \"list.dtd\">";

/// A line as those of ElementsOf.
inline std::string TextOfMet(const TMetElement& element) {
    if (element.Type == TElement::TEXT) return "TEXT " + std::string(element.Text) + "\n";
    std::string line =
        (element.Type == TElement::START ? "START " : "END ") + std::string(element.Name);
    for (const auto& [name, value] : element.Attributes)
        line += " " + std::string(name) + "=" + std::string(value);
    return line + "\n";
}

inline std::string TextOf(const TXMLReadError& error) {
    return std::to_string(error.Line) + ":" + std::to_string(error.Column) + ": " + error.Reason;
}

/// As StreamOf, of a visit.
inline std::string VisitedStreamOf(std::string document, const char* documentType) {
    std::string lines;
    TXMLReadError error;
    const auto visit = [&lines](const TMetElement& element) { lines += TextOfMet(element); };
    return VisitElements(&document, documentType, PROGRESS_READ_DOCUMENT, visit, &error)
               ? lines
               : TextOf(error);
}

/// The stream of a document, or "line:column: reason" when it cannot be read. A visit has to give
/// the same.
inline std::string StreamOf(const std::string& document, const char* documentType = "") {
    TXMLList list;
    list.SetDocumentType(documentType);
    TXMLReadError error;
    const bool isRead = list.ReadFromText(document, &error);
    const std::string stream = isRead ? ElementsOf(list) : TextOf(error);
    EXPECT_EQ(VisitedStreamOf(document, documentType), stream);
    return stream;
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
