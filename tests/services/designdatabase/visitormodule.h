#pragma once
#include "services/designdatabase/hdbbase.h"
#include "services/designdatabase/visitor.h"

#ifdef _WIN32
#define VISITORMODULE_API __declspec(dllexport)
#else
#define VISITORMODULE_API __attribute__((visibility("default")))
#endif

/// An item class known to the test and to a module of its own.
class HDLBUILDFILE_SHARED_TYPE SharedItem : public hdb::IAccept {
public:
    explicit SharedItem(int number) : Number(number) {}
    void Accept(IBaseVisitor* visitor) const override { AcceptVisitor(visitor, this); }
    int Number;
};

/// An item class for which the module's visitor has no handler.
class HDLBUILDFILE_SHARED_TYPE UnknownItem : public hdb::IAccept {
public:
    void Accept(IBaseVisitor* visitor) const override { AcceptVisitor(visitor, this); }
};

/// A visitor made in the module, with a handler for SharedItem. The module keeps it.
extern "C" VISITORMODULE_API IBaseVisitor* GetModuleVisitor();
/// The sum of the numbers it has seen.
extern "C" VISITORMODULE_API int GetModuleSum();
/// How often it was called for an item of another class.
extern "C" VISITORMODULE_API int GetModuleUnhandled();
