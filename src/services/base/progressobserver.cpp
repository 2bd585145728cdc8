#include "services/base/progressobserver.h"

#include <utility>

namespace {

thread_local IProgressObserver* observerOfThread = nullptr;

}  // namespace

IProgressObserver* SetProgressObserver(IProgressObserver* observer) {
    return std::exchange(observerOfThread, observer);
}

IProgressObserver* GetProgressObserver() {
    return observerOfThread;
}
