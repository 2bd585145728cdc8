#pragma once
#include "services/base/api.h"
#include <cstddef>
#include <string_view>
#include <vector>

/// Where each line of an XML document begins, in bytes and in ascending order; the first begins
/// behind the byte-order mark. Lines end as in TXMLReadError: LF, CR and CR LF each end one.
HDLBUILDFILE_API std::vector<std::size_t> FindLinesOfDocument(std::string_view document);
