#pragma once
#include "services/base/api.h"

/// Tells the user something. Called on the thread whose work has something to tell, on several at a
/// time when they work at the same time, and never with a lock held.
class HDLBUILDFILE_SHARED_TYPE IMessageBox {
public:
    virtual ~IMessageBox() = default;
    /// The texts live for the call only. The library always passes style 0.
    virtual void ShowMessage(const char* text, const char* caption, int style) = 0;
};

namespace Fileservices {

/// Never null. The built-in box writes "caption: text" and a line end to standard error and never
/// waits.
HDLBUILDFILE_API IMessageBox* GetMessageBox();

/// Replaces the box; null restores the built-in one. It stays the caller's and must outlive its
/// use. Returns the box replaced, null for the built-in one.
HDLBUILDFILE_API IMessageBox* SetMessageBox(IMessageBox* box);

}  // namespace Fileservices
