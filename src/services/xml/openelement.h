#pragma once
#include "services/xml/xmlencoding.h"
#include <string>
#include <string_view>

/// The innermost element that is open where the parse of a malformed document fails, as
/// `element "b" of line 2`; "" without one. Parses the document for it. `beginning` replaces the
/// first bytes of the document.
std::string DescribeOpenElement(std::string_view document, const TXMLEncoding& encoding,
                                std::string_view beginning);
