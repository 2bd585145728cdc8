#include "tests/flows/linking/designtext.h"
#include <gtest/gtest.h>

namespace {

constexpr const char* kEntity = "entity e is end;";
constexpr const char* kPackage = "package p is end;";

}  // namespace

TEST(LinkedDesign, NamesUnitsThatSeveralFilesOfALibraryDeclare) {
    EXPECT_EQ(FindingsIn({{"l", "entity E is end; entity e is end;"},
                          {"L", "architecture a of e is begin end; entity e is end;"},
                          {"m", kEntity},
                          {"l", "architecture A of e is begin end;"},
                          {"l", "package body p is end;"},
                          {"l", "package body P is end;"},
                          {"l", kPackage},
                          // What conditions may leave in.
                          {"l", "package q is end; package q is end;"}}),
              "repeated, entity E in a, entity e in b\n"
              "repeated, architecture a in b, architecture A in d\n"
              "repeated, package body p in e, package body P in f\n"
              "unneeded package p in g\n"
              "unneeded package q in h\n"
              "unneeded package q in h\n"
              "top entity E in a\n"
              "top entity e in a\n"
              "top entity e in b\n"
              "top entity e in c\n");
}

TEST(LinkedDesign, NamesUnitsThatNoFileHolds) {
    EXPECT_EQ(FindingsIn({{"l",
                           "use work.p.all; library m; use m.q.all; use WORK.P.x;\n"
                           "entity e is end;"},
                          {"L", "use work.p.all; entity f is end;"},
                          {"l", "architecture a of g is begin end;"},
                          {"l",
                           "configuration c of e is for b for i : x use entity work.f(z);\n"
                           "end for; end for; end;"},
                          {"l", "package i is new n generic map (a => 1);"},
                          {"l",
                           "entity t is end; architecture a of t is begin\n"
                           "i: entity u; j: k; end;"}}),
              "missing l.p x2 a:1:5\n"
              "missing m.q x1 a:1:32\n"
              "missing l.g x1 c:1:19\n"
              "missing l.e(b) x1 d:1:29\n"
              "missing l.f(z) x1 d:1:52\n"
              "missing l.u x1 f:2:11\n"
              "no entity l.k x1 f:2:17\n"
              "unneeded configuration c in d\n"
              "unneeded package instance i in e\n"
              "top entity e in a\n"
              "top entity t in f\n");
}

TEST(LinkedDesign, PassesOverExternalLibrariesUnlessAFileIsCompiledIntoThem) {
    const char* const text =
        "library ieee, Vendor, synopsys, vital, psl; use std.textio.all; use ieee.p.all;\n"
        "use vendor.p.all; use synopsys.p.all; use vital.p.all; use psl.p.all; entity e is end;";
    EXPECT_EQ(FindingsIn({{"l", text}}, {{"VENDOR"}}), "top entity e in a\n");
    EXPECT_EQ(FindingsIn({{"l", text}}), "missing vendor.p x1 a:2:5\ntop entity e in a\n");
    EXPECT_EQ(FindingsIn({{"l", text}, {"IEEE", "package q is end;"}}, {{"vendor"}}),
              "missing ieee.p x1 a:1:69\n"
              "unneeded package q in b\n"
              "top entity e in a\n");
}

TEST(LinkedDesign, NamesFilesThatAreWantedInTwoLibraries) {
    EXPECT_EQ(FindingsIn({{"l", "library m; use work.p.all; use m.p.all; entity e is end;"},
                          {"n", "library M; use m.p.all; entity f is end;"},
                          {"l", kPackage}}),
              "elsewhere package p in c, in m a:1:32\n"
              "top entity e in a\n"
              "top entity f in b\n");
}

TEST(LinkedDesign, NamesEntitiesThatNobodyInstantiates) {
    const auto instance = [](const std::string& text) {
        const std::string top = "library m; entity top is end; architecture a of top is " + text;
        return FindingsIn({{"l", top.c_str()}, {"l", kEntity}, {"m", kEntity}});
    };
    const std::string none = "top entity top in a\ntop entity e in b\ntop entity e in c\n";
    EXPECT_EQ(instance("begin end;"), none);
    EXPECT_EQ(instance("begin i: entity work.e; end;"), "top entity top in a\ntop entity e in c\n");
    EXPECT_EQ(instance("for all : x use entity m.e; begin end;"),
              "top entity top in a\ntop entity e in b\n");
    // Default bindings look in the own library and in those that are visible.
    EXPECT_EQ(instance("begin i: e; end;"), "top entity top in a\n");
    // Of itself.
    EXPECT_EQ(instance("begin i: entity work.top; end;"), none);
    EXPECT_EQ(FindingsIn({{"l", "entity t is end; architecture a of t is begin i: e; end;"},
                          {"m", kEntity},
                          {"n", kEntity},
                          {"n", "package e is end;"}}),
              "repeated, entity e in c, package e in d\n"
              "top entity t in a\n");
}

TEST(LinkedDesign, TakesAnEntityForInstantiatedWithItsConfiguration) {
    EXPECT_EQ(FindingsIn({{"l", "configuration c of e is for a end for; end;"},
                          {"l", "entity e is end; architecture a of e is begin end;"},
                          {"l",
                           "entity t is end; architecture a of t is begin i: configuration "
                           "work.c; end;"}}),
              "top entity t in c\n");
}

TEST(LinkedDesign, NamesUnitsThatNobodyNeeds) {
    EXPECT_EQ(FindingsIn({{"l", "package p is end; package body p is end;"},
                          {"l", "package q is end; package body q is end;"},
                          {"l", "context c is use work.q.all; end;"},
                          {"l", "configuration d of e is for a end for; end;"},
                          {"l", "entity e is end; architecture a of e is begin end;"},
                          {"l", "vunit v (e) {}"}}),
              "unneeded package p in a\n"
              "unneeded context c in c\n"
              "unneeded configuration d in d\n"
              "top entity e in e\n");
}
