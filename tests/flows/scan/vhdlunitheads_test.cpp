#include "tests/flows/scan/scanrows.h"

TEST(VhdlUnitHeads, FindsEveryKindOfUnit) {
    ExpectFound({
        {"entity e is end;", "entity e 1:8\n"},
        {"ENTITY E IS END ENTITY E;", "entity E 1:8\n"},
        {"architecture a of e is begin end;", "architecture a of e 1:14\n  primary work.e 1:19\n"},
        {"architecture a of work.e is begin end a;",
         "architecture a of e 1:14\n  primary work.e 1:24\n"},
        {"package p is end package p;", "package p 1:9\n"},
        {"package body p is end p;", "package body p of p 1:14\n  primary work.p 1:14\n"},
        {"package p is new work.g generic map (1);",
         "package instance p 1:9\n  generic work.g 1:18\n"},
        {"configuration c of e is for a end for; end;",
         "configuration c of e 1:15\n  primary work.e 1:20\n  architecture work.e(a) 1:29\n"},
        {"context c is library l; use l.p.all; end context c;",
         "context c 1:9 library l\n  use l.p 1:29\n"},
        {"vunit v (e(a)) { assert always x; }",
         "verification unit v of e 1:7\n  primary work.e(a) 1:10\n"},
        {"vprop v { assert {a; b}; use work.p.all; } package p is end;",
         "verification unit v 1:7\n  use work.p 1:30\npackage p 1:52\n"},
        {"vmode v { assume {a; b} |=> {c}; } entity e is end;",
         "verification unit v 1:7\nentity e 1:43\n"},
        {"", ""},
        {"-- entity e is end;", ""},
    });
}

TEST(VhdlUnitHeads, FindsUnitsOneAfterTheOther) {
    EXPECT_EQ(Scan("entity e is\n"
                   "  generic (g : integer := 1);\n"
                   "  port (p : in bit);\n"
                   "begin\n"
                   "  assert g > 0;\n"
                   "end entity;\n"
                   "architecture a of e is begin end architecture a;\n"
                   "architecture b of e is begin end b;\n"
                   "package p is end; package body p is end package body;\n"
                   "configuration c of e is for b end for; end configuration;\n"
                   "entity e2 is end entity e2;\n"),
              "entity e 1:8\n"
              "architecture a of e 7:14\n"
              "  primary work.e 7:19\n"
              "architecture b of e 8:14\n"
              "  primary work.e 8:19\n"
              "package p 9:9\n"
              "package body p of p 9:32\n"
              "  primary work.p 9:32\n"
              "configuration c of e 10:15\n"
              "  primary work.e 10:20\n"
              "  architecture work.e(b) 10:29\n"
              "entity e2 11:8\n");
}

TEST(VhdlUnitHeads, GivesContextClausesToTheUnitThatFollows) {
    ExpectFound({
        {"library a, b; use a.p.all, b.q.f; use work.r;\nentity e is end;\nentity f is end;",
         "entity e 2:8 library a library b\n"
         "  use a.p 1:19\n"
         "  use b.q 1:28\n"
         "  use work.r 1:39\n"
         "entity f 3:8\n"},
        {"library l; context l.c, work.d; package p is end;",
         "package p 1:41 library l\n  context l.c 1:20\n  context work.d 1:25\n"},
        // Whether q is a library, c tells.
        {"context work.c; use q.p.all; entity e is end;",
         "entity e 1:37\n  context work.c 1:9\n  maybe use q.p 1:21\n"},
        {"library l; use l.all; entity e is port (x : p.t; y : l.q.t); end;",
         "entity e 1:30 library l\n"
         "  use l.* 1:16\n"
         "  maybe selected p.t 1:45\n"
         "  selected l.q 1:54\n"},
        {"context c is context l.d; library m; end context; entity e is end;",
         "context c 1:9 library m\n  maybe context l.d 1:22\nentity e 1:58\n"},
        {"use work.p.\"+\", work.q.'x', std.textio.all; entity e is end;",
         "entity e 1:52\n  use work.p 1:5\n  use work.q 1:17\n  use std.textio 1:29\n"},
        {"library l; use l.p.all;", ""},
    });
}

TEST(VhdlUnitHeads, FindsPackageInstances) {
    ExpectFound({
        {"library l; package p is new l.g generic map (x => l.q.c, y => work.r);",
         "package instance p 1:20 library l\n"
         "  generic l.g 1:29\n"
         "  selected l.q 1:51\n"
         "  selected work.r 1:63\n"},
        {"package p is new g; entity e is end;",
         "package instance p 1:9\n  maybe generic g 1:18\nentity e 1:28\n"},
        {"package p is new work.g; package q is new work.h; use work.r.all; package s is end;",
         "package instance p 1:9\n"
         "  generic work.g 1:18\n"
         "package instance q 1:34\n"
         "  generic work.h 1:43\n"
         "package s 1:75\n"
         "  use work.r 1:55\n"},
        // Local ones are no units, nor are their names libraries.
        {"architecture a of e is package p is new work.g generic map (1); use p.all; "
         "signal s : p.t; package q is new p; begin end;",
         "architecture a of e 1:14\n  primary work.e 1:19\n  generic work.g 1:41\n"
         "  maybe generic p 1:109\n"},
        {"entity e is generic (package p is new work.g generic map (<>); f : p.t); end; "
         "architecture a of e is use p.all; begin end;",
         "entity e 1:8\n"
         "  package work.g 1:39\n"
         "architecture a of e 1:92\n"
         "  primary work.e 1:97\n"},
        {"package p is generic (package g is new work.h generic map (<>)); end;",
         "package p 1:9\n  package work.h 1:40\n"},
        {"package p is package q is type t is (a); end package; package body q is end q; "
         "use q.all; procedure f is new work.r.g generic map (1); end; entity e is end;",
         "package p 1:9\n  generic work.r 1:110\nentity e 1:148\n"},
        {"package body p is function f is new work.q.g; function h is begin return 1; end; end; "
         "entity e is end;",
         "package body p of p 1:14\n  primary work.p 1:14\n  generic work.q 1:37\nentity e "
         "1:94\n"},
    });
}

TEST(VhdlUnitHeads, ReportsUnitsThatEndEarly) {
    ExpectFound({
        {"entity", ""},
        {"entity e", "entity e 1:8\n"},
        {"architecture a", "architecture a 1:14\n"},
        {"architecture a of", "architecture a 1:14\n"},
        {"architecture a of e", "architecture a of e 1:14\n  primary work.e 1:19\n"},
        {"configuration c of", "configuration c 1:15\n"},
        {"package p is", "package p 1:9\n"},
        {"package p is new", "package instance p 1:9\n"},
        {"package p is new l", "package instance p 1:9\n  maybe generic l 1:18\n"},
        {"package body", ""},
        {"architecture a of e is begin u: entity work.",
         "architecture a of e 1:14\n  primary work.e 1:19\n  entity work 1:40\n"},
        {"vunit v (e", "verification unit v of e 1:7\n  primary work.e 1:10\n"},
    });
}
