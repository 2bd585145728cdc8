#include "tests/flows/scan/verilogrows.h"

TEST(VerilogInstances, FindsInstances) {
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

TEST(VerilogInstances, TakesNoOtherStatementForAnInstance) {
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
TEST(VerilogInstances, TellsUncertainInstances) {
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

TEST(VerilogInstances, FindsBindings) {
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
