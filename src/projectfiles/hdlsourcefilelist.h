#pragma once
#include "projectfiles/hdlprojectfilelist.h"

class THdlProjectSourceFile;

/// A folder of HDL sources: files added by name become THdlProjectSourceFile objects.
class HDLBUILDFILE_API THdlSourceFileList : public THdlProjectFileList {
public:
    /// A list of type LIST_TYPE_ASSOCIATED_FILES.
    explicit THdlSourceFileList(IProjectComponent* owner);
    THdlSourceFileList(TFileListType type, IProjectComponent* owner);
    THdlSourceFileList(const THdlSourceFileList& other);
    THdlSourceFileList& operator=(const THdlSourceFileList& other);
    ~THdlSourceFileList() override;

    void Accept(IBaseVisitor* visitor) const override;
    using THdlProjectFileList::AddAtHeadAndSetOwner;
    using THdlProjectFileList::AddAtTailAndSetOwner;
    TAddResult AddAtHeadAndSetOwner(const ISFileName* name) override;
    TAddResult AddAtTailAndSetOwner(const ISFileName* name) override;

protected:
    // Between the public operations for its place in the virtual table.
    /// Whether files made by an add by name are library files.
    virtual bool SourceFileIsLibrary();

public:
    // In spite of their names these leave the file's owner as it is.
    virtual TAddResult AddAtHeadAndSetOwner(THdlProjectSourceFile* file);
    virtual TAddResult AddAtTailAndSetOwner(THdlProjectSourceFile* file);
};
