#include "tests/flows/linking/designtext.h"

namespace {

constexpr const char* kEntity = "entity e is end;";
constexpr const char* kPackage = "package p is end;";

}  // namespace

TEST(VisibleNames, AreThoseOfContextsPrimaryUnitsAndWholeLibraries) {
    ExpectDependencies({
        {"context reference",
         {{"l", "library m; context m.c; entity e is end;"},
          {"m", "context c is library n; use n.p.all; end;"},
          {"n", kPackage}},
         "a: b\nb: c\n"},
        {"library of a context",
         {{"l", "context work.c; entity e is port (x : n.p.t); end;"},
          {"l", "context c is library n; end;"},
          {"n", kPackage}},
         "a: b c\n"},
        {"library of a context of a context",
         {{"l", "context work.c; use n.p.all; entity e is end;"},
          {"l", "context c is library m; context m.d; end;"},
          {"m", "context d is library n; end;"},
          {"n", kPackage}},
         "a: b d\nb: c\n"},
        {"library of the primary unit",
         {{"l", "architecture a of e is signal s : n.p.t; begin end;"},
          {"l", "library n; entity e is end;"},
          {"n", kPackage}},
         "a: b c\n"},
        {"library of the primary unit's context",
         {{"l", "package body p is constant c : integer := n.p.c; end;"},
          {"l", "context work.c; package p is end;"},
          {"l", "context c is library n; end;"},
          {"n", kPackage}},
         "a: b d\nb: c\n"},
        {"a record, not a library",
         {{"l", "architecture a of e is begin x <= n.p.t; end;"}, {"l", kEntity}, {"n", kPackage}},
         "a: b\n"},
        {"libraries that an external context may make visible",
         {{"l", "library x; context x.c; use n.p.all; entity e is end;"},
          {"n", kPackage},
          {"l", "library x; context x.c; architecture a of e is begin i: entity n.f; end;"},
          {"n", "entity f is end;"},
          {"l",
           "library x; context x.c; entity g is end; architecture a of g is begin s <= n.p.t; "
           "end;"}},
         "a: b\nc: a d\n"},
        {"package of a whole library",
         {{"l", "library m; use m.all; entity e is port (x : p.t); end;"}, {"m", kPackage}},
         "a: b\n"},
        {"package of a whole library in a use clause",
         {{"l", "library m; use m.all; use p.all; entity e is end;"}, {"m", kPackage}},
         "a: b\n"},
        {"package of the primary unit's whole library",
         {{"l", "architecture a of e is signal s : p.t; begin end;"},
          {"l", "library m; use m.all; entity e is end;"},
          {"m", kPackage}},
         "a: b c\n"},
        {"a circle of contexts",
         {{"l", "context work.d; context c is end; use n.p.all; entity e is end;"},
          {"l", "context d is context work.c; library n; end;"},
          {"n", kPackage}},
         "a: b c\nb: a\n"},
    });
}
