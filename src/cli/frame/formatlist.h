#pragma once
#include "cli/frame/streams.h"
#include <vector>

/// A format of other tools' files, as `list` shows it. The texts are never null.
struct TListedFormat {
    const char* Name;
    const char* Description;
    const char* Holds;
};

/// Prints a table, or a JSON object whose "format" is `result`.
void PrintFormats(const std::vector<TListedFormat>& formats, const char* result, bool isJson,
                  const TToolStreams& streams);
