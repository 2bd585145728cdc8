#include "flows/sourcementions.h"
#include "services/base/progress.h"
#include "services/files/filestatus.h"
#include "services/files/pathtext.h"
#include "services/names/recordedstatus.h"
#include "services/names/utilfilename.h"
#include <algorithm>

namespace {

constexpr std::string_view kBlanksOfNames = " \t\n\v\f\r";

std::string_view TrimmedName(std::string_view text) {
    const std::size_t begin = text.find_first_not_of(kBlanksOfNames);
    if (begin == std::string_view::npos) return {};
    return text.substr(begin, text.find_last_not_of(kBlanksOfNames) + 1 - begin);
}

/// A directory with a delimiter at its end.
std::string WithDelimiter(const char* directory) {
    TUtilFileName path(directory);
    path.PushFileName("x");
    const std::string text = path.Canonical();
    return text.substr(0, text.size() - 1);
}

}  // namespace

TSourceMentions::TSourceMentions(const char* directory) : Directory(WithDelimiter(directory)) {}

// The file of a source or dependency is the text behind its tag.
void TSourceMentions::Meet(const TMetElement& element) {
    if (Tag != NO_TAG && element.Type == TElement::TEXT) MeetFile(element.Text);
    Tag = NO_TAG;
    if (element.Type == TElement::START) MeetStart(element);
}

void TSourceMentions::MeetStart(const TMetElement& start) {
    Place = start.Place;
    if (start.Name == "SourceFileGroup") {
        Languages.emplace_back(start.GetAttribute("Language"));
    } else if (start.Name == "SourceFile") {
        Tag = SOURCE_TAG;
        Source = nullptr;
        Library = NumberOfLibrary(start.GetAttribute("PrecompiledLibrary"));
    } else if (start.Name == "Dependency") {
        Tag = DEPENDENCY_TAG;
    }
}

void TSourceMentions::MeetFile(std::string_view text) {
    text = TrimmedName(text);
    if (text.empty()) return;
    const ISFileName* const file = FileOf(text);
    if (Tag == SOURCE_TAG) {
        Source = file;
        Listed.push_back({file, static_cast<std::uint32_t>(Languages.size() - 1), Library, Place});
        TName& name = Note(file);
        if (++name.Listings == 1) name.Place = Place;
    } else if (IsMetFirst(file)) {
        Dependencies.push_back({file, Source, Place});
        Note(file);
    }
}

// A read of the build has made the handles of nearly all of these texts, which are then found as
// they are.
const ISFileName* TSourceMentions::FileOf(std::string_view text) {
    Path.assign(Directory).append(text);
    const char* const name = Path.c_str() + Directory.size();
    return ISFileName::NewISFileName(IsRelativePath(name) ? Path.c_str() : name);
}

// Neighbours are mostly of one library.
std::uint32_t TSourceMentions::NumberOfLibrary(std::string_view name) {
    if (Libraries[Library] == name) return Library;
    const auto [number, isNew] = NumbersOfLibraries.try_emplace(
        std::string(name), static_cast<std::uint32_t>(Libraries.size()));
    if (isNew) Libraries.emplace_back(name);
    return number->second;
}

TSourceMentions::TName& TSourceMentions::Note(const ISFileName* file) {
    const std::size_t number = GetFileNumber(file);
    if (number >= Names.size()) Names.resize(number + 1);
    TName& name = Names[number];
    if (!name.First) name.First = file;
    if (file != name.First) name.IsSpelled = true;
    return name;
}

const TSourceMentions::TName& TSourceMentions::NameOf(const ISFileName* file) const {
    static const TName kUnknown;
    const std::size_t number = GetFileNumber(file);
    return number < Names.size() ? Names[number] : kUnknown;
}

// Nearly every name has one spelling.
bool TSourceMentions::IsMetFirst(const ISFileName* dependency) {
    const std::size_t number = GetFileNumber(dependency);
    if (number >= Met.size()) Met.resize(std::max(number + 1, 2 * Met.size()));
    const ISFileName*& met = Met[number];
    if (met == dependency) return false;
    if (met) return OthersMet.insert(dependency).second;
    met = dependency;
    return true;
}

std::vector<TRepeatedSource> TSourceMentions::FindRepeated() const {
    std::vector<TRepeatedSource> sources;
    std::unordered_map<const TName*, std::size_t> places;
    for (const TListed& listed : Listed) {
        const TName& name = NameOf(listed.File);
        if (name.Listings < 2) continue;
        const auto [place, isNew] = places.try_emplace(&name, sources.size());
        if (isNew) sources.emplace_back();
        sources[place->second].Places.push_back({Languages[listed.Language],
                                                 Libraries[listed.Library],
                                                 listed.File->Canonical(false), listed.Place});
    }
    return sources;
}

std::vector<TSpelledSource> TSourceMentions::FindSpelled() const {
    std::vector<TSpelledSource> sources;
    std::unordered_map<const TName*, std::size_t> places;
    std::unordered_set<const ISFileName*> met;
    TProgress progress(PROGRESS_CHECK_NAMES, Listed.size() + Dependencies.size());
    const auto add = [&](const ISFileName* file, const ISFileName* dependent, std::uint32_t where) {
        progress.Advance();
        const TName& name = NameOf(file);
        if (!name.IsSpelled || !met.insert(file).second) return;
        const auto [place, isNew] = places.try_emplace(&name, sources.size());
        if (isNew) sources.emplace_back();
        sources[place->second].Spellings.push_back(
            {file->Canonical(false), dependent ? dependent->Canonical(false) : "", where});
    };
    for (const TListed& listed : Listed) add(listed.File, nullptr, listed.Place);
    for (const TDependency& dependency : Dependencies)
        add(dependency.File, dependency.Dependent, dependency.Place);
    // Sources whose spellings are all listed ones are repeated sources: they are left out.
    std::erase_if(sources, [](const TSpelledSource& source) {
        return source.Spellings.back().Dependent.empty();
    });
    return sources;
}

void TSourceMentions::LookAtFiles(TDocumentFindings* findings) const {
    std::vector<const TListed*> listedAsked;
    std::vector<const TDependency*> dependenciesAsked;
    const auto tellFolder = [findings](const ISFileName* file, std::uint32_t place) {
        findings->Folders.push_back({file->Canonical(false), place});
    };
    for (const TListed& listed : Listed) {
        if (listed.Place != NameOf(listed.File).Place) continue;
        // The read of the build has looked at it.
        const auto status = FindStatusWhenLoaded(listed.File, kDefaultTimeStampKey);
        if (!status)
            listedAsked.push_back(&listed);
        else if (status->IsDirectory)
            tellFolder(listed.File, listed.Place);
    }
    for (const TDependency& dependency : Dependencies) {
        const TName& name = NameOf(dependency.File);
        if (name.Listings == 0 && dependency.File == name.First)
            dependenciesAsked.push_back(&dependency);
    }
    // Few for a report: a disk may be slow.
    TProgress progress(PROGRESS_CHECK_SOURCES, listedAsked.size() + dependenciesAsked.size(), 16);
    for (const TListed* listed : listedAsked) {
        if (LookAtFile(listed->File->Canonical(false)).IsDirectory)
            tellFolder(listed->File, listed->Place);
        progress.Advance();
    }
    for (const TDependency* dependency : dependenciesAsked) {
        const TFileStatus status = LookAtFile(dependency->File->Canonical(false));
        if (status.IsDirectory)
            tellFolder(dependency->File, dependency->Place);
        else
            findings->Unlisted.push_back(
                {dependency->File->Canonical(false),
                 dependency->Dependent ? dependency->Dependent->Canonical(false) : "",
                 status.Exists || status.IsUnknown, dependency->Place});
        progress.Advance();
    }
}

std::uint32_t TSourceMentions::FindPlace(const ISFileName* file) const {
    return NameOf(file).Place;
}
