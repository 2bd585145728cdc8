#include "bench/cases/anchors.h"
#include "bench/cases/flatdocument.h"
#include "bench/cases/listedsources.h"
#include "bench/cases/section.h"
#include <algorithm>
#include <sstream>

void MeasureAnchorCommandFile(const std::string& build) {
    TFlatDocument document;
    document.Read(build);
    const std::vector<TListedSource> sources = ListSources(document);
    std::ostringstream out;
    MeasureTime([&] {
        for (const TListedSource& source : sources) {
            const bool quoted = source.Path.find(' ') != std::string::npos;
            if (quoted) out << '"';
            out << source.Path;
            if (quoted) out << '"';
            out << '\n';
        }
    });
    // The lines that the library writes have no quotes.
    std::string text = out.str();
    text.erase(std::remove(text.begin(), text.end(), '"'), text.end());
    TDigest digest;
    digest.Add(text);
    PrintResult(digest.GetText());
}
