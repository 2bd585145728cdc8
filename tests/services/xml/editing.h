#pragma once
#include "services/xml/documentedit.h"
#include "services/xml/xmllist.h"
#include <gtest/gtest.h>
#include <string>

/// Rules with one element of each kind.
inline TXMLEditRules MakeTestRules() {
    TXMLEditRules rules;
    rules.Elements = {
        {"Group", {"Language"}, false, true},
        {"Source", {kIdentityText}},
        {"Need", {kIdentityText}},
        {"Tool", {"Name", kIdentityText}},
        {"Options", {}, false, false, {"Switches"}},
        {"Directories", {}, true},
        {"Directory", {kIdentityText}},
        {"Settings", {"Language"}},
        {"Variable", {"Name"}},
    };
    rules.Normalise = [](std::string_view, std::string_view, std::string_view text) {
        return std::string(text.starts_with("./") ? text.substr(2) : text);
    };
    return rules;
}

/// The stream of a document, with its root.
inline void ReadStream(const std::string& document, TXMLList* list) {
    if (document.empty()) return;
    TXMLReadError error;
    EXPECT_TRUE(list->ReadFromText(document, &error)) << error.Reason << "\n" << document;
}

/// The edit of `document` that the change of one stream into the other makes; both are given as
/// documents.
inline TDocumentEdit EditOf(const std::string& document, const std::string& base,
                            const std::string& wanted,
                            const TXMLEditRules& rules = MakeTestRules()) {
    TXMLList baseList;
    TXMLList wantedList;
    ReadStream(base, &baseList);
    ReadStream(wanted, &wantedList);
    TDocumentEdit edit;
    const bool isFound = edit.Find(document, baseList, wantedList, rules);
    EXPECT_EQ(isFound, edit.GetReason().empty());
    // The same when a reader has met the elements.
    TDocumentEdit read;
    TXMLList list;
    if (read.Read(document, &list, nullptr)) {
        EXPECT_EQ(read.Find(baseList, wantedList, rules), isFound);
        EXPECT_EQ(read.GetEdited(), edit.GetEdited());
    }
    EXPECT_EQ(read.GetDocument(), document);
    return edit;
}

/// The document after it, or "refused: reason".
inline std::string Edited(const std::string& document, const std::string& base,
                          const std::string& wanted, const TXMLEditRules& rules = MakeTestRules()) {
    const TDocumentEdit edit = EditOf(document, base, wanted, rules);
    return edit.GetReason().empty() ? edit.GetEdited() : "refused: " + edit.GetReason();
}
