#pragma once
#include "services/xml/xmlelement.h"
#include <cstddef>
#include <iosfwd>

/// Prints one element: a tag with its attributes, or a text, each value escaped once and in UTF-8,
/// each name as XML accepts it. With `indent` >= 0 a line end and so many blanks go in front. A
/// value that no XML document can hold sets the stream's failbit. A START with a name that is none
/// logs a check, once for its own and once for all of its attributes.
void PrintXMLElement(const TElement& element, std::ostream& stream, int indent);

// The two halves of it, for whoever logs later.

/// The checks that PrintXMLElement logs for the element.
std::size_t CountNameFaults(const TElement& element);
void ReportNameFault();
/// PrintXMLElement without logging.
void PrintXMLElementUnchecked(const TElement& element, std::ostream& stream, int indent);
