#pragma once
#include "services/base/api.h"

/// What Accept operations take. A visitor derives from it and from IVisitor<T> for every class T
/// that it wants to see.
class HDLBUILDFILE_SHARED_TYPE IBaseVisitor {
public:
    virtual ~IBaseVisitor() = default;
    /// Called for an item of a class that the visitor has no IVisitor<T> for.
    virtual void VisitUnhandled() = 0;
};

/// The typed handler for items whose exact class is T.
template <class T>
class HDLBUILDFILE_SHARED_TYPE IVisitor {
public:
    virtual ~IVisitor() = default;
    /// `item` stays its owner's.
    virtual void Visit(T* item) = 0;
};

/// The visitor protocol: hands `item` to the visitor's handler for T, or makes the fallback call.
/// Nothing happens for a null visitor.
template <class T>
#if defined(__MINGW32__) && defined(__GNUC__) && !defined(__clang__)
// GCC 12 for MinGW knows the only handler of a source file's own class, and calls another function.
__attribute__((optimize("no-devirtualize")))
#endif
void AcceptVisitor(IBaseVisitor* visitor, const T* item) {
    if (!visitor) return;
    // Accept is const while handlers may edit what they visit.
    if (auto* typed = dynamic_cast<IVisitor<T>*>(visitor))
        typed->Visit(const_cast<T*>(item));
    else
        visitor->VisitUnhandled();
}
