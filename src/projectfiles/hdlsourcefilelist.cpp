#include "projectfiles/hdlsourcefilelist.h"
#include "projectfiles/hdlprojectsourcefile.h"
#include "services/designdatabase/visitor.h"
#include <memory>

THdlSourceFileList::THdlSourceFileList(IProjectComponent* owner)
    : THdlSourceFileList(LIST_TYPE_ASSOCIATED_FILES, owner) {}

THdlSourceFileList::THdlSourceFileList(TFileListType type, IProjectComponent* owner)
    : THdlProjectFileList(type, owner) {}

THdlSourceFileList::THdlSourceFileList(const THdlSourceFileList& other) = default;

THdlSourceFileList& THdlSourceFileList::operator=(const THdlSourceFileList& other) = default;

THdlSourceFileList::~THdlSourceFileList() = default;

void THdlSourceFileList::Accept(IBaseVisitor* visitor) const {
    AcceptVisitor(visitor, this);
}

THdlProjectFileList::TAddResult THdlSourceFileList::AddAtHeadAndSetOwner(const ISFileName* name) {
    if (THdlProjectFile* listed = FindWithoutWalk(name)) return Refused(name, listed);
    auto file = std::make_unique<THdlProjectSourceFile>(name, GetOwningProjectComponent(),
                                                        SourceFileIsLibrary());
    const TAddResult result = AddAtHeadAndSetOwner(file.get());
    return DeleteUnlessAdded(file.release(), result);
}

THdlProjectFileList::TAddResult THdlSourceFileList::AddAtTailAndSetOwner(const ISFileName* name) {
    if (THdlProjectFile* listed = FindWithoutWalk(name)) return Refused(name, listed);
    auto file = std::make_unique<THdlProjectSourceFile>(name, GetOwningProjectComponent(),
                                                        SourceFileIsLibrary());
    const TAddResult result = AddAtTailAndSetOwner(file.get());
    return DeleteUnlessAdded(file.release(), result);
}

bool THdlSourceFileList::SourceFileIsLibrary() {
    return false;
}

THdlProjectFileList::TAddResult THdlSourceFileList::AddAtHeadAndSetOwner(
    THdlProjectSourceFile* file) {
    return push_front_no_dup(file);
}

THdlProjectFileList::TAddResult THdlSourceFileList::AddAtTailAndSetOwner(
    THdlProjectSourceFile* file) {
    return push_back_no_dup(file);
}
