#include "services/base/keeper.h"

#include <unordered_set>

namespace {

// Never destroyed: objects are dropped and deleted while the process ends, too.
std::unordered_set<const void*>& KeptObjects() {
    static auto* kept = new std::unordered_set<const void*>;
    return *kept;
}

}  // namespace

void KeepUntilExit(const void* object) {
    if (object) KeptObjects().insert(object);
}

void ForgetKept(const void* object) {
    if (object) KeptObjects().erase(object);
}
