`timescale 1ns / 1ps

// One clock of output for each rising edge of the input.
module edge_detect (
    input  wire clk,
    input  wire in,
    output wire rose
);
    reg former = 1'b0;

    always @(posedge clk) former <= in;

    assign rose = in & ~former;
endmodule
