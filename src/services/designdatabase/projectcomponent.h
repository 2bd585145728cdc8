#pragma once
#include "services/designdatabase/iprojectcomponent.h"

class ISFileName;

/// A component that is stored in a file: the one that a list of translation options belongs to.
class HDLBUILDFILE_SHARED_TYPE TProjectComponent : public IProjectComponent {
public:
    /// The file whose directory is the base of the relative names that file options store; null
    /// where there is none, as if the list had no component. The handle must outlive the component.
    virtual const ISFileName* GetFileName() const = 0;
};
