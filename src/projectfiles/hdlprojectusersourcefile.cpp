#include "projectfiles/hdlprojectusersourcefile.h"
#include "services/designdatabase/visitor.h"
#include <atomic>

namespace {

unsigned long long NextSerial() {
    static std::atomic<unsigned long long> last = 0;
    return ++last;
}

}  // namespace

THdlProjectUserSourceFile::THdlProjectUserSourceFile(const ISFileName* file,
                                                     IProjectComponent* owner, bool isLibrary)
    : THdlProjectSourceFile(file, owner, isLibrary), Serial(NextSerial()), AssociatedFiles(owner) {}

THdlProjectUserSourceFile::THdlProjectUserSourceFile(const THdlProjectUserSourceFile& other)
    : THdlProjectSourceFile(other), Serial(NextSerial()), AssociatedFiles(other.AssociatedFiles) {}

THdlProjectUserSourceFile& THdlProjectUserSourceFile::operator=(
    const THdlProjectUserSourceFile& other) {
    THdlProjectSourceFile::operator=(other);
    AssociatedFiles = other.AssociatedFiles;
    return *this;
}

THdlProjectUserSourceFile::~THdlProjectUserSourceFile() = default;

void THdlProjectUserSourceFile::Accept(IBaseVisitor* visitor) const {
    AcceptVisitor(visitor, this);
}

const THdlProjectFileList* THdlProjectUserSourceFile::GetAssociatedFileList() const {
    return &AssociatedFiles;
}

THdlProjectFileList* THdlProjectUserSourceFile::GetAssociatedFileList() {
    return &AssociatedFiles;
}
