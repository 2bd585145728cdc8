#pragma once
#include "services/names/ifilename.h"
#include <string_view>

/// A file name that belongs to one caller and may be changed; deleted by the caller.
IFileName* NewOwnFileName(std::string_view path);
