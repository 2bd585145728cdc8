#include "tests/flows/scan/verilogrows.h"

TEST(VerilogScan, FindsUnits) {
    ExpectFoundV({
        {"module m; endmodule macromodule \\n+1 (a); endmodule : n",
         "module m 1:8\nmodule \\n+1 1:33\n"},
        {"module automatic m #(parameter A = 1) (input a, output b); endmodule", "module m 1:18\n"},
        {"interface i; endinterface interface automatic j (input c); endinterface",
         "interface i 1:11\ninterface j 1:47\n"},
        {"program p; endprogram package q; endpackage checker c; endchecker",
         "program p 1:9\npackage q 1:31\nchecker c 1:53\n"},
        {"primitive u (o, a); output o; input a; table\n0 : 1; x y (01) : module; endtable "
         "endprimitive module m; endmodule",
         "primitive u 1:11\nmodule m 2:56\n"},
        {"class c; endclass virtual class d; endclass interface class e; endclass",
         "class c 1:7\nclass d 1:33\nclass e 1:61\n"},
        {"package p; class c; class d; endclass endclass endpackage class e; endclass",
         "package p 1:9\nclass e 1:65\n"},
        {"module m; class c; endclass interface i; endinterface endmodule",
         "module m 1:8\ninterface i 1:39\n"},
        {"config c; endconfig", "configuration c 1:8\n"},
        {"typedef class c; typedef interface class d; extern module m (input a); extern interface "
         "i; module n; endmodule",
         "module n 1:99\n"},
        {"(* keep *) module m; endmodule", "module m 1:19\n"},
        {"module `NAME (a); sub u (a); endmodule module n; endmodule",
         "  instance sub 1:19\nmodule n 1:47\n"},
        {"`define NAME m\nmodule `NAME (a); endmodule", "module m 2:8\n"},
        {"\xEF\xBB\xBFmodule m\r\n;\r\nendmodule\rmodule n; endmodule",
         "module m 1:8\nmodule n 4:8\n"},
        {"", ""},
    });
}

TEST(VerilogScan, TakesNoOtherWordForAUnit) {
    ExpectFoundV({
        {"module m; wire class, package; assign class = program; always @* package <= interface; "
         "initial begin program = 1; config = 2; checker[1] = 0; end sub u (); endmodule",
         "module m 1:8\n  instance sub 1:147\n"},
        {"`begin_keywords \"1364-2001\"\nmodule m; class c (); endmodule\n`end_keywords\n"
         "class d; endclass",
         "module m 2:8\n  instance class 2:11\nclass d 4:7\n"},
        {"// module a;\n/* module b; */ module m; initial $display(\"module c; \\\" module d;\"); "
         "endmodule",
         "module m 2:24\n"},
        {"`define M module a; \\\n module b;\nmodule m; endmodule", "module m 3:8\n"},
    });
}

TEST(VerilogScan, FindsInstances) {
    ExpectNeedsV({
        {"sub u (.a(b));", "  instance sub 2:1\n"},
        {"sub #(.A(1), .B(x[3:0])) u (a), v (b); sub w ();", "  instance sub 2:1\n"},
        {"sub #(8) u [3:0] [1:0] (.*);", "  instance sub 2:1\n"},
        {"sub #8 u (a); two #W v (a); three #(1.5) w (a);",
         "  instance sub 2:1\n  instance two 2:15\n  instance three 2:29\n"},
        {"\\sub  u (a); \\s+b \\u+1 (a);", "  instance sub 2:1\n  instance \\s+b 2:14\n"},
        {"(* keep *) sub (* x *) u (* y *) (a);", "  instance sub 2:12\n"},
        {"sub u (\n`ifdef A\n.a(a),\n`else\n.b(b),\n`endif\n.c(c)); two v ();",
         "  instance sub 2:1\n  instance two 8:9\n"},
        {"sub\n`ifdef A\n#(1)\n`else\n#(2)\n`endif\nu (a);", "  instance sub 2:1\n"},
        {"`ifdef A\none\n`else\ntwo\n`endif\nu (a);", "  maybe instance two 5:1\n"},
        {"generate if (X) begin : g one u (); end else if (Y) two u (); else three u (); "
         "for (i = 0; i < 2; i = i + 1) begin four u (); end case (X) 1, 2: five u (); "
         "default: six u (); endcase endgenerate seven u ();",
         "  instance one 2:27\n  instance two 2:53\n  instance three 2:68\n"
         "  instance four 2:116\n  instance five 2:146\n  instance six 2:166\n"
         "  instance seven 2:196\n"},
        {"g : if (X) begin : h one u (); end : h i : two u ();",
         "  instance one 2:22\n  instance two 2:44\n"},
        {"`MACRO(a, b) one u (); `MACRO one v (); `MACRO u (a); `MACRO; two u `N (a); three `N "
         "(b);",
         "  instance one 2:14\n  maybe class two 2:63\n  instance three 2:77\n"},
        {"`define MOD sub\n`MOD u ();", "  instance sub 3:1\n"},
        {"always @(posedge c) begin if (a) b <= c; else d <= e; end one u ();",
         "  instance one 2:59\n"},
        {"always @(a) if (a) b = c; else begin d = e; end : x one u ();", "  instance one 2:53\n"},
        {"initial begin fork a; join wait fork; disable fork; case (x) 1: y = 1; endcase end one u "
         "();",
         "  instance one 2:84\n"},
        {"initial #5 clk = 0; one u ();", "  instance one 2:21\n"},
        {"always_comb x = y ? f(z) : g(z); one u ();", "  instance one 2:34\n"},
        {"function f(input a); begin f = a; end endfunction one u ();", "  instance one 2:51\n"},
        {"property p; @(posedge c) a |-> b; endproperty assert property (p) else $error; one u "
         "();",
         "  instance one 2:80\n"},
        {"specify (a => b) = (1, 2); $setup(a, b, 3); endspecify one u ();",
         "  instance one 2:56\n"},
        {"assign x = s ? a : f(b); one u ();", "  instance one 2:26\n"},
        {"import \"DPI-C\" function int f(int a); export \"DPI-C\" task t; one u ();",
         "  instance one 2:62\n"},
        {"clocking cb @(posedge c); input a; endclocking modport mp (import f, input a); one u ();",
         "  instance one 2:80\n"},
    });
}

TEST(VerilogScan, TakesNoOtherStatementForAnInstance) {
    ExpectNeedsV({
        {"and g (a, b); nand #1 (c, d); pullup (p); wire x; reg [1:0] y = 0; genvar i;", ""},
        {"t x; t y = 1; t z, w; p_t [1:0] v;", "  maybe class t 2:1\n  maybe class p_t 2:23\n"},
        {"assign a = b; defparam u.P = 1; parameter Q = f(1); a = f(b); x.y(z); $f(a);", ""},
        {"initial begin f(a); x = new (b); a.b(c); end", ""},
        {"if (x) ; else ; begin end", ""},
        {"let l(a) = a; nettype t n; alias a = b;", "  maybe class t 2:23\n"},
        {"randsequence (main) main : first second(5) ; endsequence", ""},
        {"covergroup cg @(posedge c); coverpoint x { bins a = {1}; } y : cross a, b; endgroup", ""},
        {"typedef enum logic [1:0] {A, B} e; typedef struct packed { logic a; } s; e x; s y;", ""},
    });
}

// They look like instances where none may stand, or without a name.
TEST(VerilogScan, TellsUncertainInstances) {
    ExpectNeedsV({
        {"udp (o, a); udp2 (strong0, weak1) (a); udp3 #1 (o, a), (p, b);",
         "  maybe instance udp 2:1\n  maybe instance udp3 2:40\n"},
        {"udp (strong0, weak1) u (o, a); udp2 (strong0, weak1) #(1, 2) u (o, a);",
         "  instance udp 2:1\n  instance udp2 2:32\n"},
        {"initial begin t x (a); end", "  maybe instance t 2:15\n"},
        {"task f; t x (a); endtask", "  maybe instance t 2:9\n"},
        {"`ifdef A\none u ();\n`else\ntwo u ();\n`endif\none v ();",
         "  maybe instance one 3:1\n  maybe instance two 5:1\n  instance one 7:1\n"},
    });
    EXPECT_EQ(ScanV("sub u ();"), "  maybe instance sub 1:1\n");
}

TEST(VerilogScan, FindsPackages) {
    ExpectFoundV({
        {"import a::*, b::c; export d::*; module m; endmodule",
         "  import a 1:8\n  import b 1:14\n  maybe scope d 1:27\nmodule m 1:40\n"},
        {"module m import a::*, b::x; import c::y; #(parameter P = d::z) (input e::t i); "
         "endmodule",
         "module m 1:8\n"
         "  import a 1:17\n"
         "  import b 1:23\n"
         "  import c 1:36\n"
         "  maybe scope d 1:58\n"
         "  maybe scope e 1:71\n"},
        {"module m; a::t x; assign y = b::c + d::e[f::g]; a::h z; endmodule",
         "module m 1:8\n  scope a 1:11\n  scope b 1:30\n  scope d 1:37\n  scope f 1:42\n"},
        {"module m; initial x = c#(d::t, 3)::get(); initial c2#(1)::run; endmodule",
         "module m 1:8\n  scope d 1:26\n  scope c 1:23\n  scope c2 1:51\n"},
        {"module m; typedef int t; initial begin t::x(); std::randomize(x); $unit::f(); "
         "process::self(); x.y::z; a::b::c(); end endmodule",
         "module m 1:8\n  scope a 1:104\n"},
        {"package p; import q::*; localparam x = r::y; endpackage module m; localparam x = r::y; "
         "endmodule",
         "package p 1:9\n  import q 1:19\n  maybe scope r 1:40\nmodule m 1:64\n  scope r 1:82\n"},
        {"function p::t f(q::u a); endfunction", "  scope p 1:10\n  scope q 1:17\n"},
    });
}

TEST(VerilogScan, FindsClasses) {
    ExpectFoundV({
        {"class a extends b; endclass class c #(type T = int) extends d #(e, T) implements f, "
         "g::h; endclass",
         "class a 1:7\n"
         "  maybe extends b 1:17\n"
         "class c 1:35\n"
         "  maybe extends d 1:61\n"
         "  maybe class e 1:65\n"
         "  maybe extends f 1:82\n"
         "  maybe scope g 1:85\n"},
        {"class a; endclass class b extends a; a x; endclass", "class a 1:7\nclass b 1:25\n"},
        {"package p; class a extends b; c x; rand d y; local static e z[$]; endclass endpackage",
         "package p 1:9\n"
         "  maybe extends b 1:28\n"
         "  maybe class c 1:31\n"
         "  maybe class d 1:41\n"
         "  maybe class e 1:59\n"},
        {"class a; virtual b_if v; virtual interface c_if w; virtual d_if #(1).mp x; "
         "function new(virtual e_if i, f g); endfunction extern virtual task t(h i); "
         "pure virtual function j k(); endclass class l; endclass",
         "class a 1:7\n"
         "  interface b_if 1:18\n"
         "  interface c_if 1:44\n"
         "  interface d_if 1:60\n"
         "  interface e_if 1:97\n"
         "  maybe class f 1:105\n"
         "  maybe class h 1:145\n"
         "  maybe class j 1:173\n"
         "class l 1:195\n"},
        {"module m; initial begin c x = new; d #(1) y; automatic e z; end endmodule",
         "module m 1:8\n  maybe class c 1:25\n  maybe class d 1:36\n  maybe class e 1:56\n"},
        {"class a; function void f(); endfunction : f endclass : a function void a::g(); "
         "endfunction class b; endclass",
         "class a 1:7\nclass b 1:98\n"},
    });
}

TEST(VerilogScan, FindsInterfacesOfPorts) {
    ExpectFoundV({
        {"module m (a_if.mp x, b_if y, input c_t z, interface w, interface.mp v, .d(e)); endmodule",
         "module m 1:8\n"
         "  interface a_if 1:11\n"
         "  maybe interface b_if 1:22\n"},
        {"module m #(parameter a_t P = 1) (b_if.mp x [1:0]); endmodule",
         "module m 1:8\n  maybe class a_t 1:22\n  interface b_if 1:34\n"},
    });
}

TEST(VerilogScan, FindsBindings) {
    ExpectFoundV({
        {"bind dut chk #(.A(1)) u (.*);", "  bind dut 1:6\n  instance chk 1:10\n"},
        {"bind top.a[1].b chk u (.*);", "  maybe bind top 1:6\n  instance chk 1:17\n"},
        {"bind dut : top.a, top.b[0] chk u (.*);", "  bind dut 1:6\n  instance chk 1:28\n"},
        {"bind $root.a.b chk u (.*);", "  instance chk 1:16\n"},
        {"bind `DUT chk u (.*);", "  instance chk 1:11\n"},
        {"module m; bind u chk v (.*); endmodule",
         "module m 1:8\n  maybe bind u 1:16\n  instance chk 1:18\n"},
        {"bind dut; module m; endmodule", "module m 1:18\n"},
    });
}

TEST(VerilogScan, FindsConfigurations) {
    ExpectFoundV({
        {"config c;\n design lib.top other;\n default liblist a b;\n instance top.u.v use x.y;\n"
         " instance top.w liblist d;\n cell e.f use g;\n cell h use k.l:config;\nendconfig",
         "configuration c 1:8\n"
         "  design lib.top 2:13\n"
         "  design other 2:17\n"
         "  cell x.y 4:25\n"
         "  cell g 6:15\n"
         "  cell k.l 7:15\n"},
    });
}

TEST(VerilogScan, GoesOnWithUnitsThatBothPartsOfAConditionBegin) {
    ExpectFoundV({
        {"`ifdef A\nmodule m (a, b);\n`else\nmodule m (a);\n`endif\none u ();\nendmodule\n"
         "module n; endmodule",
         "maybe module m 2:8\n  instance one 6:1\nmodule n 8:8\n"},
        {"`ifdef A\nmodule m;\n`else\nmodule n;\n`endif\none u ();\nendmodule\nmodule o; "
         "endmodule",
         "maybe module m 2:8\nmaybe module n 4:8\n  instance one 6:1\nmodule o 8:8\n"},
        {"`ifdef A\nmodule m; one u (); endmodule\n`else\nmodule m; two u (); endmodule\n`endif",
         "maybe module m 2:8\n  maybe instance one 2:11\n  maybe instance two 4:11\n"},
        {"module m; endmodule module m; endmodule", "module m 1:8\nmodule m 1:28\n"},
        {"module m;\n`ifdef A\ninitial begin\n`else\ninitial begin x = 1;\n`endif\nend one u (); "
         "endmodule",
         "module m 1:8\n  instance one 7:5\n"},
    });
}

TEST(VerilogScan, GoesOnBehindErrors) {
    ExpectFoundV({
        {"module m (a; one u (b; endmodule module n; endmodule", "module m 1:8\nmodule n 1:41\n"},
        {"module m; one u (a endmodule two v (); module n; endmodule",
         "  maybe instance two 1:30\nmodule m 1:8\n  instance one 1:11\nmodule n 1:47\n"},
        {"module m; function f; endmodule class c; endclass", "module m 1:8\nclass c 1:39\n"},
        {"module m; initial begin endmodule module n; one u (); endmodule",
         "module m 1:8\nmodule n 1:42\n  instance one 1:45\n"},
        {"endmodule endclass end ) ] } ; module m; endmodule", "module m 1:39\n"},
        {"module ; module 1; module m; endmodule", "module m 1:27\n"},
        {"module m; assign x = (a; always @(b) begin c = d; end one u (); endmodule",
         "module m 1:8\n  instance one 1:55\n"},
        {"module m", "module m 1:8\n"},
    });
}

TEST(VerilogScan, FindsWhatIncludedFilesHold) {
    const std::map<std::string, std::string> files = {
        {"inc/defs.vh", "`ifndef DEFS\n`define DEFS\n`define USE_A\nimport p::*;\n`endif\n"},
        {"src/sub.v", "module sub;\n leaf u ();\nendmodule\n"},
        {"src/body.svh", "class c extends q::d;\nendclass\n"},
    };
    EXPECT_EQ(ScanV("`include \"defs.vh\"\n`include \"sub.v\"\n`include \"none.v\"\n"
                    "package k;\n`include \"body.svh\"\nendpackage\nmodule m;\n"
                    "`ifdef USE_A\na u ();\n`else\nb u ();\n`endif\nendmodule\n`include <defs.vh>",
                    {}, files),
              "include defs.vh is inc/defs.vh 1:10\n"
              "include sub.v is src/sub.v 2:10\n"
              "include none.v 3:10\n"
              "include body.svh is src/body.svh 5:10\n"
              "include <defs.vh> is inc/defs.vh 14:10\n"
              "  import p #1:4:8\n"
              "module sub #2:1:8\n"
              "  instance leaf #2:2:2\n"
              "package k 4:9\n"
              "  maybe scope q #4:1:17\n"
              "module m 7:8\n"
              "  instance a 9:1\n");
}

TEST(VerilogScan, TakesTheDefinesOfTheBuild) {
    const char* text = "module m;\n`ifdef A\none u ();\n`else\ntwo u ();\n`endif\nendmodule";
    EXPECT_EQ(ScanV(text), "module m 1:8\n  maybe instance one 3:1\n  maybe instance two 5:1\n");
    EXPECT_EQ(ScanV(text, {{"A", ""}}), "module m 1:8\n  instance one 3:1\n");
    EXPECT_EQ(ScanV("module m; `B u (); endmodule", {{"B", "sub"}}),
              "module m 1:8\n  instance sub 1:11\n");
    EXPECT_EQ(TextOf(ScanVerilog("`include \"x.vh\"\n", "", {})), "include x.vh 1:10\n");
}
