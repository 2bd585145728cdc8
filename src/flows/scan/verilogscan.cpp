#include "flows/scan/verilogscan.h"
#include "flows/scan/verilogscanner.h"

TScannedFile ScanVerilog(std::string_view text, std::string_view path,
                         const TScanOptions& options) {
    TScannedFile file;
    file.Language = LANGUAGE_VERILOG;
    TVerilogScanner(text, path, options, &file).Scan();
    return file;
}
