#include "tests/flows/scan/verilogrows.h"

TEST(VerilogUnitHeads, FindsUnits) {
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

TEST(VerilogUnitHeads, TakesNoOtherWordForAUnit) {
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

TEST(VerilogUnitHeads, FindsConfigurations) {
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

TEST(VerilogUnitHeads, GoesOnWithUnitsThatBothPartsOfAConditionBegin) {
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
