#pragma once
#include "flows/imports/importformats.h"

// The reader of each format: see the table of GetImportFormats.

void ReadFileList(TImportReader& reader, const TImportFile& file);
void ReadIcarusList(TImportReader& reader, const TImportFile& file);
void ReadSlangList(TImportReader& reader, const TImportFile& file);
void ReadVcsList(TImportReader& reader, const TImportFile& file);
void ReadVeribleList(TImportReader& reader, const TImportFile& file);
void ReadVerilatorList(TImportReader& reader, const TImportFile& file);
