#pragma once
#include "simtools/basesimtoolcourierobserver.h"
#include <functional>
#include <string>
#include <utility>

/// Records each call as a line, and then does what the test wants done inside the notification.
class RecordingObserver : public ABaseSimToolCourierObserver {
public:
    void OnSimToolsChanged(void* reserved) override {
        Calls += reserved ? "changed, not null\n" : "changed\n";
        if (Inside) std::exchange(Inside, {})();
    }
    void OnPing() override { Calls += "ping\n"; }

    /// The calls since the last one.
    std::string Take() { return std::exchange(Calls, {}); }
    /// Done once, in the next notification.
    std::function<void()> Inside;

private:
    std::string Calls;
};
