#include "flows/repeatedsources.h"
#include "services/names/isfilename.h"
#include "services/names/utilfilename.h"
#include "services/xml/xmllist.h"
#include <algorithm>
#include <unordered_map>

namespace {

/// A document without an interpretation: only its elements are wanted.
class TPlainDocument : public TXMLList {
protected:
    bool InterpretElements() override { return true; }
    void HandleMissingOrInvalidFile(const char*) override {}
};

std::string Folded(std::string text) {
    for (char& c : text)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return text;
}

std::string CanonicalBelow(const char* directory, const TMyString& text) {
    TMyString trimmed = text;
    trimmed.Trim(1, 0);
    if (trimmed.IsEmpty()) return {};
    TUtilFileName path(directory);
    path.PushFileName(trimmed);
    return path.Canonical();
}

/// The sources in the order of the document.
std::vector<TSourcePlace> ListPlaces(const TXMLList& document, const char* directory) {
    std::vector<TSourcePlace> places;
    std::string language;
    for (DListIterator<TElement*> element(document); element.NotAtTail(); ++element) {
        const TElement& current = *element.Current();
        if (current.ElemType != TElement::START) continue;
        if (current.Name == "SourceFileGroup") language = current.GetAttribute("Language");
        if (!(current.Name == "SourceFile")) continue;
        DListIterator<TElement*> child = element;
        ++child;
        if (!child.NotAtTail() || child.Current()->ElemType != TElement::TEXT) continue;
        std::string path = CanonicalBelow(directory, child.Current()->Text);
        if (!path.empty()) places.push_back({language, std::move(path)});
    }
    return places;
}

std::vector<TRepeatedSource> FindRepeated(const std::vector<TSourcePlace>& places) {
    std::unordered_map<std::string, std::size_t> seen;  // folded path to place in `sources`
    std::vector<TRepeatedSource> sources;
    for (const TSourcePlace& place : places) {
        const auto [entry, added] = seen.try_emplace(Folded(place.Path), sources.size());
        if (added) sources.emplace_back();
        sources[entry->second].Places.push_back(place);
    }
    std::erase_if(sources, [](const TRepeatedSource& source) { return source.Places.size() < 2; });
    return sources;
}

}  // namespace

TDocumentFindings CheckDocument(const ISFileName* buildFile) {
    TPlainDocument document;
    document.SetDocumentType("<!DOCTYPE HdlBuildFileList SYSTEM \"hdl-buildfile.dtd\">");
    if (!document.ReadFile(buildFile->Canonical(false))) return {};
    DListIterator<TElement*> element(document);
    const bool hasBuild = TXMLList::FindNext(element, "HdlBuildFile", nullptr);
    return {hasBuild, FindRepeated(ListPlaces(document, buildFile->GetPathOnly()))};
}
