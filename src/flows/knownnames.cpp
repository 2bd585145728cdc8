#include "flows/knownnames.h"
#include "flows/nearestnames.h"

std::string JoinNames(const std::vector<std::string>& names) {
    std::string joined;
    for (const std::string& name : names) {
        if (&name != &names.front()) joined += ", ";
        joined += name;
    }
    return joined;
}

std::string JoinChoices(const std::vector<std::string>& names) {
    if (names.size() < 2) return JoinNames(names);
    return JoinNames({names.begin(), names.end() - 1}) + " or " + names.back();
}

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
