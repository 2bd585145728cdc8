#include "tests/flows/scan/scanrows.h"

TEST(VhdlStatements, FollowsWhatOpensAndCloses) {
    // Each of these ends where the architecture goes on: the instance behind it is one.
    const char* statements[] = {
        "process (clk) begin if a then b; elsif c then d; else e; end if; end process;",
        "process begin case x is when 1 => a; when others => case y is when 2 => null; end case; "
        "end case; end process p;",
        "process is begin l: loop exit; end loop l; while x loop null; end loop; for i in a loop "
        "null; end loop; end process;",
        "b: block (x) procedure p is begin end; begin end block;",
        "postponed process (all) variable v : t; begin end postponed process;",
        "process function f return t is begin return 1; end function; begin end process;",
        "process (a) impure function \"+\" (a : t) return t is begin return 1; end \"+\"; begin "
        "end process;",
        "process type t is record a : b; end record; type u is range 0 to 1 units fs; ps = 1000 "
        "fs; end units; begin end process;",
        "process type t is protected procedure p; end protected; type t is protected body "
        "procedure p is begin end; end protected body t; begin end process;",
        "process begin b: block is begin x: call; end block; end process;",
        "assert always {a; b} |-> c; default clock is rising_edge(clk); property p is (a; b);",
        "sequence s is {a; b[*3]; c}; cover {a; b};",
        "a <= b when c else d; with s select e <= f when g, h when others;",
        "a <= (others => '0'); b <= force '1'; c <= '(' & ')' & ';';",
        "g: if x generate else generate end generate; h: for i in a generate begin end; end "
        "generate;",
        "x <= y;",
    };
    for (const char* statement : statements) {
        EXPECT_EQ(NeedsIn("", std::string(statement) + "\nu: comp;"), "  component comp 6:4\n")
            << statement;
        EXPECT_EQ(Scan("architecture a of e is begin " + std::string(statement) +
                       "\nend; package q is end;"),
                  "architecture a of e 1:14\n  primary work.e 1:19\npackage q 2:14\n")
            << statement;
    }
}

TEST(VhdlStatements, FollowsDeclarations) {
    const char* declarations[] = {
        "component c is generic (a : b); port (c : d); end component c;",
        "component c port (c : d); end component; component c2 end component;",
        "function context return t is begin return 1; end context;",
        "procedure protected is begin end protected; function f is new work.q.g;",
        "view v of t is a : in; b, c : out; end view v;",
        "signal view : t; signal context, vunit, property : u;",
        "attribute a of b : entity is 1; attribute c of d : configuration is 2; attribute e of f "
        ": component is 3; attribute g of h : units is 4; attribute i of j : package is 5;",
        "group g is (entity, architecture, signal <>); group h : g (a, b);",
        "function f (function g return t is <>; procedure h is i) return t;",
        "function f generic (type t; package p is new work.q) parameter (a : t) return t is begin "
        "end;",
        "procedure p is begin end procedure p; function f return t is begin end;",
        "package p is generic (type t); package q is end; end package; package body p is "
        "procedure f is begin end; end package body;",
        "type t is (a, 'b', record_c); type u; type v is access w; type x is file of y;",
        "type t is array (natural range <>) of u; subtype s is t(1 to 2); alias a is b;",
        "disconnect s : t after 1 ns; shared variable v : t; file f : u open m is \"x\";",
        "pure function \"and\" (a : t) return t; impure function g return t;",
    };
    for (const char* declaration : declarations) {
        const std::string found = Scan("library work; entity e is end; architecture a of e is " +
                                       std::string(declaration) +
                                       "\nbegin u: comp; end; "
                                       "package n is end;");
        EXPECT_TRUE(found.ends_with("  component comp 2:10\npackage n 2:29\n"))
            << declaration << found;
    }
}
