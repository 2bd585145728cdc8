`timescale 1ns / 1ps
`include "collector_defs.vh"

// Holds a sample, with the time of its strobe, until it is taken. One that comes meanwhile is lost.
module channel (
    input  wire                    clk,
    input  wire                    rst,
    input  wire                    strobe,
    input  wire [`SAMPLE_BITS-1:0] in,
    input  wire [ `STAMP_BITS-1:0] now,
    output reg                     waiting,
    output reg  [`SAMPLE_BITS-1:0] sample,
    output reg  [ `STAMP_BITS-1:0] stamp,
    input  wire                    take
);
    wire rose;

    edge_detect edges (
        .clk (clk),
        .in  (strobe),
        .rose(rose)
    );

    always @(posedge clk)
        if (rst) waiting <= 1'b0;
        else if (rose && !waiting) begin
            waiting <= 1'b1;
            sample  <= in;
            stamp   <= now;
        end else if (take) waiting <= 1'b0;
endmodule
