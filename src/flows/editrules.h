#pragma once
#include "services/xml/xmleditrules.h"

class ISFileName;

// What an editor of the environment's documents knows about their elements. Names of files are
// compared as the library compares them, relative ones against the folder of `file`, which must not
// be null and outlives the rules.

TXMLEditRules MakeBuildFileRules(const ISFileName* file);
TXMLEditRules MakeProjectFileRules(const ISFileName* file);
TXMLEditRules MakeSimulatorsFileRules();
