#include "bench/cases/listedsources.h"
#include "bench/cases/flatdocument.h"

std::vector<TListedSource> ListSources(const TFlatDocument& document) {
    const int source = document.FindName("SourceFile");
    const int dependency = document.FindName("Dependency");
    std::vector<TListedSource> sources;
    int last = -1;
    for (const TFlatDocument::TElement& element : document.GetElements()) {
        if (element.Kind == TFlatDocument::START && element.Name == source) sources.emplace_back();
        if (element.Kind == TFlatDocument::TEXT && last == source)
            sources.back().Path = element.Text;
        if (element.Kind == TFlatDocument::TEXT && last == dependency)
            sources.back().Dependencies.push_back(element.Text);
        last = element.Kind == TFlatDocument::START ? element.Name : -1;
    }
    return sources;
}
