#pragma once
#include "projectfiles/hdlprojectfilelist.h"

class THdlProjectUserSourceFile;

/// The folder "User Source Files": files added by name become THdlProjectUserSourceFile objects.
/// One of them may be the scope, the file that associated files are currently added to.
class HDLBUILDFILE_API THdlUserSourceFileList : public THdlProjectFileList {
public:
    explicit THdlUserSourceFileList(IProjectComponent* owner);
    THdlUserSourceFileList(const THdlUserSourceFileList& other);
    THdlUserSourceFileList& operator=(const THdlUserSourceFileList& other);
    ~THdlUserSourceFileList() override;

    void Accept(IBaseVisitor* visitor) const override;
    using THdlProjectFileList::AddAtHeadAndSetOwner;
    using THdlProjectFileList::AddAtTailAndSetOwner;
    TAddResult AddAtHeadAndSetOwner(const ISFileName* name) override;
    TAddResult AddAtTailAndSetOwner(const ISFileName* name) override;
    bool SetAssociatedFileScope(const ISFileName* name) override;
    /// False, with a failed check logged, while no scope is set. A file that left the list is no
    /// scope any more.
    bool AddAssociatedFileToScopeFile(const ISFileName* name) override;
    // In spite of their names these leave the file's owner as it is.
    virtual TAddResult AddAtHeadAndSetOwner(THdlProjectUserSourceFile* file);
    virtual TAddResult AddAtTailAndSetOwner(THdlProjectUserSourceFile* file);

private:
    void SetScope(THdlProjectUserSourceFile* file);
    THdlProjectUserSourceFile* GetListedScope() const;

    THdlProjectUserSourceFile* AssociatedFileScope = nullptr;
    const ISFileName* ScopeFileName = nullptr;  // where to look for the scope first
    unsigned long long ScopeSerial = 0;         // tells the scope from a later file at its address
};
