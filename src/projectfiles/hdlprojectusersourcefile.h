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
    bool AddAssociatedFileAtTail(const ISFileName* name) override;
    bool AddAssociatedFileAtHead(const ISFileName* name) override;
    const THdlProjectFileList* GetAssociatedFileList() const override;
    THdlProjectFileList* GetAssociatedFileList() override;

private:
    friend class THdlUserSourceFileList;
    const unsigned long long
        Serial;  // of this object, in the order of their making; copies get their own
    THdlSourceFileList AssociatedFiles;
};
