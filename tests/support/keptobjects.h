#pragma once
#include "services/base/keeper.h"

/// Whether the keeper that has `object` forgets it when somebody else deletes it, as happens here.
template <class T>
bool IsForgottenWhenDeleted(T* object) {
    TKeeper keeper;
    keeper.Keep(object, [](const void*) {});
    delete object;
    return keeper.IsEmpty();
}
