#include "projectfiles/dependenciesahead.h"
#include "projectfiles/groupsreading.h"
#include "projectfiles/ihdlsourcefile.h"
#include "projectfiles/relativepaths.h"
#include "projectfiles/sourcefilegroups.h"
#include "projectfiles/sourcefileowner.h"
#include "projectfiles/sourcename.h"
#include "services/base/booltext.h"
#include "services/logging/messagebox.h"
#include "services/xml/xmlstream.h"
#include "settings/projectsimgeneralconfig.h"
#include <memory>
#include <utility>

namespace {

// Of the groups that follow each other from `element` on. For an observer alone; nobody else waits
// for it.
std::size_t CountListedSources(DListIterator<TElement*> element) {
    std::size_t count = 0;
    if (!GetProgressObserver()) return count;
    for (std::size_t depth = 0; element.NotAtTail(); ++element) {
        if (element.Current()->ElemType == TElement::END && depth > 0) --depth;
        if (!IsAtStart(element)) continue;
        if (depth == 0 && !IsAtStart(element, "SourceFileGroup")) break;
        if (IsAtStart(element, "SourceFile")) ++count;
        ++depth;
    }
    return count;
}

/// A read that is under way as long as this object is. A message box may let the user start
/// another one within it.
class TReadingInPlace {
public:
    TReadingInPlace(std::unique_ptr<TGroupsReading>* place, std::unique_ptr<TGroupsReading> reading)
        : Place(place), Outer(std::exchange(*place, std::move(reading))) {}
    TReadingInPlace(const TReadingInPlace&) = delete;
    TReadingInPlace& operator=(const TReadingInPlace&) = delete;
    ~TReadingInPlace() { *Place = std::move(Outer); }

private:
    std::unique_ptr<TGroupsReading>* Place;
    std::unique_ptr<TGroupsReading> Outer;
};

}  // namespace

bool TSourceFileGroups::ReadSourceFileGroups(DListIterator<TElement*>& element) {
    return ReadSourceFileGroups(element, nullptr, true);
}

bool TSourceFileGroups::ReadSourceFileGroups(DListIterator<TElement*>& element,
                                             const ISFileName* buildFile, bool asksForAll) {
    FilesMissing = false;
    auto reading =
        std::make_unique<TGroupsReading>(!IsAnythingListed(), CountListedSources(element));
    if (buildFile) reading->LookAheadFrom(buildFile, asksForAll);
    const TReadingInPlace place(&Reading, std::move(reading));
    return ReadGroups(element);
}

bool TSourceFileGroups::ReadGroups(DListIterator<TElement*>& element) {
    while (IsAtStart(element, "SourceFileGroup")) {
        const char* const text = element.Current()->GetAttribute("Language");
        const THdlLanguage language = GetHdlLanguageFromString(text);
        ++element;
        if (!element.NotAtTail()) return false;
        if (!ReadSources(element, language)) return false;
        SkipEnds(element);
    }
    return true;
}

bool TSourceFileGroups::ReadSources(DListIterator<TElement*>& element, THdlLanguage language) {
    TIHdlSourceFileList* group = GetOrCreateGroup(language);
    Reading->BeginGroup(element);
    while (IsAtStart(element, "SourceFile")) {
        DropWhatWasRead(element);
        DListIterator<TElement*> start = element;
        ++element;
        if (!element.NotAtTail()) return false;
        if (IsAtStart(element)) {
            // A child in the place of the name: nothing in this element can be trusted.
            Reading->LoseTrack();
            SkipElement(start);
            element = start;
            SkipEnds(element);
            continue;
        }
        std::string& name = Reading->Text;
        name = TrimmedTextView(element);
        Reading->MeetText(element);
        IHdlSourceFile* source = ReadSource(*start.Current(), name, language);
        Reading->AddTo(group, source);
        Reading->LeaveText();
        ++element;
        if (!ReadDependencies(element, source)) return false;
        SkipEnds(element);
        Reading->Progress.Advance();
    }
    return true;
}

// Null without a name.
IHdlSourceFile* TSourceFileGroups::ReadSource(const TElement& start, const std::string& name,
                                              THdlLanguage language) {
    if (name.empty() || !SourceFileOwner) return nullptr;
    IHdlSourceFile* source = SourceFileOwner->GetOrMakeSourceFile(name.c_str(), language);
    if (!source) return nullptr;
    if (ConvertStringBoolToBoolean(start.GetAttribute("Library"))) source->SetLibraryFlag(true);
    const char* const precompiled = start.GetAttribute("PrecompiledLibrary");
    if (*precompiled) source->SetPrecompiledLibraryGroupName(precompiled);
    TestExists(*source);
    return source;
}

// The disk is asked once for each file, however often it is listed.
void TSourceFileGroups::TestExists(const IHdlSourceFile& source) {
    if (!Reading->IsNew(source)) return;
    if (MarkLoadedAndTestExists(source.GetFileName(), kDefaultTimeStampKey)) return;
    const std::string path = source.GetFileName()->Canonical(false);
    Fileservices::GetMessageBox()->ShowMessage(("Missing File: \"" + path + "\"").c_str(),
                                               "HdlBuildFile", 0);
    FilesMissing = true;
}

// Without a source the dependencies are passed over.
bool TSourceFileGroups::ReadDependencies(DListIterator<TElement*>& element,
                                         IHdlSourceFile* source) {
    while (IsAtStart(element, "Dependency")) {
        DListIterator<TElement*> start = element;
        ++element;
        if (!element.NotAtTail()) return false;
        if (IsAtStart(element)) {
            Reading->LoseTrack();
            SkipElement(start);
            element = start;
            continue;
        }
        std::string& name = Reading->Text;
        name = TrimmedTextView(element);
        Reading->MeetText(element);
        if (source && !name.empty()) ReadDependency(name, source);
        Reading->LeaveText();
        ++element;
        SkipEnd(element);
    }
    return true;
}

void TSourceFileGroups::ReadDependency(const std::string& name, IHdlSourceFile* source) {
    if (!Reading->AddKnown(name, source))
        Reading->AddTo(source, SourceFileOwner->GetOrMakeSourceFile(name.c_str()));
}

namespace {

void WriteSource(TXMLList* document, const IHdlSourceFile& source, TRelativePaths* paths) {
    PushStart(document, "SourceFile",
              {{"Library", ConvertBooleanToStringBool(source.IsLibrary())},
               {"PrecompiledLibrary", source.GetPrecompiledLibraryGroupName()}});
    PushText(document, paths->Of(source.GetFileName()));
    if (const TIHdlSourceFileList* dependencies = source.GetDependencyList())
        for (const IHdlSourceFile* dependency : *dependencies)
            PushTextElement(document, "Dependency", paths->Of(dependency->GetFileName()));
    PushEnd(document, "SourceFile");
}

}  // namespace

void TSourceFileGroups::WriteSourceFileGroups(TXMLList* document, const ISFileName* buildFileName,
                                              THdlLanguage topLanguage,
                                              const TProjectSimGeneralConfig* general) const {
    if (!document) return;
    TRelativePaths paths(buildFileName);
    for (const auto& [language, group] : Groups) {
        if (!group.IsStored()) continue;
        if (language != topLanguage && !(general && general->GetCompileLanguageFiles(language)))
            continue;
        PushStart(document, "SourceFileGroup", {{"Language", GetStringFromHdlLanguage(language)}});
        TDependenciesAhead ahead(group.List);
        TProgress progress(PROGRESS_WRITE_SOURCES, group.List.size());
        for (const IHdlSourceFile* source : group.List) {
            ahead.Step();
            WriteSource(document, *source, &paths);
            progress.Advance();
        }
        PushEnd(document, "SourceFileGroup");
    }
}
