#include "tests/flows/linking/designtext.h"

// Each row is one construct of the languages, with the files that it makes others depend on.

namespace {

/// The file under test is `a`; these follow: b the package, c its body, d a generic package, e its
/// body, f an entity, g its architecture, h a configuration of it, i a context.
std::string VhdlNeedsOf(const std::string& text) {
    const std::string found = LinkText({
        {"work", text.c_str()},
        {"m", "package p is type t is (x); constant c : integer := 1; end;"},
        {"m", "package body p is end;"},
        {"m", "package g is generic (n : integer); end;"},
        {"m", "package body g is end;"},
        {"m", "entity f is end;"},
        {"m", "architecture r of f is begin end;"},
        {"m", "configuration k of f is for r end for; end;"},
        {"m", "context x is library m; use m.p.all; end;"},
    });
    const std::size_t end = found.find('\n');
    return found.starts_with("a: ") ? found.substr(3, end - 3) : "";
}

/// The file under test is `a`; these follow: b a package, c a package that imports it, d a class, e
/// a module, f an interface.
std::string VerilogNeedsOf(const std::string& text) {
    const std::string found = LinkText({
        {"work", text.c_str(), kVerilog},
        {"work", "package p; typedef int t; endpackage", kVerilog},
        {"work", "package q; import p::*; export p::*; endpackage", kVerilog},
        {"work", "class base; endclass", kVerilog},
        {"work", "module sub; endmodule", kVerilog},
        {"work", "interface bus; endinterface", kVerilog},
    });
    const std::size_t end = found.find('\n');
    return found.starts_with("a: ") ? found.substr(3, end - 3) : "";
}

struct TConstruct {
    const char* Text;
    const char* Needs;
};

const std::string kHead = "library m; entity e is end; architecture a of e is ";

}  // namespace

TEST(Constructs, OfVhdlInContextClauses) {
    for (const TConstruct& row : std::vector<TConstruct>{
             {"library m; use m.p.all; entity e is end;", "b"},
             {"library l, m, n; use std.textio.all, m.p.t; entity e is end;", "b"},
             {"library m; use m.p; entity e is end;", "b"},
             {"library m; context m.x; entity e is end;", "i"},
             {"library m; context m.x, m.x; package e is end;", "i"},
             {"context c is library m; use m.p.all; end context;", "b"},
             {"context c is library m; context m.x; end context c;", "i"},
             {"library \\m\\; use \\m\\.p.all; entity e is end;", ""},
             {"library M; use M.P.ALL; entity e is end;", "b"},
             {"library m; use m.p.all; use m.g; context m.x; configuration c of z is for a end "
              "for; end;",
              "b d i"},
             {"-- library m; use m.p.all;\n/* use m.g; */ entity e is end;", ""},
             {"library m;\n`if TOOL_NAME = \"x\" then\nuse m.p.all;\n`else\nuse m.g;\n`end if\n"
              "entity e is end;",
              "b d"},
             {"library m;\n`protect begin_protected\nuse m.p.all;\n`protect end_protected\n"
              "use m.g; entity e is end;",
              "d"},
         })
        EXPECT_EQ(VhdlNeedsOf(row.Text), row.Needs) << row.Text;
}

TEST(Constructs, OfVhdlInDeclarations) {
    for (const TConstruct& row : std::vector<TConstruct>{
             {"use m.p.all; begin end;", "b"},
             {"signal s : m.p.t; begin end;", "b"},
             {"signal s : m.p.t := m.g.c; begin end;", "b d"},
             {"subtype u is m.p.t range m.g.a to m.g.b; begin end;", "b d"},
             {"type u is array (m.p.t) of integer; begin end;", "b"},
             {"type u is record a, b : m.p.t; end record; begin end;", "b"},
             {"type u is access m.p.t; begin end;", "b"},
             {"type u is file of m.p.t; begin end;", "b"},
             {"type u is protected impure function f return m.p.t; end protected; type u is "
              "protected body variable v : m.g.t; end protected body; begin end;",
              "b d"},
             {"alias u is m.p.t; begin end;", "b"},
             {"attribute u : m.p.t; attribute u of e : entity is m.g.c; begin end;", "b d"},
             {"function f (a : m.p.t) return m.g.t is begin end; begin end;", "b d"},
             {"function f is new m.p.f generic map (n => 1); begin end;", "b c"},
             {"package i is new m.g generic map (n => 1); begin end;", "d e"},
             {"package i is use m.p.all; end package; begin end;", "b"},
             {"component z generic (n : integer := m.p.c); port (a : m.g.t); end component; begin "
              "end;",
              "b d"},
             {"for i : z use entity m.f(r); begin i : z; end;", "f"},
             {"for all : z use entity m.f; begin i : z; end;", "f"},
             {"for others : z use configuration m.k; begin i : z; end;", "h"},
             {"constant c : integer := << constant @m.p.c : integer >>; begin end;", "b"},
             {"disconnect s : m.p.t after 1 ns; begin end;", "b"},
             {"shared variable v : m.p.t; begin end;", "b"},
             {"file f : m.p.t open m.g.c is \"x\"; begin end;", "b d"},
             {"signal \\m.p\\ : integer; begin end;", ""},
             {"constant s : string := \"m.p.all\"; begin end;", ""},
             {"constant s : character := m.p.c'('a'); begin end;", "b"},
         })
        EXPECT_EQ(VhdlNeedsOf(kHead + row.Text), row.Needs) << row.Text;
}

TEST(Constructs, OfVhdlInStatements) {
    for (const TConstruct& row : std::vector<TConstruct>{
             {"begin i : entity m.f; end;", "f"},
             {"begin i : entity m.f(r); end;", "f"},
             {"begin i : entity m.f(r) generic map (m.p.c) port map (m.g.f(1)); end;", "f b d"},
             {"begin i : configuration m.k; end;", "h"},
             {"begin i : component f; end;", ""},
             {"begin i : f; end;", ""},
             {"begin p : process use m.p.all; begin wait; end process; end;", "b"},
             {"begin process begin m.p.q(1); wait until m.g.c; end process; end;", "b d"},
             {"begin b : block use m.p.all; begin i : entity m.f; end block; end;", "b f"},
             {"begin g : for j in m.p.t generate i : entity m.f; end generate; end;", "b f"},
             {"begin g : if m.p.c = 1 generate i : entity m.f; else generate j : configuration "
              "m.k; "
              "end generate; end;",
              "b f h"},
             {"begin g : case m.p.c generate when a: m.g.c => i : entity m.f; end generate; end;",
              "b d f"},
             {"begin s <= m.p.c when m.g.c else m.f.x; end;", "b d f"},
             {"begin assert m.p.c report m.g.c severity error; end;", "b d"},
             {"begin with m.p.c select s <= m.g.c when others; end;", "b d"},
             {"begin postponed m.p.q(1); end;", "b"},
             {"begin -- psl assert always m.p.c;\n end;", ""},
             {"begin assert always m.p.c -> next m.g.c; end;", "b d"},
         })
        EXPECT_EQ(VhdlNeedsOf(kHead + row.Text), row.Needs) << row.Text;
}

TEST(Constructs, OfVhdlInOtherUnits) {
    for (const TConstruct& row : std::vector<TConstruct>{
             {"library m; entity e is generic (package i is new m.g generic map (<>)); end;", "d"},
             {"library m; entity e is generic (type t; n : m.p.t); port (s : in m.g.t); end;",
              "b d"},
             {"library m; entity e is port (s : view m.p.v); end;", "b"},
             {"library m; entity e is port (s : view (m.p.v) of m.g.t); end;", "b d"},
             {"library m; entity e is use m.p.all; begin assert m.g.c; end;", "b d"},
             {"library m; package e is generic (n : m.p.t); end;", "b"},
             {"library m; package i is new m.g generic map (n => m.p.c);", "d e b"},
             {"library m; use m.g; package i is new g generic map (1);", "d e"},
             {"library m; vunit v (m.f(r)) { assert always m.p.c; }", "f g b"},
             {"library m; configuration c of z is use m.p.all; for a for i : y use entity m.f(r) "
              "port map (m.g.c); end for; end for; end;",
              "b f g d"},
             {"library m; configuration c of z is for a for all : y use configuration m.k; end "
              "for; "
              "end for; end;",
              "h"},
             {"library m; package e is view v of m.p.t is a : in; end view; end;", "b"},
         })
        EXPECT_EQ(VhdlNeedsOf(row.Text), row.Needs) << row.Text;
}

TEST(Constructs, OfVhdlAcrossFiles) {
    ExpectDependencies({
        {"a context that another one names",
         {{"l", "context work.c; entity e is port (x : m.q.t); end;"},
          {"l", "context c is context work.d; end;"},
          {"l", "context d is library m; end;"},
          {"m", "package q is end;"}},
         "a: b d\nb: c\n"},
        {"an architecture inherits from its entity",
         {{"l", "architecture a of e is signal s : m.q.t; begin i : entity m.f; end;"},
          {"l", "library m; entity e is end;"},
          {"m", "package q is end;"},
          {"m", "entity f is end;"}},
         "a: b c d\n"},
        {"a package body inherits from its package",
         {{"l", "package body p is constant c : m.q.t := 1; end;"},
          {"l", "context work.c; package p is end;"},
          {"l", "context c is library m; end;"},
          {"m", "package q is end;"}},
         "a: b d\nb: c\n"},
        {"what a package declares is no library",
         {{"l", "use work.m.all; entity e is port (x : m.q.t); end;"},
          {"l", "package m is end;"},
          {"m", "package q is end;"}},
         "a: b\n"},
        {"verification units that inherit",
         {{"l", "library m; vunit v (e) { default clock is c; inherit w, x, m.y; }"},
          {"l", "vunit w { }"},
          {"l", "entity e is end;"},
          {"l", "vprop x { }"},
          {"m", "vmode y { }"}},
         "a: c b d e\n"},
        {"a name that is no keyword there",
         {{"l",
           "entity e is end; architecture a of e is signal inherit : bit; begin w : inherit "
           "generic map (1); end;"},
          {"l", "vunit w { }"}},
         ""},
    });
}

TEST(Constructs, OfVerilogThatOrderFiles) {
    for (const TConstruct& row : std::vector<TConstruct>{
             {"import p::*;", "b"},
             {"import p::t, q::u;", "b c"},
             {"module m import p::*; #(int W = q::W) (input W x); endmodule", "b c"},
             {"module m #(parameter int W = p::W) (); endmodule", "b"},
             {"module m (input p::t x, output q::t [3:0] y); endmodule", "b c"},
             {"module m (x); input p::t x; endmodule", "b"},
             {"interface i; import p::*; endinterface", "b"},
             {"program i; import p::*; endprogram", "b"},
             {"package automatic i; import p::*; export q::*; endpackage", "b c"},
             {"class c extends base; endclass", "d"},
             {"class c extends p::base #(int); q::t x; endclass", "b c"},
             {"class c implements p::i; endclass", "b"},
             {"module m; p::t x; endmodule", "b"},
             {"module m; typedef p::t u; localparam q::t W = 1; endmodule", "b c"},
             {"module m; struct packed { p::t a; } s; endmodule", "b"},
             {"module m; typedef enum p::t {A = q::A} e; endmodule", "b c"},
             {"module m; union { q::t a; } s; endmodule", "c"},
             {"module m; assign x = p::f(1) + q::W; endmodule", "b c"},
             {"module m; wire [p::W-1:0] x; endmodule", "b"},
             {"module m; always_comb case (x) p::A: y = p::t'(z); q::B: y = 1; endcase endmodule",
              "b c"},
             {"module m; function automatic p::t f(q::t a); return a; endfunction endmodule",
              "b c"},
             {"module m; task t; p::go(); endtask endmodule", "b"},
             {"module m; initial begin p::t x; x = q::c::type_id::create(); end endmodule", "b c"},
             {"module m; sub #(.W(p::W)) u (.a(q::x)); endmodule", "b c"},
             {"module m; if (p::W > 1) begin : g assign x = q::y; end endmodule", "b c"},
             {"module m; for (genvar i = 0; i < p::W; i++) assign x[i] = 0; endmodule", "b"},
             {"module m; covergroup g @(p::e); coverpoint q::x; endgroup endmodule", "b c"},
             {"module m; assert property (@(posedge c) p::x |-> q::y); endmodule", "b c"},
             {"module m; base b = new; endmodule", "d"},
             {"`ifdef A\nimport p::*;\n`else\nimport q::*;\n`endif", "b c"},
             {"`define A\n`ifdef A\nimport p::*;\n`else\nimport q::*;\n`endif", "b"},
             {"// import p::*;\n/* q::x */ module m; string s = \"p::x\"; endmodule", ""},
             {"module m; sub u(); bus b(); endmodule", ""},
             {"module m (bus b); virtual bus v; endmodule", ""},
             {"bind sub bus b();", ""},
             {"import \"DPI-C\" function int f(p::t a);", "b"},
             {"checker k; p::t x; endchecker", "b"},
             {"module m; initial x = $unit::y + std::randomize(z) + local::w; endmodule", ""},
             {"module m; \\p ::t x; endmodule", "b"},
             {"module automatic m; let l = p::x; endmodule", "b"},
             {"module m; modport_t x; clocking cb @(p::e); endclocking endmodule", "b"},
             {"module m; defparam u.W = p::W; endmodule", "b"},
         })
        EXPECT_EQ(VerilogNeedsOf(row.Text), row.Needs) << row.Text;
}
