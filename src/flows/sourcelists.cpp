#include "flows/sourcelists.h"
#include "buildfile/hdlbuildfile.h"
#include "flows/scan/asciicase.h"
#include "projectfiles/ihdlsourcefile.h"
#include "projectfiles/ihdlsourcefilelist.h"
#include "services/base/booltext.h"
#include "services/names/isfilename.h"
#include "services/xml/xmllist.h"
#include <algorithm>
#include <set>
#include <unordered_set>
#include <utility>

std::uint32_t TTextNumbers::NumberOf(const char* text) {
    if (!Texts.empty() && *Texts.back() == text)
        return static_cast<std::uint32_t>(Texts.size() - 1);
    const auto [entry, isNew] = Numbers.try_emplace(text, static_cast<std::uint32_t>(Texts.size()));
    if (isNew) Texts.push_back(&entry->first);
    return entry->second;
}

const ISFileName* TSameFiles::HandleOf(const ISFileName* file) {
    const auto [handle, isNew] = Handles.try_emplace(file, file);
    if (isNew && file)
        handle->second =
            ByFoldedPath.try_emplace(FoldAscii(file->Canonical(false)), file).first->second;
    return handle->second;
}

TSourceLists::TSourceLists(const THdlBuildFile& build, TTextNumbers* libraries, TSameFiles* files) {
    const auto handleOf = [files](const ISFileName* file) {
        return files ? files->HandleOf(file) : file;
    };
    for (const THdlLanguage language : build.GetSourceFileLanguages()) {
        const TIHdlSourceFileList& group = *build.GetSourceFileGroup(language);
        TRecords& records = Groups[language];
        records.reserve(group.size());
        for (const IHdlSourceFile* source : group) {
            const std::size_t begin = Dependencies.size();
            if (const TIHdlSourceFileList* list = source->GetDependencyList())
                for (const IHdlSourceFile* dependency : *list)
                    Dependencies.push_back(handleOf(dependency->GetFileName()));
            records.push_back({handleOf(source->GetFileName()),
                               libraries->NumberOf(source->GetPrecompiledLibraryGroupName()),
                               source->IsLibrary(), begin, Dependencies.size() - begin});
        }
    }
}

const TSourceLists::TRecords& TSourceLists::GetGroup(THdlLanguage language) const {
    static const TRecords kNoRecords;
    const auto group = Groups.find(language);
    return group == Groups.end() ? kNoRecords : group->second;
}

namespace {

bool AreEqual(const TSourceLists& one, const TListedRecord& a, const TSourceLists& other,
              const TListedRecord& b) {
    const TSourceLists::TFiles files = one.GetDependencies(a);
    const TSourceLists::TFiles others = other.GetDependencies(b);
    return a.File == b.File && a.Library == b.Library && a.IsLibraryFile == b.IsLibraryFile &&
           std::equal(files.begin(), files.end(), others.begin(), others.end());
}

std::vector<THdlLanguage> LanguagesOf(const TSourceLists& one, const TSourceLists& other) {
    std::vector<THdlLanguage> languages;
    for (const auto* lists : {&one, &other})
        for (const auto& [language, records] : lists->GetGroups()) languages.push_back(language);
    std::sort(languages.begin(), languages.end());
    languages.erase(std::unique(languages.begin(), languages.end()), languages.end());
    return languages;
}

using TPlaces = std::unordered_map<const ISFileName*, std::size_t>;

TPlaces PlacesOf(const TSourceLists::TRecords& records, std::size_t begin, std::size_t end) {
    TPlaces places;
    places.reserve(end - begin);
    for (std::size_t i = begin; i < end; ++i) places.emplace(records[i].File, i);
    return places;
}

const ISFileName* FileInFront(const TSourceLists::TRecords& records, const TListedRecord* record) {
    return record == records.data() ? nullptr : (record - 1)->File;
}

void PushSource(const TSourceLists& lists, const TListedRecord& record, const char* folder,
                const TTextNumbers& libraries, TXMLList* document) {
    TMyString path;
    const TAttributeView attributes[] = {
        {"Library", ConvertBooleanToStringBool(record.IsLibraryFile)},
        {"PrecompiledLibrary", libraries.GetText(record.Library)}};
    document->Push(TElement::START, "SourceFile", {}, attributes);
    document->Push(TElement::TEXT, {}, record.File->GetFileNameRelativeTo(folder, &path));
    for (const ISFileName* file : lists.GetDependencies(record))
        document->PushTextElement("Dependency", file->GetFileNameRelativeTo(folder, &path));
    document->Push(TElement::END, "SourceFile", {});
}

}  // namespace

bool TSourceLists::operator==(const TSourceLists& other) const {
    const std::vector<THdlLanguage> languages = LanguagesOf(*this, other);
    return std::all_of(languages.begin(), languages.end(), [&](THdlLanguage language) {
        const TRecords& records = GetGroup(language);
        const TRecords& others = other.GetGroup(language);
        return std::equal(records.begin(), records.end(), others.begin(), others.end(),
                          [&](const TListedRecord& a, const TListedRecord& b) {
                              return AreEqual(*this, a, other, b);
                          });
    });
}

TSourceListsDifference::TSourceListsDifference(const TSourceLists& before,
                                               const TSourceLists& after)
    : Before(before), After(after) {
    for (const THdlLanguage language : LanguagesOf(before, after)) Compare(language);
}

// Walks both groups in step, between what is the same at both ends. Where both go on with a source
// that the other one has elsewhere, the one moved that the other group only leaves out; else it is
// the one in the group after.
void TSourceListsDifference::Compare(THdlLanguage language) {
    const TSourceLists::TRecords& before = Before.GetGroup(language);
    const TSourceLists::TRecords& after = After.GetGroup(language);
    std::size_t i = 0;
    std::size_t j = 0;
    while (i < before.size() && j < after.size() && before[i].File == after[j].File)
        CompareOne(language, before[i++], after[j++]);
    std::size_t end = before.size();
    std::size_t endAfter = after.size();
    while (i < end && j < endAfter && before[end - 1].File == after[endAfter - 1].File)
        --end, --endAfter;
    const TPlaces places = PlacesOf(before, i, end);
    const TPlaces placesAfter = PlacesOf(after, j, endAfter);
    std::unordered_set<const ISFileName*> moved;
    const auto move = [&](const TListedRecord& from, const TListedRecord& to) {
        moved.insert(to.File);
        Changes.push_back({language, &from, &to, true});
    };
    while (i < end || j < endAfter) {
        const TListedRecord* const from = i < end ? &before[i] : nullptr;
        const TListedRecord* const to = j < endAfter ? &after[j] : nullptr;
        if (from && to && from->File == to->File) {
            CompareOne(language, before[i++], after[j++]);
        } else if (from && moved.contains(from->File)) {
            ++i;
        } else if (to && moved.contains(to->File)) {
            ++j;
        } else if (from && !placesAfter.contains(from->File)) {
            Changes.push_back({language, &before[i++], nullptr, false});
        } else if (to && !places.contains(to->File)) {
            Changes.push_back({language, nullptr, &after[j++], false});
        } else if (!to || (i + 1 < end && before[i + 1].File == to->File)) {
            move(*from, after[placesAfter.at(from->File)]);
        } else {
            move(before[places.at(to->File)], *to);
        }
    }
    while (i < before.size()) CompareOne(language, before[i++], after[j++]);
}

void TSourceListsDifference::CompareOne(THdlLanguage language, const TListedRecord& before,
                                        const TListedRecord& after) {
    if (!AreEqual(Before, before, After, after))
        Changes.push_back({language, &before, &after, false});
}

const ISFileName* TSourceListsDifference::GetFileInFrontBefore(const TListedChange& change) const {
    return FileInFront(Before.GetGroup(change.Language), change.Before);
}

const ISFileName* TSourceListsDifference::GetFileInFrontAfter(const TListedChange& change) const {
    return FileInFront(After.GetGroup(change.Language), change.After);
}

void TSourceListsDifference::Push(const ISFileName* buildFile, const TTextNumbers& libraries,
                                  TXMLList* before, TXMLList* after) const {
    std::map<THdlLanguage, std::unordered_set<const ISFileName*>> pushed;
    std::set<THdlLanguage> pushedWhole;
    for (const TListedChange& change : Changes) {
        // Of a few sources alone nobody could tell which of them moved.
        if (change.IsMoved) pushedWhole.insert(change.Language);
        auto& files = pushed[change.Language];
        if (change.Before) files.insert(change.Before->File);
        if (!change.After) continue;
        files.insert(change.After->File);
        if (change.Before) continue;
        const TSourceLists::TRecords& records = After.GetGroup(change.Language);
        if (change.After != records.data()) files.insert((change.After - 1)->File);
        if (change.After != &records.back()) files.insert((change.After + 1)->File);
    }
    const std::string folder = buildFile->GetPathOnly();
    const auto push = [&](const TSourceLists& lists, TXMLList* document) {
        for (const auto& [language, records] : lists.GetGroups()) {
            const TAttributeView attributes[] = {{"Language", GetStringFromHdlLanguage(language)}};
            document->Push(TElement::START, "SourceFileGroup", {}, attributes);
            const auto& files = pushed[language];
            const bool isWhole = pushedWhole.contains(language);
            for (const TListedRecord& record : records)
                if (isWhole || (!files.empty() && files.contains(record.File)))
                    PushSource(lists, record, folder.c_str(), libraries, document);
            document->Push(TElement::END, "SourceFileGroup", {});
        }
    };
    push(Before, before);
    push(After, after);
}
