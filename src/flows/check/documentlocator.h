#pragma once
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

/// A place of a document as people count.
struct TLinePlace {
    int Line;    ///< from 1
    int Column;  ///< from 1, in bytes
    std::size_t LineBegin;
};

/// Finds the lines of places in a document.
class TDocumentLocator {
public:
    /// An empty document has no places. The text is not kept.
    explicit TDocumentLocator(std::string_view document);

    bool HasPlaces() const { return !Lines.empty(); }
    /// Only with places.
    TLinePlace Find(std::uint32_t place) const;

private:
    std::vector<std::size_t> Lines;
};
