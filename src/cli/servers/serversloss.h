#pragma once
#include "services/xml/xmllist.h"
#include <string>

/// The first thing in a simulators file that a save would drop or replace, in words that follow "a
/// save would lose"; "" when it keeps everything. `document` holds the file's root.
std::string FindServersLoss(const TXMLList& document);
