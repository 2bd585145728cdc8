#pragma once
#include "flows/formats/exportformats.h"

// The writer of each format: see the table of GetExportFormats.

TExported WriteBlueprint(const TExportRequest& request);
TExported WriteCompileCommands(const TExportRequest& request);
TExported WriteDepfile(const TExportRequest& request);
TExported WriteEdamJson(const TExportRequest& request);
TExported WriteEdamYaml(const TExportRequest& request);
TExported WriteFileList(const TExportRequest& request);
TExported WriteFusesocCore(const TExportRequest& request);
TExported WriteGhdlScript(const TExportRequest& request);
TExported WriteHdlPrj(const TExportRequest& request);
TExported WriteIcarusList(const TExportRequest& request);
TExported WriteLibraryMap(const TExportRequest& request);
TExported WriteMakefile(const TExportRequest& request);
TExported WriteNinjaFile(const TExportRequest& request);
TExported WriteOsvvmScript(const TExportRequest& request);
TExported WriteSlangList(const TExportRequest& request);
TExported WriteSvls(const TExportRequest& request);
TExported WriteVcsList(const TExportRequest& request);
TExported WriteVeribleList(const TExportRequest& request);
TExported WriteVerilatorList(const TExportRequest& request);
TExported WriteVhdlLs(const TExportRequest& request);
TExported WriteVsimScript(const TExportRequest& request);
TExported WriteVunitScript(const TExportRequest& request);
TExported WriteVunitTable(const TExportRequest& request);
