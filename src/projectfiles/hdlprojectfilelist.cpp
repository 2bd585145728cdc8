#include "projectfiles/hdlprojectfilelist.h"
#include "projectfiles/hdlprojectfile.h"
#include "projectfiles/projectfileindex.h"
#include "services/base/keeper.h"
#include "services/designdatabase/iprojectcomponent.h"
#include "services/designdatabase/visitor.h"
#include "services/logging/binarylog.h"
#include <algorithm>
#include <iterator>
#include <memory>
#include <new>
#include <string_view>

namespace {

constexpr const char* kNamelessCondition = "currentFileName";
constinit TCheckSite namelessInConstFind(kNamelessCondition, kProjectFileSource, 38);
constinit TCheckSite namelessInFind(kNamelessCondition, kProjectFileSource, 53);
constinit TCheckSite namelessInInsert(kNamelessCondition, kProjectFileSource, 208);

using TList = THdlProjectFileList;

struct TFolderRow {
    const char* Name;
    TList::TFileListType Type;
};
// The folders that a project shows; some are no file lists.
constexpr TFolderRow kFolders[] = {
    {"User Source Files", TList::LIST_TYPE_USER_SOURCE_FILES},
    {"Command-Line Source Files", TList::LIST_TYPE_COMMAND_LINE_SOURCE_FILES},
    {"File Input", TList::LIST_TYPE_FILE_INPUT},
    {"File Output", TList::LIST_TYPE_FILE_OUTPUT},
    {"Initialized Variables", TList::LIST_TYPE_INITIALIZED_VARIABLES},
    {"Transaction Diagrams", TList::LIST_TYPE_TRANSACTION_DIAGRAMS},
    {"Template Diagram", TList::LIST_TYPE_TEMPLATE_DIAGRAM},
    {"Stimulus & Results Archive", TList::LIST_TYPE_STIMULUS_AND_RESULTS_ARCHIVE},
    {"Associated Files", TList::LIST_TYPE_ASSOCIATED_FILES},
    {"Utilities Files", TList::LIST_TYPE_UTILITIES_FILES},
    {"Source Code Library Files", TList::LIST_TYPE_SOURCE_CODE_LIBRARY_FILES},
    {"Simulated Models", TList::LIST_TYPE_NONE},
    {"Stimulus & Results", TList::LIST_TYPE_NONE},
    {"Transaction-Level Model", TList::LIST_TYPE_NONE},
    {"Component Instances", TList::LIST_TYPE_NONE},
    {"Diagram Library Files", TList::LIST_TYPE_NONE},
    {"Compiled Libraries", TList::LIST_TYPE_NONE},
    {"Simulation Snapshot", TList::LIST_TYPE_NONE},
    {"Include Files", TList::LIST_TYPE_NONE},
    {"Test Vector Files", TList::LIST_TYPE_NONE},
};

// Deletes the file at `place`, and takes no memory. Its destructor deletes its associated files,
// and theirs, to any depth: those calls only hand the entry over to the waiting files of the
// outermost one, which deletes them in turn.
void DeleteFile(std::list<THdlProjectFile*>* files,
                std::list<THdlProjectFile*>::const_iterator place) {
    thread_local std::list<THdlProjectFile*>* waiting = nullptr;
    if (waiting) return waiting->splice(waiting->end(), *files, place);
    std::list<THdlProjectFile*> here;
    here.splice(here.end(), *files, place);
    waiting = &here;
    while (!here.empty()) {
        THdlProjectFile* next = here.back();
        here.pop_back();
        delete next;
    }
    waiting = nullptr;
}

}  // namespace

THdlProjectFileList::THdlProjectFileList(TFileListType type, IProjectComponent* owner)
    : OwningProjectComponent(owner), ListType(type), Index(std::make_unique<TProjectFileIndex>()) {}

// The base's copy constructor would share the registrations.
// NOLINTNEXTLINE(bugprone-copy-constructor-init)
THdlProjectFileList::THdlProjectFileList(const THdlProjectFileList& other)
    : std::list<THdlProjectFile*>(other),
      hdb::IHDBBase(other),
      OwningProjectComponent(other.OwningProjectComponent),
      ListType(other.ListType),
      Index(std::make_unique<TProjectFileIndex>()) {
    CopyRegistrations(other);
    for (THdlProjectFile* file : *this) file->Hold();
}

THdlProjectFileList& THdlProjectFileList::operator=(const THdlProjectFileList& other) {
    if (this == &other) return *this;
    // All memory is taken before anything changes.
    std::list<THdlProjectFile*> files(other);
    CopyRegistrations(other);
    Index->Drop();
    for (THdlProjectFile* file : files) file->Hold();
    files.swap(*this);
    for (THdlProjectFile* file : files)
        if (file->LetGo()) KeepUntilExit(file);
    OwningProjectComponent = other.OwningProjectComponent;
    ListType = other.ListType;
    return *this;
}

THdlProjectFileList::~THdlProjectFileList() {
    Flush(true);
}

void THdlProjectFileList::Accept(IBaseVisitor* visitor) const {
    AcceptVisitor(visitor, this);
}

const char* THdlProjectFileList::GetName() const {
    return GetListTypeToString(ListType);
}

TRope THdlProjectFileList::GetFullName() {
    return GetName();
}

hdb::TItemKind THdlProjectFileList::GetHDBItemKind() {
    return hdb::ITEM_KIND_FILE;
}

THdlLanguage THdlProjectFileList::GetLanguage() {
    return LANGUAGE_NONE;
}

const hdb::IHDBBase* THdlProjectFileList::GetSourceParent(bool) const {
    return nullptr;
}

bool THdlProjectFileList::IsProtected() const {
    return false;
}

TList::TAddResult THdlProjectFileList::AddAtHeadAndSetOwner(const ISFileName* name) {
    if (THdlProjectFile* listed = FindWithoutWalk(name)) return Refused(name, listed);
    auto file = std::make_unique<THdlProjectFile>(name, OwningProjectComponent, false);
    const TAddResult result = AddAtHeadAndSetOwner(file.get());
    return DeleteUnlessAdded(file.release(), result);
}

TList::TAddResult THdlProjectFileList::AddAtHeadAndSetOwner(THdlProjectFile* file) {
    if (file) file->SetOwningProjectComponent(OwningProjectComponent);
    return push_front_no_dup(file);
}

TList::TAddResult THdlProjectFileList::AddAtTailAndSetOwner(const ISFileName* name) {
    if (THdlProjectFile* listed = FindWithoutWalk(name)) return Refused(name, listed);
    auto file = std::make_unique<THdlProjectFile>(name, OwningProjectComponent, false);
    const TAddResult result = AddAtTailAndSetOwner(file.get());
    return DeleteUnlessAdded(file.release(), result);
}

TList::TAddResult THdlProjectFileList::AddAtTailAndSetOwner(THdlProjectFile* file) {
    if (file) file->SetOwningProjectComponent(OwningProjectComponent);
    return push_back_no_dup(file);
}

TList::TAddResult THdlProjectFileList::InsertFileAndSetOwner(THdlProjectFile* file,
                                                             const THdlProjectFile* relativeTo,
                                                             bool insertBefore) {
    if (!file) return {nullptr, false};
    file->SetOwningProjectComponent(OwningProjectComponent);
    if (const auto listed = Find(file, namelessInFind); listed != end())
        return Refused(file, *listed);
    auto place = Find(relativeTo, namelessInInsert);
    if (place != end() && !insertBefore) ++place;
    return InsertAndNotify(place, file);
}

bool THdlProjectFileList::SetAssociatedFileScope(const ISFileName*) {
    return false;
}

bool THdlProjectFileList::AddAssociatedFileToScopeFile(const ISFileName*) {
    return false;
}

const char* THdlProjectFileList::GetListTypeToString(TFileListType type) {
    if (type == LIST_TYPE_NONE) return "";
    for (const TFolderRow& row : kFolders)
        if (row.Type == type) return row.Name;
    return "";
}

TList::TFileListType THdlProjectFileList::GetListTypeFromString(const char* text) {
    for (const TFolderRow& row : kFolders)
        if (text && std::string_view(text) == row.Name) return row.Type;
    return LIST_TYPE_NONE;
}

TList::iterator THdlProjectFileList::FindFromISFileName(const ISFileName* name) {
    return AsMutable(Find(name, namelessInFind));
}

TList::const_iterator THdlProjectFileList::FindFromISFileName(const ISFileName* name) const {
    return Find(name, namelessInConstFind);
}

bool THdlProjectFileList::Contains(const ISFileName* name) const {
    return FindFromISFileName(name) != end();
}

bool THdlProjectFileList::Contains(THdlProjectFile* file) const {
    const ISFileName* name = file;
    return Contains(name);
}

bool THdlProjectFileList::Remove(const ISFileName* name, bool deleteFile) {
    const auto place = Find(name, namelessInFind);
    if (place == end()) return false;
    Index->Removing(*this, place);
    // Out of the list first: a file may look at it while it is deleted.
    std::list<THdlProjectFile*> removed;
    removed.splice(removed.end(), *this, place);
    if ((*place)->LetGo() && deleteFile) DeleteFile(&removed, place);
    if (ListType != LIST_TYPE_UTILITIES_FILES && OwningProjectComponent)
        OwningProjectComponent->SetProjectModified(true);
    return true;
}

bool THdlProjectFileList::Remove(const THdlProjectFile* file, bool deleteFile) {
    const ISFileName* name = file;
    return Remove(name, deleteFile);
}

void THdlProjectFileList::Flush(bool deleteFiles) {
    // Out of the list first: a file may look at it while it is deleted.
    std::list<THdlProjectFile*> files;
    files.swap(*this);
    Index->Drop();
    for (auto next = files.begin(); next != files.end();) {
        const auto place = next++;
        if ((*place)->LetGo() && deleteFiles) DeleteFile(&files, place);
    }
}

bool THdlProjectFileList::IsModified(bool whenUnknown) const {
    bool isModified = false;
    for (const THdlProjectFile* file : *this)
        if (file->IsFileModifiedSinceLastLoaded(kDefaultTimeStampKey, whenUnknown))
            isModified = true;
    return isModified;
}

bool THdlProjectFileList::IsCopyOrMoveCompatibleType(TFileListType other) const {
    return ListType == other && other >= LIST_TYPE_USER_SOURCE_FILES &&
           other <= LIST_TYPE_TRANSACTION_DIAGRAMS;
}

TList::TAddResult THdlProjectFileList::push_back_no_dup(THdlProjectFile* file) {
    if (!file) return {nullptr, false};
    if (const auto listed = Find(file, namelessInFind); listed != end())
        return Refused(file, *listed);
    return InsertAndNotify(end(), file);
}

TList::TAddResult THdlProjectFileList::push_front_no_dup(THdlProjectFile* file) {
    if (!file) return {nullptr, false};
    if (const auto listed = Find(file, namelessInFind); listed != end())
        return Refused(file, *listed);
    return InsertAndNotify(begin(), file);
}

THdlProjectFile* THdlProjectFileList::FindWithoutWalk(const ISFileName* name) const {
    const ISFileName* handle = GetInnermostHandle(name);
    if (!handle || !Index->Prepare(*this)) return nullptr;
    const auto place = Index->Find(*this, GetFileIdentity(handle));
    return place == end() ? nullptr : *place;
}

TList::TAddResult THdlProjectFileList::Refused(const ISFileName* refused, THdlProjectFile* listed) {
    ReportNamesake(listed, refused);
    return {listed, false};
}

TList::TAddResult THdlProjectFileList::DeleteUnlessAdded(THdlProjectFile* made, TAddResult result) {
    if (!result.second) delete made;
    return result;
}

THdlProjectFile* THdlProjectFileList::FindByAddress(const THdlProjectFile* file,
                                                    const ISFileName* name) const {
    if (THdlProjectFile* named = FindWithoutWalk(name); named && named == file) return named;
    const auto place = std::find(begin(), end(), file);
    return place == end() ? nullptr : *place;
}

TList::const_iterator THdlProjectFileList::Find(const ISFileName* name,
                                                TCheckSite& nameless) const {
    if (!name) return end();
    const ISFileName* handle = GetInnermostHandle(name);
    if (!Index->Prepare(*this)) return Walk(handle, nameless);
    return handle ? Index->Find(*this, GetFileIdentity(handle)) : end();
}

// A null handle equals no name, but the files without one are reported all the same.
TList::const_iterator THdlProjectFileList::Walk(const ISFileName* handle,
                                                TCheckSite& nameless) const {
    const TFileIdentity identity = GetFileIdentity(handle);
    for (auto place = begin(); place != end(); ++place) {
        const ISFileName* currentFileName = (*place)->GetFileName();
        if (!currentFileName)
            nameless.Report();
        else if (handle && GetFileIdentity(currentFileName) == identity)
            return place;
    }
    return end();
}

TList::TAddResult THdlProjectFileList::InsertAndNotify(const_iterator position,
                                                       THdlProjectFile* file) {
    const auto place = Link(position, file);
    if (!HasObservers()) return {file, true};
    const auto index = std::next(place) == end() ? static_cast<difference_type>(size()) - 1
                                                 : std::distance(begin(), place);
    TNotifyOneArg<AHdbObjectObserver, int> notify(&AHdbObjectObserver::FileInserted,
                                                  static_cast<int>(index));
    try {
        ForEach(notify);
    } catch (const std::bad_alloc&) {
        // No observer was told.
        Unlink(place);
        throw;
    }
    return {file, true};
}

TList::iterator THdlProjectFileList::Link(const_iterator position, THdlProjectFile* file) {
    if (!file) return AsMutable(position);
    const auto place = std::list<THdlProjectFile*>::insert(position, file);
    file->Hold();
    Index->Added(*this, place);
    return place;
}

TList::iterator THdlProjectFileList::Unlink(const_iterator place) {
    Index->Removing(*this, place);
    (*place)->LetGo();
    return std::list<THdlProjectFile*>::erase(place);
}

void THdlProjectFileList::DropIndexes(const THdlProjectFileList& other) const {
    Index->Drop();
    other.Index->Drop();
}
