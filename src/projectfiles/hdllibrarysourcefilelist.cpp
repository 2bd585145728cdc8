#include "projectfiles/hdllibrarysourcefilelist.h"
#include "services/designdatabase/visitor.h"

THdlLibrarySourceFileList::THdlLibrarySourceFileList(IProjectComponent* owner)
    : THdlSourceFileList(LIST_TYPE_SOURCE_CODE_LIBRARY_FILES, owner) {}

THdlLibrarySourceFileList::THdlLibrarySourceFileList(const THdlLibrarySourceFileList& other) =
    default;

THdlLibrarySourceFileList& THdlLibrarySourceFileList::operator=(
    const THdlLibrarySourceFileList& other) = default;

THdlLibrarySourceFileList::~THdlLibrarySourceFileList() = default;

void THdlLibrarySourceFileList::Accept(IBaseVisitor* visitor) const {
    AcceptVisitor(visitor, this);
}

bool THdlLibrarySourceFileList::SourceFileIsLibrary() {
    return true;
}
