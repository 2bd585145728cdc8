#pragma once
#include "flows/scan/scannedfile.h"
#include <string_view>

/// The design units of a Verilog or SystemVerilog source of any version, with what they need.
///
/// `path`, empty for none, tells the folder in which included files are looked for first. What an
/// included file holds belongs to the file that includes it. Otherwise sees the text alone: nothing
/// that threads share but `options.Includes`. Any text will do, as for ScanVhdl; takes time in
/// proportion to the bytes, those of included files counted as often as they are included.
///
/// A name that no define tells of may be defined elsewhere, as Verilog compilers keep defines from
/// file to file: what depends on it is taken both ways, and is uncertain.
TScannedFile ScanVerilog(std::string_view text, std::string_view path, const TScanOptions& options);
