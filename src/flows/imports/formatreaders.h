#pragma once
#include "flows/imports/importformats.h"

// The reader of each format: see the table of GetImportFormats.

void ReadBender(TImportReader& reader, const TImportFile& file);
void ReadBlueprint(TImportReader& reader, const TImportFile& file);
void ReadCompileCommands(TImportReader& reader, const TImportFile& file);
void ReadDepfile(TImportReader& reader, const TImportFile& file);
void ReadEdamJson(TImportReader& reader, const TImportFile& file);
void ReadEdamYaml(TImportReader& reader, const TImportFile& file);
void ReadFileList(TImportReader& reader, const TImportFile& file);
void ReadGhdlOrder(TImportReader& reader, const TImportFile& file);
void ReadHdlPrj(TImportReader& reader, const TImportFile& file);
void ReadHdlmakeManifest(TImportReader& reader, const TImportFile& file);
void ReadIcarusDependencies(TImportReader& reader, const TImportFile& file);
void ReadIcarusList(TImportReader& reader, const TImportFile& file);
void ReadLibraryMap(TImportReader& reader, const TImportFile& file);
void ReadOsvvmScript(TImportReader& reader, const TImportFile& file);
void ReadSlangList(TImportReader& reader, const TImportFile& file);
void ReadVcsList(TImportReader& reader, const TImportFile& file);
void ReadVeribleList(TImportReader& reader, const TImportFile& file);
void ReadVerilatorList(TImportReader& reader, const TImportFile& file);
void ReadVhdlLs(TImportReader& reader, const TImportFile& file);
void ReadVunitJson(TImportReader& reader, const TImportFile& file);
void ReadVunitTable(TImportReader& reader, const TImportFile& file);
