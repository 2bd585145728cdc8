#include "projectfiles/hdlusersourcefilelist.h"
#include "projectfiles/hdlprojectusersourcefile.h"
#include "services/designdatabase/visitor.h"
#include "services/logging/binarylog.h"
#include <memory>

namespace {

constinit TCheckSite noScope("AssociatedFileScopeFileName", kProjectFileSource, 609);

}  // namespace

THdlUserSourceFileList::THdlUserSourceFileList(IProjectComponent* owner)
    : THdlProjectFileList(LIST_TYPE_USER_SOURCE_FILES, owner) {}

THdlUserSourceFileList::THdlUserSourceFileList(const THdlUserSourceFileList& other) = default;

THdlUserSourceFileList& THdlUserSourceFileList::operator=(const THdlUserSourceFileList& other) =
    default;

THdlUserSourceFileList::~THdlUserSourceFileList() = default;

void THdlUserSourceFileList::Accept(IBaseVisitor* visitor) const {
    AcceptVisitor(visitor, this);
}

THdlProjectFileList::TAddResult THdlUserSourceFileList::AddAtHeadAndSetOwner(
    const ISFileName* name) {
    if (THdlProjectFile* listed = FindWithoutWalk(name)) return Refused(name, listed);
    auto file =
        std::make_unique<THdlProjectUserSourceFile>(name, GetOwningProjectComponent(), false);
    const TAddResult result = AddAtHeadAndSetOwner(file.get());
    return DeleteUnlessAdded(file.release(), result);
}

THdlProjectFileList::TAddResult THdlUserSourceFileList::AddAtTailAndSetOwner(
    const ISFileName* name) {
    if (THdlProjectFile* listed = FindWithoutWalk(name)) return Refused(name, listed);
    auto file =
        std::make_unique<THdlProjectUserSourceFile>(name, GetOwningProjectComponent(), false);
    const TAddResult result = AddAtTailAndSetOwner(file.get());
    return DeleteUnlessAdded(file.release(), result);
}

bool THdlUserSourceFileList::SetAssociatedFileScope(const ISFileName* name) {
    const auto place = FindFromISFileName(name);
    SetScope(place == end() ? nullptr : dynamic_cast<THdlProjectUserSourceFile*>(*place));
    return AssociatedFileScope != nullptr;
}

bool THdlUserSourceFileList::AddAssociatedFileToScopeFile(const ISFileName* name) {
    SetScope(GetListedScope());
    if (!AssociatedFileScope) {
        noScope.Report();
        return false;
    }
    return AssociatedFileScope->GetAssociatedFileList()->AddAtTailAndSetOwner(name).second;
}

THdlProjectFileList::TAddResult THdlUserSourceFileList::AddAtHeadAndSetOwner(
    THdlProjectUserSourceFile* file) {
    return push_front_no_dup(file);
}

THdlProjectFileList::TAddResult THdlUserSourceFileList::AddAtTailAndSetOwner(
    THdlProjectUserSourceFile* file) {
    return push_back_no_dup(file);
}

void THdlUserSourceFileList::SetScope(THdlProjectUserSourceFile* file) {
    // The shared handle of the name outlives the file.
    const ISFileName* const name = file ? ISFileName::NewISFileName(file->GetHashKey()) : nullptr;
    AssociatedFileScope = file;
    ScopeFileName = name;
    ScopeSerial = file ? file->Serial : 0;
}

// The scope may be deleted already, and another file may be at its address.
THdlProjectUserSourceFile* THdlUserSourceFileList::GetListedScope() const {
    if (!AssociatedFileScope) return nullptr;
    THdlProjectFile* listed = FindByAddress(AssociatedFileScope, ScopeFileName);
    auto* scope = dynamic_cast<THdlProjectUserSourceFile*>(listed);
    return scope && scope->Serial == ScopeSerial ? scope : nullptr;
}
