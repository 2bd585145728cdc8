#pragma once
#include "flows/check/findingkinds.h"
#include "flows/check/toldscan.h"
#include "flows/documentfindings.h"
#include "flows/pathtexts.h"

class THdlBuildFile;

/// A build that has been read, with what its document shows beyond it.
struct TCheckedBuild {
    const THdlBuildFile& Build;
    TPathForm Paths;
    TDocumentFindings Document;
    TLinkOptions LinkOptions = {};
    const TToldScan* Scan = nullptr;  ///< null: the sources are not looked at
};

/// Everything that may be wrong with a build, in the order of all outputs.
TFindings FindAll(const TCheckedBuild& checked);
