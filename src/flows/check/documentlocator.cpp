#include "flows/check/documentlocator.h"
#include "services/xml/documentlines.h"
#include <algorithm>
#include <iterator>

TDocumentLocator::TDocumentLocator(std::string_view document) {
    if (!document.empty()) Lines = FindLinesOfDocument(document);
}

TLinePlace TDocumentLocator::Find(std::uint32_t place) const {
    const auto next = std::upper_bound(Lines.begin() + 1, Lines.end(), std::size_t{place});
    const std::size_t begin = *std::prev(next);
    return {static_cast<int>(next - Lines.begin()), static_cast<int>(place - begin) + 1, begin};
}
