`timescale 1ns / 1ps
`include "collector_defs.vh"

// The clocks since the reset; it wraps.
module timestamp (
    input  wire                   clk,
    input  wire                   rst,
    output wire [`STAMP_BITS-1:0] now
);
    wire [`STAMP_BITS-1:0] unused_gray;

    gray_counter #(.BITS(`STAMP_BITS)) counter (
        .clk   (clk),
        .rst   (rst),
        .enable(1'b1),
        .value (now),
        .gray  (unused_gray)
    );
endmodule
