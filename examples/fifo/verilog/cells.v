// Library cells: only those that a design asks for are compiled in.
module edge_detect (
    input  wire clk,
    input  wire rst,
    input  wire level,
    output wire rise
);
    reg former;
    always @(posedge clk) former <= rst ? 1'b0 : level;
    assign rise = level & ~former;
endmodule

module byte_register (
    input  wire       clk,
    input  wire       enable,
    input  wire [7:0] d,
    output reg  [7:0] q
);
    always @(posedge clk) if (enable) q <= d;
endmodule
