`timescale 1ns / 1ps

// The pads of the board: their delays are minimal, typical or maximal.
// verilator lint_off MINTYPMAXDLY
module input_pad (
    input  wire pad,
    output wire core
);
    assign #(1:2:3) core = pad;
endmodule

module output_pad (
    input  wire core,
    output wire pad
);
    assign #(2:3:5) pad = core;
endmodule
