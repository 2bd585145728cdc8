#include "projectfiles/hdlprojecttemplatefile.h"
#include "services/designdatabase/visitor.h"

THdlProjectTemplateFile::THdlProjectTemplateFile(const ISFileName* file, IProjectComponent* owner)
    : THdlProjectSourceFile(file, owner, false), AssociatedFiles(owner) {}

THdlProjectTemplateFile::THdlProjectTemplateFile(const THdlProjectTemplateFile& other) = default;

THdlProjectTemplateFile& THdlProjectTemplateFile::operator=(const THdlProjectTemplateFile& other) =
    default;

THdlProjectTemplateFile::~THdlProjectTemplateFile() = default;

void THdlProjectTemplateFile::Accept(IBaseVisitor* visitor) const {
    AcceptVisitor(visitor, this);
}

bool THdlProjectTemplateFile::IsTemplateFile() const {
    return true;
}

const THdlProjectFileList* THdlProjectTemplateFile::GetAssociatedFileList() const {
    return &AssociatedFiles;
}

THdlProjectFileList* THdlProjectTemplateFile::GetAssociatedFileList() {
    return &AssociatedFiles;
}
