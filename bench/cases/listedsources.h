#pragma once
#include <string>
#include <utility>
#include <vector>

/// What a build file lists, as plain texts.
struct TListedSource {
    std::string Path;
    std::vector<std::string> Dependencies;
};

class TFlatDocument;

/// The sources of a generated build, in the order listed.
std::vector<TListedSource> ListSources(const TFlatDocument& document);
