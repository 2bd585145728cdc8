`timescale 1ns / 1ps

// A counter of which one bit changes at a time, and its plain value.
module gray_counter #(
    parameter BITS = 4
) (
    input  wire            clk,
    input  wire            rst,
    input  wire            enable,
    output reg  [BITS-1:0] value,
    output wire [BITS-1:0] gray
);
    always @(posedge clk)
        if (rst) value <= {BITS{1'b0}};
        else if (enable) value <= value + 1'b1;

    assign gray = value ^ (value >> 1);
endmodule
