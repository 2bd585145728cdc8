#include "projectfiles/hdlutilitiessourcefilelist.h"
#include "services/designdatabase/visitor.h"

THdlUtilitiesSourceFileList::THdlUtilitiesSourceFileList(IProjectComponent* owner)
    : THdlSourceFileList(LIST_TYPE_UTILITIES_FILES, owner) {}

THdlUtilitiesSourceFileList::THdlUtilitiesSourceFileList(const THdlUtilitiesSourceFileList& other) =
    default;

THdlUtilitiesSourceFileList& THdlUtilitiesSourceFileList::operator=(
    const THdlUtilitiesSourceFileList& other) = default;

THdlUtilitiesSourceFileList::~THdlUtilitiesSourceFileList() = default;

void THdlUtilitiesSourceFileList::Accept(IBaseVisitor* visitor) const {
    AcceptVisitor(visitor, this);
}
