#pragma once
#include "projectfiles/hdlsourcefilelist.h"

/// The folder "Source Code Library Files": files added by name are library files.
class HDLBUILDFILE_API THdlLibrarySourceFileList : public THdlSourceFileList {
public:
    explicit THdlLibrarySourceFileList(IProjectComponent* owner);
    THdlLibrarySourceFileList(const THdlLibrarySourceFileList& other);
    THdlLibrarySourceFileList& operator=(const THdlLibrarySourceFileList& other);
    ~THdlLibrarySourceFileList() override;

    void Accept(IBaseVisitor* visitor) const override;

protected:
    bool SourceFileIsLibrary() override;
};
