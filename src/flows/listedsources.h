#pragma once
#include "buildfile/hdlbuildfile.h"
#include <string>
#include <vector>

/// One source as the build file lists it.
struct TListedSource {
    THdlLanguage Group;
    const IHdlSourceFile* File;
};

/// The sources of all groups, in ascending order of language, then in group order.
std::vector<TListedSource> ListSources(const THdlBuildFile& build);

/// The library that a listed source is compiled into: the one that it names, else the build's
/// destination library, else "work".
std::string LibraryOfSource(const IHdlSourceFile& source, const THdlBuildFile& build);

/// Those that did not exist when the build was read. Looks at the disk only for what a read that
/// broke off has not looked for.
std::vector<TListedSource> ListMissingSources(const THdlBuildFile& build);

/// The library that sources without one of their own are compiled into: "work" for a build that
/// names none.
std::string GetDestinationLibraryName(const THdlBuildFile& build);
