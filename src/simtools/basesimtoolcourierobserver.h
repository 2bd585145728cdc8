#pragma once
#include "services/base/api.h"

/// Is told when the tools that a courier keeps change.
class HDLBUILDFILE_SHARED_TYPE ABaseSimToolCourierObserver {
public:
    virtual ~ABaseSimToolCourierObserver() = default;
    /// Called after tools were added to or removed from a server. The argument is always null.
    virtual void OnSimToolsChanged(void* reserved) = 0;
    /// Never called by the courier itself; an operation for clients to call through PingObservers.
    virtual void OnPing() {}
};
