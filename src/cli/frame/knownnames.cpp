#include "cli/frame/knownnames.h"
#include "cli/frame/texts.h"
#include "flows/nearestnames.h"

std::string UnknownName(const std::string& kind, const std::string& name,
                        const std::vector<std::string>& known) {
    return WithKnownNames("unknown " + kind + " '" + name + "'", name, known);
}

std::string WithKnownNames(const std::string& complaint, const std::string& name,
                           const std::vector<std::string>& known) {
    const std::string nearest = JoinChoices(NearestNames(name, known));
    return complaint + (nearest.empty() ? "" : "; nearest: " + nearest) +
           "; known: " + JoinNames(known);
}
