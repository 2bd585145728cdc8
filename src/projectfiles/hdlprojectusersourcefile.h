#pragma once
#include "projectfiles/hdlprojectsourcefile.h"
#include "projectfiles/hdlsourcefilelist.h"

/// A source that the user added to the project, with a list of the sources that belong to it.
class HDLBUILDFILE_API THdlProjectUserSourceFile : public THdlProjectSourceFile {
public:
    THdlProjectUserSourceFile(const ISFileName* file, IProjectComponent* owner, bool isLibrary);
    /// The copy's associated list holds the same files.
    THdlProjectUserSourceFile(const THdlProjectUserSourceFile& other);
    THdlProjectUserSourceFile& operator=(const THdlProjectUserSourceFile& other);
    ~THdlProjectUserSourceFile() override;

    void Accept(IBaseVisitor* visitor) const override;
    const THdlProjectFileList* GetAssociatedFileList() const override;
    THdlProjectFileList* GetAssociatedFileList() override;

private:
    friend class THdlUserSourceFileList;
    // Tells this object from another one made later at its address.
    const unsigned long long Serial;
    THdlSourceFileList AssociatedFiles;
};
