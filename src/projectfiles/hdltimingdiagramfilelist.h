#pragma once
#include "projectfiles/hdlprojectfilelist.h"

class THdlProjectDiagramFile;

/// The folder "Transaction Diagrams": files added by name become THdlProjectDiagramFile objects.
class HDLBUILDFILE_API THdlTimingDiagramFileList : public THdlProjectFileList {
public:
    explicit THdlTimingDiagramFileList(IProjectComponent* owner);
    THdlTimingDiagramFileList(const THdlTimingDiagramFileList& other);
    THdlTimingDiagramFileList& operator=(const THdlTimingDiagramFileList& other);
    ~THdlTimingDiagramFileList() override;

    void Accept(IBaseVisitor* visitor) const override;
    using THdlProjectFileList::AddAtHeadAndSetOwner;
    using THdlProjectFileList::AddAtTailAndSetOwner;
    TAddResult AddAtHeadAndSetOwner(const ISFileName* name) override;
    TAddResult AddAtTailAndSetOwner(const ISFileName* name) override;
    // In spite of their names these leave the file's owner as it is.
    virtual TAddResult AddAtHeadAndSetOwner(THdlProjectDiagramFile* file);
    virtual TAddResult AddAtTailAndSetOwner(THdlProjectDiagramFile* file);

protected:
    THdlTimingDiagramFileList(TFileListType type, IProjectComponent* owner);
};
