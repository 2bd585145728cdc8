#pragma once
#include "flows/scan/scannedfile.h"
#include <string_view>

/// The design units of a VHDL source of any version from 93 on, with what they need.
///
/// Sees the text alone: no build, no disk, nothing that threads share. Names are UTF-8, also those
/// of a text in Latin-1. Any text will do: a unit that ends early is reported as far as it is
/// known, and the next one is found by its head. Takes time in proportion to the bytes, memory to
/// the units and needs that it finds.
TScannedFile ScanVhdl(std::string_view text, const TScanOptions& options);
