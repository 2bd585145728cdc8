#pragma once
#include "services/xml/xmllist.h"

class THdlBuildFile;

/// The document of one build file: fills itself from the build, and hands what it has read to the
/// build section by section. A fresh one is made for every read and every write.
class HDLBUILDFILE_API THdlBuildFileXMLList : public TXMLList {
public:
    /// `build` stays the caller's and must outlive the list; with null nothing is filled or read.
    explicit THdlBuildFileXMLList(THdlBuildFile* build);
    ~THdlBuildFileXMLList() override;

protected:
    void FillElements() override;
    /// Ends at the first section whose reader fails; always true.
    bool InterpretElements() override;

private:
    THdlBuildFile* Build;
};
