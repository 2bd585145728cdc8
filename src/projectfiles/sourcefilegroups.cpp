#include "projectfiles/sourcefilegroups.h"
#include "projectfiles/groupsreading.h"
#include "projectfiles/ihdlsourcefile.h"
#include <algorithm>
#include <utility>

TSourceFileGroups::TSourceFileGroups(TSourceFileOwner* owner) : SourceFileOwner(owner) {}

TSourceFileGroups::~TSourceFileGroups() = default;

TSourceFileGroups::TGroup& TSourceFileGroups::GroupOf(THdlLanguage language) {
    const auto [place, isNew] = Groups.try_emplace(language);
    if (isNew) place->second.List.SetLanguage(language);
    return place->second;
}

TIHdlSourceFileList* TSourceFileGroups::GetOrCreateGroup(THdlLanguage language) {
    TGroup& group = GroupOf(language);
    group.IsCreated = true;
    return &group.List;
}

TIHdlSourceFileList* TSourceFileGroups::LookUpGroup(THdlLanguage language) {
    return &GroupOf(language).List;
}

TIHdlSourceFileList* TSourceFileGroups::FindGroup(THdlLanguage language) {
    const auto found = Groups.find(language);
    return found == Groups.end() || !found->second.IsStored() ? nullptr : &found->second.List;
}

const TIHdlSourceFileList* TSourceFileGroups::FindGroup(THdlLanguage language) const {
    const auto found = Groups.find(language);
    return found == Groups.end() || !found->second.IsStored() ? nullptr : &found->second.List;
}

std::vector<THdlLanguage> TSourceFileGroups::GetLanguages() const {
    std::vector<THdlLanguage> languages;
    for (const auto& [language, group] : Groups)
        if (group.IsStored()) languages.push_back(language);
    return languages;
}

bool TSourceFileGroups::AddSourceFile(IHdlSourceFile* source, bool atHead) {
    TAddition addition;
    return AddSourceFile(source, atHead, &addition);
}

bool TSourceFileGroups::AddSourceFile(IHdlSourceFile* source, bool atHead, TAddition* addition) {
    if (!source) return false;
    TGroup& group = GroupOf(source->GetLanguage());
    const bool wasStored = group.IsStored();
    const bool wasAdded = group.List.AddSourceFile(source, atHead);
    if (addition) *addition = {&group, atHead, wasAdded, wasStored};
    group.IsCreated = true;
    return wasAdded;
}

void TSourceFileGroups::Undo(const TAddition& addition) {
    if (!addition.Group) return;
    if (addition.WasAdded) addition.Group->List.UndoAdd(addition.AtHead);
    if (addition.WasGroupStored) return;
    addition.Group->List.ForgetFilling();
    addition.Group->IsCreated = false;
}

void TSourceFileGroups::Flush() {
    for (auto& [language, group] : Groups) {
        group.List.Flush();
        group.List.ForgetFilling();
        group.IsCreated = false;
    }
}

IHdlSourceFile* TSourceFileGroups::GetSourceFile(const ISFileName* name) {
    for (auto& [language, group] : Groups)
        if (IHdlSourceFile* source = group.List.GetSourceFile(name)) return source;
    return nullptr;
}

const IHdlSourceFile* TSourceFileGroups::GetSourceFile(const ISFileName* name) const {
    for (const auto& [language, group] : Groups)
        if (const IHdlSourceFile* source = group.List.GetSourceFile(name)) return source;
    return nullptr;
}

const ISFileName* TSourceFileGroups::FindHandleWhileReading(const char* name,
                                                            const ISFileName* buildFile) {
    return Reading ? Reading->FindHandle(name, buildFile) : nullptr;
}

bool TSourceFileGroups::FindWhileReading(const ISFileName* name, IHdlSourceFile** source,
                                         bool* isListed) {
    TSourceNote known;
    if (!Reading || !Reading->Find(name, &known)) return false;
    *isListed = known.IsListed;
    *source = known.IsListed || known.IsDependency ? known.Source : nullptr;
    return true;
}

IHdlSourceFile* TSourceFileGroups::GetSourceFileOrDependency(const ISFileName* name) {
    for (auto& [language, group] : Groups) {
        if (IHdlSourceFile* source = group.List.GetSourceFile(name)) return source;
        if (IHdlSourceFile* dependency = FindDependency(&group, name)) return dependency;
    }
    return nullptr;
}

IHdlSourceFile* TSourceFileGroups::GetDependency(const ISFileName* name) {
    TSourceNote known;
    if (Reading && Reading->Find(name, &known)) return known.IsDependency ? known.Source : nullptr;
    for (auto& [language, group] : Groups)
        if (IHdlSourceFile* dependency = FindDependency(&group, name)) return dependency;
    return nullptr;
}

// To be called for a name that the group does not list.
IHdlSourceFile* TSourceFileGroups::FindDependency(TGroup* group, const ISFileName* name) {
    IHdlSourceFile* dependency = nullptr;
    if (group->Dependencies.Find(name, &dependency)) return dependency;
    return group->List.GetSourceFileOrDependency(name);
}

bool TSourceFileGroups::IsAnythingListed() const {
    return std::any_of(Groups.begin(), Groups.end(),
                       [](const auto& entry) { return !entry.second.List.empty(); });
}

bool TSourceFileGroups::IsAnySourceFileModifiedSinceLastCompiled() const {
    const auto isModified = [](const IHdlSourceFile* source) {
        const ISFileName* name = source->GetFileName();
        return name && name->IsFileModifiedSinceLastCompiled(kDefaultTimeStampKey, false);
    };
    return std::any_of(Groups.begin(), Groups.end(), [&isModified](const auto& entry) {
        const TIHdlSourceFileList& list = entry.second.List;
        return std::any_of(list.begin(), list.end(), isModified);
    });
}
