#pragma once
#include "services/xml/xmllist.h"
#include <string>

/// Prints a list as a document: the document type line, the root that it names and every element,
/// through TXMLList::SaveElement, two blanks a level. Line breaks are added only between two tags,
/// so that they never become text. A START without END is closed with what encloses it, an END
/// without START is left out, each with a logged check.
///
/// False for a list that no XML document can hold: `*error` then says why. Neither may be null.
bool WriteXMLDocument(TXMLList* list, std::string* document, std::string* error);
