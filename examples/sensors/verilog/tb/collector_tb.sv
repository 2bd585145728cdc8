`timescale 1ns / 1ps
`include "collector_defs.vh"
`include "bench_checks.vh"

// Samples of all channels, some of them at once, arrive once each, with the right channel and parity.
module collector_tb;
    import record_pkg::*;

    localparam ROUNDS = 8;

    wire                              clk;
    wire                              rst;
    reg  [`CHANNELS-1:0]              pads = {`CHANNELS{1'b0}};
    wire [`CHANNELS-1:0]              strobe;
    reg  [`CHANNELS*`SAMPLE_BITS-1:0] in = {`CHANNELS*`SAMPLE_BITS{1'b0}};
    wire                              pop;
    wire [`RECORD_BITS:0]             word;
    wire                              empty;
    wire                              ready;
    record_t                          stored;
    integer                           failures = 0;
    integer                           received = 0;
    integer                           round;
    integer                           i;
    reg  [`SAMPLE_BITS-1:0]           wanted [0:(1<<`CHANNEL_BITS)-1];
    time                              started;

    bench_clock clocks (
        .clk(clk),
        .rst(rst)
    );

    generate
        genvar g;
        for (g = 0; g < `CHANNELS; g = g + 1) begin : board
            input_pad pad (
                .pad (pads[g]),
                .core(strobe[g])
            );
        end
    endgenerate

    output_pad ready_pad (
        .core(~empty),
        .pad (ready)
    );

    collector dut (
        .clk   (clk),
        .rst   (rst),
        .strobe(strobe),
        .in    (in),
        .pop   (pop),
        .word  (word),
        .empty (empty)
    );

    assign pop    = ~empty;
    assign stored = word[`RECORD_BITS-1:0];

    always @(posedge clk)
        if (!rst && pop) begin
            received = received + 1;
            `CHECK("parity", ^word, 1'b0)
            `CHECK("sample", stored.sample, wanted[stored.channel])
        end

    initial begin
        @(negedge rst);
        for (round = 0; round < ROUNDS; round = round + 1) begin
            @(negedge clk);
            for (i = 0; i < `CHANNELS; i = i + 1) begin
                wanted[i] = 12'h100 * i[11:0] + round[11:0];
                in[i*`SAMPLE_BITS +: `SAMPLE_BITS] = wanted[i];
            end
            pads = {`CHANNELS{1'b1}};
            repeat (2 * `CHANNELS) @(negedge clk);
            pads = {`CHANNELS{1'b0}};
            repeat (3) @(negedge clk);
        end
        `CHECK("received", received, ROUNDS * `CHANNELS)
        started = $time;
        pads[0] = 1'b1;
        @(posedge strobe[0]);
        $display("%0d channels, pads of %0d ns", `CHANNELS, $time - started);
        `REPORT("collector_tb")
        $finish;
    end
endmodule
