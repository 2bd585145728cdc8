#pragma once
#include "projectfiles/hdlsourcefilelist.h"

/// The folder "Utilities Files": removing a file does not count as a modification of the project.
class HDLBUILDFILE_API THdlUtilitiesSourceFileList : public THdlSourceFileList {
public:
    explicit THdlUtilitiesSourceFileList(IProjectComponent* owner);
    THdlUtilitiesSourceFileList(const THdlUtilitiesSourceFileList& other);
    THdlUtilitiesSourceFileList& operator=(const THdlUtilitiesSourceFileList& other);
    ~THdlUtilitiesSourceFileList() override;

    void Accept(IBaseVisitor* visitor) const override;
};
