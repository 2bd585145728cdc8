#include "projectfiles/hdltimingdiagramtemplatefilelist.h"
#include "services/designdatabase/visitor.h"

THdlTimingDiagramTemplateFileList::THdlTimingDiagramTemplateFileList(IProjectComponent* owner)
    : THdlTimingDiagramFileList(LIST_TYPE_TEMPLATE_DIAGRAM, owner) {}

THdlTimingDiagramTemplateFileList::THdlTimingDiagramTemplateFileList(
    const THdlTimingDiagramTemplateFileList& other) = default;

THdlTimingDiagramTemplateFileList& THdlTimingDiagramTemplateFileList::operator=(
    const THdlTimingDiagramTemplateFileList& other) = default;

THdlTimingDiagramTemplateFileList::~THdlTimingDiagramTemplateFileList() = default;

void THdlTimingDiagramTemplateFileList::Accept(IBaseVisitor* visitor) const {
    AcceptVisitor(visitor, this);
}
