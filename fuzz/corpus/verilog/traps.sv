// What looks like something else: module no_1; endmodule
/* module no_2; // */ `timescale 1 ns / 100 ps
`ifndef TRAPS_SV
/* A guard: */ `define TRAPS_SV // `endif
`define BODY(a, b = "(", c) module no_3 (a); \
    no_4 u (.a(a)); // no_5 v (a); \
`ifdef NO \
    endmodule /* not over \
    yet */ "also \
not" `" no_6 `\`" ``a``_b
`define LEAF leaf_cell // what it stands for
`define NOTHING

import first_pkg::*;

package \pkg+1 ;
    localparam string s = "module no_7; \" // \\";
    localparam string t = """ "module" no_8; \"""
        endpackage """;
    localparam string u = "continued \
        import no_9::*; // /*";
    typedef enum logic [1:0] {A = 2'b01, B = 2 'b1?, C = 'h F} letter;
endpackage : \pkg+1

(* top, keep = "*) module no_10;" *) module traps
    import second_pkg::item; // import no_11::*;
#(
    parameter P = \pkg+1 ::A, W = 8'hA_b / 'd 12 + 1.5e-3,
    parameter type T = int
) (
    input wire clk, \module ,
    bus_if.slave bus
);
    wire a = clk ? P : W, b = a ? (clk ? 1'b1 : 1'b0) : third_pkg::f(a);
    reg [7:0] mem [0:3] = '{default: '0, 2: '1};
    T value = T'(a);

    and (x, a, b), g1 (y, a, b);
    `LEAF #(.W(W)) u_leaf [1:0] (.clk, .a(mem[{a, b}]) `NOTHING);
    \esc(aped)  u_esc (.\end (a), .b (/* ) */ b) // ) ;
    );
    `UNKNOWN(u_x, "(", (a)) plain_cell `NAME (a);

    always @ (*) begin : named
        if (a) $display("%d // end", a); else b_t(a);
        case (a) 1'b0: c = a; default: begin end endcase
        `BODY(no_12, arg_class u (a), 1)
    end : named
    always @(* ) x <= #1 y;
    always @*
        x = y ? 1 : 2;

`ifdef UNKNOWN_1
    fork_cell u_f (
`elsif UNKNOWN_2
    fork_cell_2 u_f (
`else
    fork_cell_3 u_f (
`endif
        .a(a));

`ifdef TRAPS_SV
    taken_cell u_t (a);
`else
    no_14 u (a); "unbalanced
    `ifdef NO `else `endif /* `endif */ // `endif
`endif

`protected
    no_15 u (); " /* ( `endif
    x`endprotected
`endprotected
    generate for (genvar i = 0; i < 2; i++) begin : loop after_cell u (.a(a[i])); end
    endgenerate
    initial begin fork join_none wait fork; disable fork; end
    `pragma protect begin_protected
    no_16 u ( "
    `pragma protect end_protected
    specify (a *> b) = (1:2:3, 4); endspecify
    last_cell u_last (a);
endmodule : traps

primitive prim (output reg q, input d, clk);
    table
        // d clk q
        0 (01) : ? : 0; x r f (x?) : b : -;
    endtable
endprimitive

extern module no_17 (input a);
class c #(type T = logic [1:0]) extends base_pkg::object #(T); extern function new(handle h);
    virtual vif_if.mp v; constraint k { a inside {[0:$]}; solve a before b; }
    pure virtual task t(); static function c get(); return c#(T)::other_c#(int)::me; endfunction
endclass
`endif
`resetall module \trap-2 ; endmodule // no line end