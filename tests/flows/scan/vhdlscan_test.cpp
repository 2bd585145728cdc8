#include "tests/flows/scan/scanrows.h"

TEST(VhdlScan, GoesOnBehindErrors) {
    ExpectFound({
        {"entity e is port (a : b; entity f is end;", "entity e 1:8\nentity f 1:33\n"},
        {"architecture a of e is begin process begin if x then\nlibrary l; package p is end;",
         "architecture a of e 1:14\n  primary work.e 1:19\npackage p 2:20 library l\n"},
        {"architecture a of e is begin process begin if x then end a; package p is end;",
         "architecture a of e 1:14\n  primary work.e 1:19\npackage p 1:69\n"},
        {"architecture a of e is begin g: if x generate end a; package p is end;",
         "architecture a of e 1:14\n  primary work.e 1:19\npackage p 1:62\n"},
        {"package p is procedure f is begin loop if end; end; package q is end;",
         "package p 1:9\npackage q 1:61\n"},
        {"end; end if; end entity e; entity f is end; end f; package q is end;",
         "entity f 1:35\npackage q 1:60\n"},
        {"entity e is end entity architecture a of e is begin end",
         "entity e 1:8\n"
         "architecture a of e 1:37\n"
         "  primary work.e 1:42\n"},
        {"entity e is end; use work.p.all library l; architecture a of e is begin end;",
         "entity e 1:8\n"
         "architecture a of e 1:57 library l\n"
         "  use work.p 1:22\n"
         "  primary work.e 1:62\n"},
        {"library l; entity e is end; architecture a of e is begin process variable l : r; begin\n"
         "library l; entity f is port (x : l.p.t); end;",
         "entity e 1:19 library l\n"
         "architecture a of e 1:42\n"
         "  primary work.e 1:47\n"
         "entity f 2:19 library l\n"
         "  selected l.p 2:34\n"},
        {"library l; signal l : t; end block; entity e is port (x : l.p.t); end;",
         "entity e 1:44 library l\n  selected l.p 1:59\n"},
        {"architecture a of e is signal s : t(1; begin u: comp; end; package p is end;",
         "architecture a of e 1:14\n  primary work.e 1:19\n  component comp 1:49\npackage p "
         "1:68\n"},
        {"architecture a of e is begin process begin x := (1; end process; u: comp; end;",
         "architecture a of e 1:14\n  primary work.e 1:19\n  component comp 1:69\n"},
        {"package p is constant c : t := (1; end; package q is end;",
         "package p 1:9\npackage q 1:49\n"},
        {"architecture a of e is begin\ncontext work.c; package p is end;",
         "architecture a of e 1:14\n"
         "  primary work.e 1:19\n"
         "package p 2:25\n"
         "  context work.c 2:9\n"},
        {"))) ; ] } entity e is ) end;", "entity e 1:18\n"},
    });
}

TEST(VhdlScan, TakesBothBranchesOfWhatIsUnknown) {
    const char* text =
        "`if TOOL_NAME = \"x\" then\n"
        "use work.a.all;\n"
        "`else\n"
        "use work.b.all;\n"
        "`end if\n"
        "entity e is end;\n";
    EXPECT_EQ(Scan(text), "entity e 6:8\n  use work.a 2:5\n  use work.b 4:5\n");
    EXPECT_EQ(TextOf(ScanVhdl(text, {{{"TOOL_NAME", "x"}}})), "entity e 6:8\n  use work.a 2:5\n");
    EXPECT_EQ(TextOf(ScanVhdl(text, {{{"tool_name", "y"}}})), "entity e 6:8\n  use work.b 4:5\n");
}
