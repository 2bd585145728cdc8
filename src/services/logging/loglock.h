#pragma once
#include "services/logging/binarylog.h"

/// Has the log's lock for its lifetime.
class TLogLock {
public:
    TLogLock() { gBinaryLogMessageLoggingMutex.Acquire(); }
    ~TLogLock() { gBinaryLogMessageLoggingMutex.Release(); }
    TLogLock(const TLogLock&) = delete;
    TLogLock& operator=(const TLogLock&) = delete;
};
