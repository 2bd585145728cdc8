#pragma once
#include "projectfiles/hdlprojectsourcefile.h"
#include "projectfiles/hdlsourcefilelist.h"

/// A source made from a template, with a list of the sources that belong to it. Never a library
/// file when made. No folder makes one for a name.
class HDLBUILDFILE_API THdlProjectTemplateFile : public THdlProjectSourceFile {
public:
    THdlProjectTemplateFile(const ISFileName* file, IProjectComponent* owner);
    /// The copy's associated list holds the same files.
    THdlProjectTemplateFile(const THdlProjectTemplateFile& other);
    THdlProjectTemplateFile& operator=(const THdlProjectTemplateFile& other);
    ~THdlProjectTemplateFile() override;

    void Accept(IBaseVisitor* visitor) const override;
    /// True.
    bool IsTemplateFile() const override;
    const THdlProjectFileList* GetAssociatedFileList() const override;
    THdlProjectFileList* GetAssociatedFileList() override;

private:
    THdlSourceFileList AssociatedFiles;
};
