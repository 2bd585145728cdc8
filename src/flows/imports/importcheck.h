#pragma once
#include "flows/imports/importformats.h"

/// Takes out of the record what no build holds, and tells it: sources without a language, those
/// named again, names with quotes or variables in options. Tells of files that are missing, too.
/// Gives tops without a language that of the sources.
void CheckImported(TImportOrder order, const TImportRequest& request, TImported* imported);
