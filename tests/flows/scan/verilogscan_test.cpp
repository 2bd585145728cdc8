#include "tests/flows/scan/verilogrows.h"

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
