#include "tests/flows/scan/verilogrows.h"

TEST(VerilogStatements, FindsPackages) {
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

TEST(VerilogStatements, FindsClasses) {
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

TEST(VerilogStatements, FindsInterfacesOfPorts) {
    ExpectFoundV({
        {"module m (a_if.mp x, b_if y, input c_t z, interface w, interface.mp v, .d(e)); endmodule",
         "module m 1:8\n"
         "  interface a_if 1:11\n"
         "  maybe interface b_if 1:22\n"},
        {"module m #(parameter a_t P = 1) (b_if.mp x [1:0]); endmodule",
         "module m 1:8\n  maybe class a_t 1:22\n  interface b_if 1:34\n"},
    });
}
