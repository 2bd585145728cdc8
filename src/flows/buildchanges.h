#pragma once
#include "services/hdl/hdllanguage.h"
#include <vector>

class IHdlSourceFile;
class ISFileName;
class THdlBuildFile;

// Changes of a build that its own operations do not make in one step. Names of files are shared
// handles; sources are the build's.

/// A source in its group.
struct TBuildSource {
    THdlLanguage Language;   ///< of the group
    IHdlSourceFile* Source;  ///< null: no group lists it
};

/// Where sources are put in a group.
enum TGroupPlace : int { PLACE_FIRST, PLACE_LAST, PLACE_BEFORE, PLACE_BEHIND };

/// The listed source of that name; of several groups' the one of the lowest language.
TBuildSource FindListed(THdlBuildFile& build, const ISFileName* file);

/// Puts the source at the end of the group of `language`, and has the general settings compile that
/// language: without that the library's next save would drop the group, unless it is the top-level
/// language's. General settings are made where they are needed and missing: only a
/// TSimWrapHdlBuildFile deletes them. Returns the source; null when the group lists it.
IHdlSourceFile* AddSource(THdlBuildFile& build, const ISFileName* file, THdlLanguage language);
void CompileLanguage(THdlBuildFile& build, THdlLanguage language);
/// The languages whose sources the library's next save leaves out of the file.
std::vector<THdlLanguage> ListUnsavedGroups(const THdlBuildFile& build);

/// Replaces the dependencies of `source`.
void SetDependencies(IHdlSourceFile& source, const std::vector<IHdlSourceFile*>& dependencies);
/// The same by names: sources of the build where it has them, else new ones that no group lists.
void SetDependencies(THdlBuildFile& build, IHdlSourceFile& source,
                     const std::vector<const ISFileName*>& files);

/// Puts listed sources of one group elsewhere in it, in their order; `other`, which stays, is the
/// neighbour for PLACE_BEFORE and PLACE_BEHIND.
void MoveSources(THdlBuildFile& build, THdlLanguage language,
                 const std::vector<IHdlSourceFile*>& sources, TGroupPlace place,
                 const IHdlSourceFile* other);

/// Takes sources out of all groups and of the dependencies of all listed sources.
void RemoveSources(THdlBuildFile& build, const std::vector<IHdlSourceFile*>& sources);

/// Puts the source of another name in the place of `source`, in its groups and in the dependencies
/// of all listed sources, with its library, flag and dependencies.
void RenameSource(THdlBuildFile& build, IHdlSourceFile& source, const ISFileName* file);
