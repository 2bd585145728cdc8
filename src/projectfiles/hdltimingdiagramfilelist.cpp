#include "projectfiles/hdltimingdiagramfilelist.h"
#include "projectfiles/hdlprojectdiagramfile.h"
#include "services/designdatabase/visitor.h"
#include <memory>

THdlTimingDiagramFileList::THdlTimingDiagramFileList(IProjectComponent* owner)
    : THdlTimingDiagramFileList(LIST_TYPE_TRANSACTION_DIAGRAMS, owner) {}

THdlTimingDiagramFileList::THdlTimingDiagramFileList(const THdlTimingDiagramFileList& other) =
    default;

THdlTimingDiagramFileList& THdlTimingDiagramFileList::operator=(
    const THdlTimingDiagramFileList& other) = default;

THdlTimingDiagramFileList::~THdlTimingDiagramFileList() = default;

void THdlTimingDiagramFileList::Accept(IBaseVisitor* visitor) const {
    AcceptVisitor(visitor, this);
}

THdlProjectFileList::TAddResult THdlTimingDiagramFileList::AddAtHeadAndSetOwner(
    const ISFileName* name) {
    if (THdlProjectFile* listed = FindWithoutWalk(name)) return Refused(name, listed);
    auto file = std::make_unique<THdlProjectDiagramFile>(name, GetOwningProjectComponent());
    const TAddResult result = AddAtHeadAndSetOwner(file.get());
    return DeleteUnlessAdded(file.release(), result);
}

THdlProjectFileList::TAddResult THdlTimingDiagramFileList::AddAtTailAndSetOwner(
    const ISFileName* name) {
    if (THdlProjectFile* listed = FindWithoutWalk(name)) return Refused(name, listed);
    auto file = std::make_unique<THdlProjectDiagramFile>(name, GetOwningProjectComponent());
    const TAddResult result = AddAtTailAndSetOwner(file.get());
    return DeleteUnlessAdded(file.release(), result);
}

THdlProjectFileList::TAddResult THdlTimingDiagramFileList::AddAtHeadAndSetOwner(
    THdlProjectDiagramFile* file) {
    return push_front_no_dup(file);
}

THdlProjectFileList::TAddResult THdlTimingDiagramFileList::AddAtTailAndSetOwner(
    THdlProjectDiagramFile* file) {
    return push_back_no_dup(file);
}

THdlTimingDiagramFileList::THdlTimingDiagramFileList(TFileListType type, IProjectComponent* owner)
    : THdlProjectFileList(type, owner) {}
