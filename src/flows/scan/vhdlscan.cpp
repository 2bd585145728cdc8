#include "flows/scan/vhdlscan.h"
#include "flows/scan/vhdlscanner.h"

TScannedFile ScanVhdl(std::string_view text, const TScanOptions& options) {
    TScannedFile file;
    file.Language = LANGUAGE_VHDL;
    file.Units = TVhdlScanner(text, options).Scan();
    return file;
}
