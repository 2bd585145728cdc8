#include "cli/change/sourceplace.h"
#include "projectfiles/ihdlsourcefile.h"

int TSourcePlacing::Find() {
    const bool isBefore = !Arguments.Before.empty();
    const bool isAfter = !Arguments.After.empty();
    if (Arguments.First + isBefore + isAfter > 1) {
        ReportError(Streams, "only one of --first, --before and --after can be given");
        return kExitUsage;
    }
    IsMoving = Arguments.First || isBefore || isAfter;
    if (Arguments.First) Place = PLACE_FIRST;
    if (!isBefore && !isAfter) return kExitDone;
    Place = isBefore ? PLACE_BEFORE : PLACE_BEHIND;
    Neighbour = Build.FindSource(isBefore ? Arguments.Before : Arguments.After);
    return Neighbour.Source ? kExitDone : kExitUsage;
}

int TSourcePlacing::Move() {
    if (!IsMoving) return kExitDone;
    for (const auto& [language, sources] : Sources) {
        if (Neighbour.Source && Neighbour.Language != language) {
            ReportError(Streams, Build.TextOf(sources.front()->GetFileName()) +
                                     " is in the group of " + GetStringFromHdlLanguage(language) +
                                     ", " + Build.TextOf(Neighbour.Source->GetFileName()) +
                                     " in the one of " +
                                     GetStringFromHdlLanguage(Neighbour.Language));
            return kExitUsage;
        }
        MoveSources(Build.GetBuild(), language, sources, Place, Neighbour.Source);
    }
    return kExitDone;
}
