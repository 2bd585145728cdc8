#pragma once
#include "flows/trees/tree.h"

// Each reads a file of one language into `*tree`. False, with the first fault in `*fault`, when the
// text does not follow the rules of the language, names a key of a map twice, has a number that
// does not fit into its kind, or is deeper or larger than a tree may be.

bool ReadJsonTree(std::string_view text, TTree* tree, TTreeFault* fault);
/// Keys are plain values. The text is UTF-8, and one document: none is an empty tree.
bool ReadYamlTree(std::string_view text, TTree* tree, TTreeFault* fault);
/// Dates are told as faults.
bool ReadTomlTree(std::string_view text, TTree* tree, TTreeFault* fault);
