#pragma once
#include "sibling/api.h"

class ISFileName;

/// The component of a project that a list of translation options belongs to.
class HDLBUILDFILE_SHARED_TYPE TProjectComponent {
public:
    virtual ~TProjectComponent() = default;
    /// The file whose directory is the base of the relative names that file options store; null
    /// where there is none, as if the list had no component. The handle must outlive the component.
    virtual const ISFileName* GetFileName() const = 0;
};
