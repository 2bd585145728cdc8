#include "tests/flows/scan/scanrows.h"

TEST(VhdlUnits, NamesANeedOnceInAUnit) {
    EXPECT_EQ(Scan("library l; use l.p.all; use L.P.x;\nentity e is port (a : l.p.t; b : l.p.u);\n"
                   "end; use work.l.all; entity f is end;"),
              "entity e 2:8 library l\n"
              "  use l.p 1:16\n"
              "  selected l.p 2:23\n"
              "entity f 3:29\n"
              "  use work.l 3:10\n");
}

TEST(VhdlUnits, InheritsContextClauses) {
    ExpectFound({
        // Of a primary unit in the file.
        {"library l; entity e is end; architecture a of E is signal s : l.p.t; begin end;",
         "entity e 1:19 library l\n"
         "architecture a of E 1:42\n"
         "  primary work.E 1:47\n"
         "  selected l.p 1:63\n"},
        {"library l; package p is end; package body p is constant c : t := l.q.f; end;",
         "package p 1:20 library l\n"
         "package body p of p 1:43\n"
         "  primary work.p 1:43\n"
         "  selected l.q 1:66\n"},
        {"package body p is constant c : t := p.d; end;",
         "package body p of p 1:14\n  primary work.p 1:14\n"},
        // Of one that is not there.
        {"architecture a of e is signal s : l.p.t; begin s.x <= work.q.c; end;",
         "architecture a of e 1:14\n"
         "  primary work.e 1:19\n"
         "  maybe selected l.p 1:35\n"
         "  selected work.q 1:55\n"},
        {"context work.c; entity e is end; architecture a of e is begin x <= l.p.c; end;",
         "entity e 1:24\n"
         "  context work.c 1:9\n"
         "architecture a of e 1:47\n"
         "  primary work.e 1:52\n"
         "  maybe selected l.p 1:68\n"},
        // Others have to name their libraries.
        {"library l; entity e is end; entity f is port (x : l.p.t); end;",
         "entity e 1:19 library l\nentity f 1:36\n"},
        {"library l; entity e is end; configuration c of e is for a for x : y use entity "
         "l.z; end for; end for; end;",
         "entity e 1:19 library l\n"
         "configuration c of e 1:43\n"
         "  primary work.e 1:48\n"
         "  architecture work.e(a) 1:57\n"
         "  maybe binding l.z 1:80\n"},
    });
}

TEST(VhdlUnits, FindsNamesThatSelect) {
    const struct {
        const char* Declarations;
        const char* Statements;
        const char* Needs;
    } rows[] = {
        {"signal s : lib.p.t;", "", "  selected lib.p 3:12\n"},
        {"constant c : integer := LIB.P.f(work.q.c);", "",
         "  selected LIB.P 3:25\n  selected work.q 3:33\n"},
        {"function f (a : lib.p.t) return lib.q.t;", "",
         "  selected lib.p 3:17\n  selected lib.q 3:33\n"},
        {"alias x is lib.p.c;", "", "  selected lib.p 3:12\n"},
        {"type r is record a : lib.p.t; end record;", "", "  selected lib.p 3:22\n"},
        {"attribute work.p.a of x : signal is 1;", "", "  selected work.p 3:11\n"},
        {"use lib.p; use lib.q.all; use p.all; signal s : p.t; signal r : q.t;", "",
         "  use lib.p 3:5\n  use lib.q 3:16\n"},
        {"", "lib.p.call(1);", "  selected lib.p 5:1\n"},
        {"", "x: lib.p.call(1);", "  selected lib.p 5:4\n"},
        {"", "process begin work.p.call; wait for work.q.t; end process;",
         "  selected work.p 5:15\n  selected work.q 5:37\n"},
        {"", "a <= b.lib.c; d.e(1).work.g <= a'lib.x;", ""},
        {"", "a <= lib; b <= lib.p;", "  selected lib.p 5:16\n"},
        {"", "a <= << signal lib.dut.s : lib.p.t >>; b <= << constant @lib.q.c : t >>;",
         "  selected lib.p 5:28\n  selected lib.q 5:58\n"},
        // What is declared hides the library.
        {"signal x, lib : rec;", "a <= lib.b; b <= work.p.c;", "  selected work.p 5:18\n"},
        {"procedure f (lib : rec); signal s : lib.p.t;", "", "  selected lib.p 3:37\n"},
        {"procedure f (lib : rec) is begin x(lib.a); end; signal s : lib.p.t;", "",
         "  selected lib.p 3:60\n"},
        {"", "process variable lib : r; begin lib.a := 1; end process; x <= lib.p.c;",
         "  selected lib.p 5:63\n"},
        {"component c is port (lib : r := lib.a); end component; signal s : lib.p.t;", "",
         "  selected lib.p 3:67\n"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(NeedsIn(row.Declarations, row.Statements), row.Needs)
            << row.Declarations << row.Statements;
}

TEST(VhdlUnits, ComparesNamesAsVhdlDoes) {
    const std::string entity = "library B\xC3\x84R; entity Z\xC3\xA4hler is end;";
    const std::string architecture =
        "architecture a of z\xC3\x84hler is signal s : b\xC3\xA4r.p.t; begin end;";
    EXPECT_EQ(Scan(entity + architecture),
              "entity Z\xC3\xA4hler 1:22 library B\xC3\x84R\n"
              "architecture a of z\xC3\x84hler 1:50\n"
              "  primary work.z\xC3\x84hler 1:55\n"
              "  selected b\xC3\xA4r.p 1:77\n");
    EXPECT_EQ(Scan("library L; package p is end; package \\P\\ is end; package body \\P\\ is "
                   "constant c : l.q.t; end; package body P is constant c : l.q.t; end;"),
              "package p 1:20 library L\n"
              "package \\P\\ 1:38\n"
              "package body \\P\\ of \\P\\ 1:63\n"
              "  primary work.\\P\\ 1:63\n"
              "package body P of P 1:108\n"
              "  primary work.P 1:108\n"
              "  selected l.q 1:126\n");
}
