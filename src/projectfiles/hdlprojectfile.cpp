#include "projectfiles/hdlprojectfile.h"
#include "projectfiles/hdlprojectfilelist.h"
#include "services/base/keeper.h"
#include "services/designdatabase/visitor.h"
#include <string_view>

namespace {

struct TExtensionRow {
    std::string_view Extension;
    THdlProjectFile::TProjectFileType Type;
};
constexpr TExtensionRow kTypesByExtension[] = {
    {".hpj", THdlProjectFile::FILE_TYPE_PROJECT},
    {".txt", THdlProjectFile::FILE_TYPE_TEXT},
    {".log", THdlProjectFile::FILE_TYPE_LOG},
};

THdlProjectFile::TProjectFileType TypeFromExtension(std::string_view extension) {
    for (const TExtensionRow& row : kTypesByExtension)
        if (row.Extension == extension) return row.Type;
    return THdlProjectFile::FILE_TYPE_OTHER;
}

const ISFileName* HandleToWrap(const ISFileName* file) {
    return file ? GetInnermostHandle(file) : ISFileName::NewISFileName("");
}

}  // namespace

THdlProjectFile::THdlProjectFile(const ISFileName* file, IProjectComponent* owner,
                                 bool typeGivenByCaller)
    : THdbSFileName(HandleToWrap(file)), OwningProjectComponent(owner) {
    if (!typeGivenByCaller && file && GetFileName())
        ProjectFileType = TypeFromExtension(GetExtOnly());
}

THdlProjectFile::THdlProjectFile(const THdlProjectFile& other)
    : THdbSFileName(other),
      OwningProjectComponent(other.OwningProjectComponent),
      ProjectFileType(other.ProjectFileType) {}

THdlProjectFile& THdlProjectFile::operator=(const THdlProjectFile& other) {
    THdbSFileName::operator=(other);
    OwningProjectComponent = other.OwningProjectComponent;
    ProjectFileType = other.ProjectFileType;
    return *this;
}

THdlProjectFile::~THdlProjectFile() {
    ForgetKept(this);
}

void THdlProjectFile::Accept(IBaseVisitor* visitor) const {
    AcceptVisitor(visitor, this);
}

bool THdlProjectFile::IsLibrary() const {
    return false;
}

const char* THdlProjectFile::GetPrecompiledLibraryGroupName() const {
    return "";
}

bool THdlProjectFile::IsTemplateFile() const {
    return false;
}

bool THdlProjectFile::AddAssociatedFileAtTail(const ISFileName* name) {
    THdlProjectFileList* associated = GetAssociatedFileList();
    return associated && associated->AddAtTailAndSetOwner(name).second;
}

bool THdlProjectFile::AddAssociatedFileAtHead(const ISFileName* name) {
    THdlProjectFileList* associated = GetAssociatedFileList();
    return associated && associated->AddAtHeadAndSetOwner(name).second;
}

const THdlProjectFileList* THdlProjectFile::GetAssociatedFileList() const {
    return nullptr;
}

THdlProjectFileList* THdlProjectFile::GetAssociatedFileList() {
    return nullptr;
}

void THdlProjectFile::SetOwningProjectComponent(IProjectComponent* owner) {
    OwningProjectComponent = owner;
    if (THdlProjectFileList* associated = GetAssociatedFileList())
        associated->SetOwningProjectComponent(owner);
}

const char* THdlProjectFile::GetHashKey() const {
    return Canonical(false);
}

bool THdlProjectFile::LetGo() {
    // Entries made through std::list are not counted: such a file belongs to that list alone.
    if (HolderCount > 0) --HolderCount;
    return HolderCount == 0;
}
