#include "flows/documentfindings.h"
#include "services/base/progress.h"
#include "services/names/isfilename.h"
#include "services/names/utilfilename.h"
#include "services/xml/xmllist.h"
#include <algorithm>
#include <unordered_map>
#include <unordered_set>

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

/// The sources of a document, in its order.
struct TMentions {
    std::vector<TSourcePlace> Listed;
    std::vector<TSpelling> Dependencies;
};

/// The path in the text behind a START; "" without one.
std::string PathBehind(DListIterator<TElement*> element, const char* directory) {
    ++element;
    const bool isText = element.NotAtTail() && element.Current()->ElemType == TElement::TEXT;
    return isText ? CanonicalBelow(directory, element.Current()->Text) : std::string();
}

TMentions ListMentions(const TXMLList& document, const char* directory) {
    TMentions mentions;
    std::string language;
    std::string source;
    TProgress progress(PROGRESS_CHECK_ELEMENTS, document.GetCount());
    for (DListIterator<TElement*> element(document); element.NotAtTail(); ++element) {
        progress.Advance();
        const TElement& current = *element.Current();
        if (current.ElemType != TElement::START) continue;
        if (current.Name == "SourceFileGroup") language = current.GetAttribute("Language");
        const bool isSource = current.Name == "SourceFile";
        if (!isSource && !(current.Name == "Dependency")) continue;
        std::string path = PathBehind(element, directory);
        if (isSource) source = path;
        if (path.empty()) continue;
        if (isSource)
            mentions.Listed.push_back({language, std::move(path)});
        else
            mentions.Dependencies.push_back({std::move(path), source});
    }
    return mentions;
}

std::vector<TRepeatedSource> FindRepeated(const std::vector<TSourcePlace>& places) {
    std::unordered_map<std::string, std::size_t> seen;  // folded path to place in `sources`
    std::vector<TRepeatedSource> sources;
    TProgress progress(PROGRESS_CHECK_SOURCES, places.size());
    for (const TSourcePlace& place : places) {
        progress.Advance();
        const auto [entry, added] = seen.try_emplace(Folded(place.Path), sources.size());
        if (added) sources.emplace_back();
        sources[entry->second].Places.push_back(place);
    }
    std::erase_if(sources, [](const TRepeatedSource& source) { return source.Places.size() < 2; });
    return sources;
}

/// Collects the spellings of each source, every one once.
class TSpellings {
public:
    void Add(const std::string& path, const std::string& dependent) {
        if (!Paths.insert(path).second) return;
        const auto [entry, added] = Seen.try_emplace(Folded(path), Sources.size());
        if (added) Sources.emplace_back();
        Sources[entry->second].Spellings.push_back({path, dependent});
    }

    /// Sources whose spellings are all listed ones are repeated sources: they are left out.
    std::vector<TSpelledSource> Find() {
        std::erase_if(Sources, [](const TSpelledSource& source) {
            return source.Spellings.size() < 2 || source.Spellings.back().Dependent.empty();
        });
        return std::move(Sources);
    }

private:
    std::unordered_set<std::string> Paths;
    std::unordered_map<std::string, std::size_t> Seen;  // folded path to place in Sources
    std::vector<TSpelledSource> Sources;
};

std::vector<TSpelledSource> FindSpelled(const TMentions& mentions) {
    TSpellings spellings;
    TProgress progress(PROGRESS_CHECK_NAMES, mentions.Listed.size() + mentions.Dependencies.size());
    for (const TSourcePlace& place : mentions.Listed) {
        spellings.Add(place.Path, "");
        progress.Advance();
    }
    for (const TSpelling& dependency : mentions.Dependencies) {
        spellings.Add(dependency.Path, dependency.Dependent);
        progress.Advance();
    }
    return spellings.Find();
}

}  // namespace

TDocumentFindings CheckDocument(const ISFileName* buildFile) {
    TPlainDocument document;
    document.SetDocumentType("<!DOCTYPE HdlBuildFileList SYSTEM \"hdl-buildfile.dtd\">");
    if (!document.ReadFile(buildFile->Canonical(false))) return {};
    DListIterator<TElement*> element(document);
    const bool hasBuild = TXMLList::FindNext(element, "HdlBuildFile", nullptr);
    const TMentions mentions = ListMentions(document, buildFile->GetPathOnly());
    return {hasBuild, FindRepeated(mentions.Listed), FindSpelled(mentions)};
}
