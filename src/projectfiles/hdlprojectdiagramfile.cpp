#include "projectfiles/hdlprojectdiagramfile.h"
#include "services/base/fold.h"
#include "services/designdatabase/visitor.h"

THdlProjectDiagramFile::THdlProjectDiagramFile(const ISFileName* file, IProjectComponent* owner)
    : THdlProjectFile(file, owner, true), AssociatedFiles(owner) {
    SetProjectFileType(EqualIgnoringCase(GetExtOnly(), ".fp") ? FILE_TYPE_STIMULUS_DIAGRAM
                                                              : FILE_TYPE_DIAGRAM);
}

THdlProjectDiagramFile::THdlProjectDiagramFile(const THdlProjectDiagramFile& other) = default;

THdlProjectDiagramFile& THdlProjectDiagramFile::operator=(const THdlProjectDiagramFile& other) =
    default;

THdlProjectDiagramFile::~THdlProjectDiagramFile() = default;

void THdlProjectDiagramFile::Accept(IBaseVisitor* visitor) const {
    AcceptVisitor(visitor, this);
}

const THdlProjectFileList* THdlProjectDiagramFile::GetAssociatedFileList() const {
    return &AssociatedFiles;
}

THdlProjectFileList* THdlProjectDiagramFile::GetAssociatedFileList() {
    return &AssociatedFiles;
}
