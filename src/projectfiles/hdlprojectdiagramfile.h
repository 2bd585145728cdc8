#pragma once
#include "projectfiles/hdlprojectfile.h"
#include "projectfiles/hdlsourcefilelist.h"

/// A timing or stimulus diagram, with a list of the sources that belong to it.
class HDLBUILDFILE_API THdlProjectDiagramFile : public THdlProjectFile {
public:
    /// Of type FILE_TYPE_STIMULUS_DIAGRAM when the extension is ".fp" in any letter case, otherwise
    /// of type FILE_TYPE_DIAGRAM.
    THdlProjectDiagramFile(const ISFileName* file, IProjectComponent* owner);
    /// The copy's associated list holds the same files.
    THdlProjectDiagramFile(const THdlProjectDiagramFile& other);
    THdlProjectDiagramFile& operator=(const THdlProjectDiagramFile& other);
    ~THdlProjectDiagramFile() override;

    void Accept(IBaseVisitor* visitor) const override;
    const THdlProjectFileList* GetAssociatedFileList() const override;
    THdlProjectFileList* GetAssociatedFileList() override;

private:
    THdlSourceFileList AssociatedFiles;
};
