`timescale 1ns / 1ps

// Even parity.
module parity_tree #(
    parameter BITS = 8
) (
    input  wire [BITS-1:0] data,
    output wire            parity
);
    assign parity = ^data;
endmodule
