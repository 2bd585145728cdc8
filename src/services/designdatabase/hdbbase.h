#pragma once
#include "services/base/languagenumber.h"
#include "services/base/rope.h"

class IBaseVisitor;

namespace hdb {
/// What an item of the design database is.
enum TItemKind : int { ITEM_KIND_FILE = 0 };

/// The scope a source stream was read in; the library only carries pointers to it.
class IStreamScope;

/// Anything a visitor can be sent to.
class HDLBUILDFILE_SHARED_TYPE IAccept {
public:
    virtual ~IAccept() = default;
    /// Sends `visitor` to the handler for this item's exact class; null does nothing.
    virtual void Accept(IBaseVisitor* visitor) const = 0;
};

/// An item of the design database.
class HDLBUILDFILE_API IHDBBase : public IAccept {
public:
    /// Never null; lives as long as the item.
    virtual const char* GetName() const = 0;
    virtual TRope GetFullName() = 0;
    virtual TItemKind GetHDBItemKind() = 0;
    virtual THdlLanguage GetLanguage() = 0;
    /// The enclosing scope; null when there is none. It stays the design database's.
    virtual const IHDBBase* GetSourceParent(bool) const = 0;
    virtual bool IsProtected() const = 0;
    /// A one-line description for debugging: the item's name.
    virtual TRope dump() const;
};

}  // namespace hdb
