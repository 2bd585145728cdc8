#include "services/xml/documentlines.h"

#include "services/xml/xmlencoding.h"

std::vector<std::size_t> FindLinesOfDocument(std::string_view document) {
    const TXMLEncoding encoding = DetectXMLEncoding(document);
    std::vector<std::size_t> lines = {encoding.MarkLength};
    for (std::size_t i = encoding.MarkLength; i < document.size(); i += encoding.UnitSize)
        if (EndsLine(document, encoding, i)) lines.push_back(i + encoding.UnitSize);
    return lines;
}
