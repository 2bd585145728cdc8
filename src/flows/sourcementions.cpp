#include "flows/sourcementions.h"
#include "flows/documentwords.h"
#include "services/base/progress.h"
#include "services/files/filestatus.h"
#include "services/names/isfilename.h"
#include "services/names/recordedstatus.h"
#include "services/names/utilfilename.h"
#include <algorithm>
#include <unordered_set>

namespace {

constexpr std::size_t kElementsADrop = 4096;

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

}  // namespace

TSourceMentions::TSourceMentions(TXMLList* document, const TXMLPlaces& places,
                                 const char* directory, TDocumentWords* words) {
    Collect(document, places, directory, words);
    CompareNames();
}

void TSourceMentions::Collect(TXMLList* document, const TXMLPlaces& places, const char* directory,
                              TDocumentWords* words) {
    const ISFileName* source = nullptr;
    std::unordered_set<const ISFileName*> met;
    TProgress progress(PROGRESS_CHECK_ELEMENTS, document->GetCount());
    std::size_t number = 0;
    document->SetWalkedOnce(true);
    for (DListIterator<TElement*> element = document->GetFirst(); element.NotAtTail(); ++element) {
        progress.Advance();
        const std::uint32_t place = places[number++];
        if (number % kElementsADrop == 0) document->DeleteBefore(element);
        const TElement& current = *element.Current();
        words->Meet(current, place);
        if (current.ElemType != TElement::START) continue;
        if (current.Name == "SourceFileGroup")
            Languages.push_back(current.GetAttribute("Language"));
        const bool isSource = current.Name == "SourceFile";
        if (!isSource && !(current.Name == "Dependency")) continue;
        const ISFileName* file = FileBehind(element, directory);
        if (isSource) source = file;
        if (!file) continue;
        if (isSource)
            Listed.push_back({file, nullptr, static_cast<std::uint32_t>(Languages.size() - 1),
                              NumberOfLibrary(current.GetAttribute("PrecompiledLibrary")), place});
        else if (met.insert(file).second)
            Dependencies.push_back({file, source, 0, 0, place});
    }
}

// Neighbours are mostly of one library.
std::uint32_t TSourceMentions::NumberOfLibrary(const char* name) {
    if (!Listed.empty() && Libraries[Listed.back().Library] == name) return Listed.back().Library;
    const auto [number, isNew] =
        NumbersOfLibraries.try_emplace(name, static_cast<std::uint32_t>(Libraries.size()));
    if (isNew) Libraries.emplace_back(name);
    return number->second;
}

void TSourceMentions::CompareNames() {
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

void TSourceMentions::Meet(TMention* mention, bool isListed) {
    TName& name = Names[mention->File->Canonical(false)];
    if (!name.First) name.First = mention->File;
    if (isListed && ++name.Listings == 1) name.Place = mention->Place;
    if (mention->File != name.First) name.IsSpelled = true;
    mention->Name = &name;
}

std::vector<TRepeatedSource> TSourceMentions::FindRepeated() const {
    std::vector<TRepeatedSource> sources;
    std::unordered_map<const TName*, std::size_t> places;
    for (const TMention& mention : Listed) {
        if (mention.Name->Listings < 2) continue;
        const auto [place, isNew] = places.try_emplace(mention.Name, sources.size());
        if (isNew) sources.emplace_back();
        sources[place->second].Places.push_back({Languages[mention.Language],
                                                 Libraries[mention.Library],
                                                 mention.File->Canonical(false), mention.Place});
    }
    return sources;
}

std::vector<TSpelledSource> TSourceMentions::FindSpelled() const {
    std::vector<TSpelledSource> sources;
    std::unordered_map<const TName*, std::size_t> places;
    std::unordered_set<const ISFileName*> met;
    const auto add = [&](const TMention& mention) {
        if (!mention.Name->IsSpelled || !met.insert(mention.File).second) return;
        const auto [place, isNew] = places.try_emplace(mention.Name, sources.size());
        if (isNew) sources.emplace_back();
        sources[place->second].Spellings.push_back(
            {mention.File->Canonical(false),
             mention.Dependent ? mention.Dependent->Canonical(false) : "", mention.Place});
    };
    for (const TMention& mention : Listed) add(mention);
    for (const TMention& mention : Dependencies) add(mention);
    // Sources whose spellings are all listed ones are repeated sources: they are left out.
    std::erase_if(sources, [](const TSpelledSource& source) {
        return source.Spellings.back().Dependent.empty();
    });
    return sources;
}

void TSourceMentions::LookAtFiles(TDocumentFindings* findings) const {
    std::vector<const TMention*> asked;
    const auto tell = [findings](const TMention& mention, const TFileStatus& status) {
        const std::string path = mention.File->Canonical(false);
        if (status.IsDirectory)
            findings->Folders.push_back({path, mention.Place});
        else if (mention.Name->Listings == 0)
            findings->Unlisted.push_back(
                {path, mention.Dependent ? mention.Dependent->Canonical(false) : "",
                 status.Exists || status.IsUnknown, mention.Place});
    };
    for (const TMention& mention : Listed) {
        if (mention.Place != mention.Name->Place) continue;
        // The read of the build has looked at it.
        const auto status = FindStatusWhenLoaded(mention.File, kDefaultTimeStampKey);
        if (status)
            tell(mention, *status);
        else
            asked.push_back(&mention);
    }
    for (const TMention& mention : Dependencies)
        if (mention.Name->Listings == 0 && mention.File == mention.Name->First)
            asked.push_back(&mention);
    // Few for a report: a disk may be slow.
    TProgress progress(PROGRESS_CHECK_SOURCES, asked.size(), 16);
    for (const TMention* mention : asked) {
        tell(*mention, LookAtFile(mention->File->Canonical(false)));
        progress.Advance();
    }
}

std::uint32_t TSourceMentions::FindPlace(const ISFileName* file) const {
    const auto name = Names.find(file->Canonical(false));
    return name == Names.end() ? kNoXMLPlace : name->second.Place;
}
