#pragma once
#include "services/base/api.h"

/// Is told of each file inserted into a project file list that it is registered with.
class HDLBUILDFILE_SHARED_TYPE AHdbObjectObserver {
public:
    virtual ~AHdbObjectObserver() = default;
    /// `index` is the 0-based place of the new file. The observer may add files to that list.
    virtual void FileInserted(int index) = 0;
};
