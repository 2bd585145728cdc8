#include "flows/documentfindings.h"
#include "services/base/progress.h"
#include "services/names/isfilename.h"
#include "services/names/utilfilename.h"
#include "services/xml/xmllist.h"
#include <algorithm>
#include <cstdint>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

namespace {

/// A document without an interpretation: only its elements are wanted.
class TPlainDocument : public TXMLList {
protected:
    bool InterpretElements() override { return true; }
    void HandleMissingOrInvalidFile(const char*) override {}
};

struct TSameIgnoringCase {
    bool operator()(std::string_view a, std::string_view b) const {
        return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                          [](char x, char y) { return Folded(x) == Folded(y); });
    }
    static char Folded(char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    }
};

struct THashIgnoringCase {
    std::size_t operator()(std::string_view text) const {
        std::uint64_t hash = 0xcbf29ce484222325U;
        for (const char c : text)
            hash =
                (hash ^ static_cast<unsigned char>(TSameIgnoringCase::Folded(c))) * 0x100000001b3U;
        return static_cast<std::size_t>(hash ^ hash >> 32);
    }
};

/// What all mentions that are equal ignoring case have in common.
struct TName {
    const ISFileName* First = nullptr;
    std::size_t Listings = 0;
    bool IsSpelled = false;  // in two ways at least
};

/// One way in which the document names a source. Handles are the same for the same spelling.
struct TMention {
    const ISFileName* File;
    const ISFileName* Dependent;  // null for a listed source and for an entry without a name
    std::size_t Language;
    const TName* Name = nullptr;
};

/// The sources of a document, in its order.
class TMentions {
public:
    TMentions(const TXMLList& document, const char* directory) {
        Collect(document, directory);
        CompareNames();
    }

    std::vector<TRepeatedSource> FindRepeated() const;
    std::vector<TSpelledSource> FindSpelled() const;

private:
    void Collect(const TXMLList& document, const char* directory);
    void CompareNames();
    void Meet(TMention* mention, bool isListed);

    std::vector<std::string> Languages = {""};
    std::vector<TMention> Listed;
    std::vector<TMention> Dependencies;  // each spelling once
    std::unordered_map<std::string_view, TName, THashIgnoringCase, TSameIgnoringCase> Names;
};

/// The file that the text behind a START names; null without one.
const ISFileName* FileBehind(DListIterator<TElement*> element, const char* directory) {
    ++element;
    const bool isText = element.NotAtTail() && element.Current()->ElemType == TElement::TEXT;
    if (!isText) return nullptr;
    TMyString text = element.Current()->Text;
    text.Trim(1, 0);
    if (text.IsEmpty()) return nullptr;
    TUtilFileName path(directory);
    path.PushFileName(text);
    return ISFileName::NewISFileName(path.Canonical());
}

void TMentions::Collect(const TXMLList& document, const char* directory) {
    const ISFileName* source = nullptr;
    std::unordered_set<const ISFileName*> met;
    TProgress progress(PROGRESS_CHECK_ELEMENTS, document.GetCount());
    for (DListIterator<TElement*> element(document); element.NotAtTail(); ++element) {
        progress.Advance();
        const TElement& current = *element.Current();
        if (current.ElemType != TElement::START) continue;
        if (current.Name == "SourceFileGroup")
            Languages.push_back(current.GetAttribute("Language"));
        const bool isSource = current.Name == "SourceFile";
        if (!isSource && !(current.Name == "Dependency")) continue;
        const ISFileName* file = FileBehind(element, directory);
        if (isSource) source = file;
        if (!file) continue;
        if (isSource)
            Listed.push_back({file, nullptr, Languages.size() - 1});
        else if (met.insert(file).second)
            Dependencies.push_back({file, source, 0});
    }
}

void TMentions::CompareNames() {
    TProgress progress(PROGRESS_CHECK_NAMES, Listed.size() + Dependencies.size());
    for (TMention& mention : Listed) {
        Meet(&mention, true);
        progress.Advance();
    }
    for (TMention& mention : Dependencies) {
        Meet(&mention, false);
        progress.Advance();
    }
}

void TMentions::Meet(TMention* mention, bool isListed) {
    TName& name = Names[mention->File->Canonical(false)];
    if (!name.First) name.First = mention->File;
    if (isListed) ++name.Listings;
    if (mention->File != name.First) name.IsSpelled = true;
    mention->Name = &name;
}

std::vector<TRepeatedSource> TMentions::FindRepeated() const {
    std::vector<TRepeatedSource> sources;
    std::unordered_map<const TName*, std::size_t> places;
    for (const TMention& mention : Listed) {
        if (mention.Name->Listings < 2) continue;
        const auto [place, isNew] = places.try_emplace(mention.Name, sources.size());
        if (isNew) sources.emplace_back();
        sources[place->second].Places.push_back(
            {Languages[mention.Language], mention.File->Canonical(false)});
    }
    return sources;
}

std::vector<TSpelledSource> TMentions::FindSpelled() const {
    std::vector<TSpelledSource> sources;
    std::unordered_map<const TName*, std::size_t> places;
    std::unordered_set<const ISFileName*> met;
    const auto add = [&](const TMention& mention) {
        if (!mention.Name->IsSpelled || !met.insert(mention.File).second) return;
        const auto [place, isNew] = places.try_emplace(mention.Name, sources.size());
        if (isNew) sources.emplace_back();
        sources[place->second].Spellings.push_back(
            {mention.File->Canonical(false),
             mention.Dependent ? mention.Dependent->Canonical(false) : ""});
    };
    for (const TMention& mention : Listed) add(mention);
    for (const TMention& mention : Dependencies) add(mention);
    // Sources whose spellings are all listed ones are repeated sources: they are left out.
    std::erase_if(sources, [](const TSpelledSource& source) {
        return source.Spellings.back().Dependent.empty();
    });
    return sources;
}

}  // namespace

TDocumentFindings CheckDocument(const ISFileName* buildFile) {
    TPlainDocument document;
    document.SetDocumentType("<!DOCTYPE HdlBuildFileList SYSTEM \"hdl-buildfile.dtd\">");
    if (!document.ReadFile(buildFile->Canonical(false))) return {};
    const TMentions mentions(document, buildFile->GetPathOnly());
    return {mentions.FindRepeated(), mentions.FindSpelled()};
}
