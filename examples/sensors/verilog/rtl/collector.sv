`timescale 1ns / 1ps
`include "collector_defs.vh"

// Brings the samples of all channels into one queue, each with its channel, its time and a parity.
module collector
    import record_pkg::*;
(
    input  wire                              clk,
    input  wire                              rst,
    input  wire [`CHANNELS-1:0]              strobe,
    input  wire [`CHANNELS*`SAMPLE_BITS-1:0] in,
    input  wire                              pop,
    output wire [`RECORD_BITS:0]             word,
    output wire                              empty
);
    wire [`STAMP_BITS-1:0]              now;
    wire [`CHANNELS-1:0]                waiting;
    wire [`CHANNELS-1:0]                grant;
    wire [`CHANNELS*`SAMPLE_BITS-1:0]   samples;
    wire [`CHANNELS*`STAMP_BITS-1:0]    stamps;
    wire                                full;
    wire                                parity;
    wire [`FIFO_BITS:0]                 unused_level;
    record_t                            chosen;

    timestamp clock (
        .clk(clk),
        .rst(rst),
        .now(now)
    );

    generate
        genvar g;
        for (g = 0; g < `CHANNELS; g = g + 1) begin : channels
            channel port (
                .clk    (clk),
                .rst    (rst),
                .strobe (strobe[g]),
                .in     (in[g*`SAMPLE_BITS +: `SAMPLE_BITS]),
                .now    (now),
                .waiting(waiting[g]),
                .sample (samples[g*`SAMPLE_BITS +: `SAMPLE_BITS]),
                .stamp  (stamps[g*`STAMP_BITS +: `STAMP_BITS]),
                .take   (grant[g])
            );
        end
    endgenerate

    round_robin #(.COUNT(`CHANNELS)) arbiter (
        .clk    (clk),
        .rst    (rst),
        .request(waiting & {`CHANNELS{~full}}),
        .grant  (grant)
    );

    integer i;

    always @* begin
        chosen = '0;
        for (i = 0; i < `CHANNELS; i = i + 1)
            if (grant[i])
                chosen = make_record(i[`CHANNEL_BITS-1:0], stamps[i*`STAMP_BITS +: `STAMP_BITS],
                                     samples[i*`SAMPLE_BITS +: `SAMPLE_BITS]);
    end

    parity_tree #(.BITS(`RECORD_BITS)) protect (
        .data  (chosen),
        .parity(parity)
    );

    fifo #(
        .WIDTH     (`RECORD_BITS + 1),
        .DEPTH_BITS(`FIFO_BITS)
    ) queue (
        .clk      (clk),
        .rst      (rst),
        .push     (|grant),
        .push_data({parity, chosen}),
        .pop      (pop),
        .pop_data (word),
        .empty    (empty),
        .full     (full),
        .level    (unused_level)
    );
endmodule
