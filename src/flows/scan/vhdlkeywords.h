#pragma once
#include "flows/scan/vhdltoken.h"
#include <string_view>

/// The keyword that `word` is in any case; None when it is none.
TVhdlKeyword FindVhdlKeyword(std::string_view word);
/// In lower case; empty for None. Static.
std::string_view GetVhdlKeywordName(TVhdlKeyword keyword);
