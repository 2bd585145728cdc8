#pragma once
#include "buildfile/hdlbuildfile.h"
#include "cli/tool.h"
#include <string>
#include <vector>

class ISFileName;

/// One source as the build file lists it.
struct TListedSource {
    THdlLanguage Group;
    const IHdlSourceFile* File;
};

/// Reads the build file of the arguments without showing messages. kExitFile, with one line on Err,
/// for a file that cannot be read or parsed; else kExitDone when the read result is 0 or
/// kExitProblems.
int LoadBuild(const TToolArguments& arguments, const TToolStreams& streams, THdlBuildFile* build);

/// The read result's text as an error line on Err; nothing for result 0.
void ReportReadResult(const THdlBuildFile& build, const TToolStreams& streams);

/// The sources of all groups, in ascending order of language, then in group order.
std::vector<TListedSource> ListSources(const THdlBuildFile& build);

/// Those that do not exist. Looks at the disk only when the read met missing files or broke off.
std::vector<TListedSource> ListMissingSources(const THdlBuildFile& build);

/// The languages that settings and groups exist for, in ascending order.
const std::vector<THdlLanguage>& SelectableLanguages();

/// How the tool prints a path: relative to the current directory unless absolute paths are wanted.
std::string PathText(const char* path, const TToolArguments& arguments);
std::string PathText(const ISFileName* file, const TToolArguments& arguments);
