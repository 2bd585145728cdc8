#pragma once
#include "cli/frame/changereport.h"
#include "cli/frame/texts.h"
#include "flows/sourcelists.h"

/// Two lists of sources and how they differ.
struct TComparedSources {
    const TSourceLists& Before;
    const TSourceLists& After;
    const TSourceListsDifference& Difference;
    const TTextNumbers& Libraries;
};

/// Adds the values of each source that differs: the library, the flag and the dependencies of one
/// that is in both lists, and the file in front of one that moved; all in one of a source that came
/// or went.
void AddSourceChanges(const TComparedSources& sources, const TPathForm& form, TState* before,
                      TState* after);
