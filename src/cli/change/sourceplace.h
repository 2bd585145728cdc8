#pragma once
#include "cli/change/commands.h"
#include "cli/frame/buildaccess.h"
#include <map>

/// Puts sources where "--first", "--before" and "--after" say.
class TSourcePlacing {
public:
    TSourcePlacing(const TChangeArguments& arguments, TBuildAccess* build,
                   const TToolStreams& streams)
        : Arguments(arguments), Build(*build), Streams(streams) {}

    /// kExitUsage, with one line on Err, for more than one place and a neighbour that is no source.
    int Find();
    bool IsAsked() const { return IsMoving; }

    /// To be put there, behind those before.
    void Put(const TBuildSource& source) { Sources[source.Language].push_back(source.Source); }
    /// kExitUsage, with one line on Err, for sources of another group than the neighbour's.
    int Move();

private:
    const TChangeArguments& Arguments;
    TBuildAccess& Build;
    const TToolStreams& Streams;
    bool IsMoving = false;
    TGroupPlace Place = PLACE_LAST;
    TBuildSource Neighbour = {LANGUAGE_NONE, nullptr};
    std::map<THdlLanguage, std::vector<IHdlSourceFile*>> Sources;
};
