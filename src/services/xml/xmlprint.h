#pragma once
#include "services/xml/xmlelement.h"
#include <iosfwd>

/// Prints one element: a tag with its attributes, or a text, each value escaped once and in UTF-8,
/// each name as XML accepts it. With `indent` >= 0 a line end and so many blanks go in front. A
/// value that no XML document can hold sets the stream's failbit.
void PrintXMLElement(const TElement& element, std::ostream& stream, int indent);
