#pragma once
#include <string>
#include <utility>
#include <vector>

/// A document as the flat sequence of its tags and texts: the least that a reader which keeps
/// everything has to do.
class TFlatDocument {
public:
    enum TKind { START, END, TEXT };
    struct TElement {
        TKind Kind;
        int Name;  ///< a number for each name; -1 for texts
        std::string Text;
        std::vector<std::pair<int, std::string>> Attributes;
    };

    /// Parses the file in blocks. False when it cannot be read or is malformed.
    bool Read(const std::string& path);

    const std::vector<TElement>& GetElements() const { return Elements; }
    /// -1 for a name that the document does not have.
    int FindName(const std::string& name) const;

private:
    friend struct TFlatDocumentHandlers;
    int NumberOf(const char* name);

    std::vector<TElement> Elements;
    std::vector<std::string> Names;
};
