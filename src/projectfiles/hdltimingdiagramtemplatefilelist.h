#pragma once
#include "projectfiles/hdltimingdiagramfilelist.h"

/// The folder "Template Diagram"; files added by name are plain diagrams, as in its base.
class HDLBUILDFILE_API THdlTimingDiagramTemplateFileList : public THdlTimingDiagramFileList {
public:
    explicit THdlTimingDiagramTemplateFileList(IProjectComponent* owner);
    THdlTimingDiagramTemplateFileList(const THdlTimingDiagramTemplateFileList& other);
    THdlTimingDiagramTemplateFileList& operator=(const THdlTimingDiagramTemplateFileList& other);
    ~THdlTimingDiagramTemplateFileList() override;

    void Accept(IBaseVisitor* visitor) const override;
};
