`timescale 1ns / 1ps
`include "bench_checks.vh"

// The queue gives what was put in, and says when it is full and empty.
module fifo_tb;
    wire        clk;
    wire        rst;
    reg         push = 1'b0;
    reg  [15:0] push_data = 16'h0000;
    reg         pop = 1'b0;
    wire [15:0] pop_data;
    wire        empty;
    wire        full;
    wire [ 2:0] level;
    integer     failures = 0;
    integer     i;

    bench_clock clocks (
        .clk(clk),
        .rst(rst)
    );

    fifo #(
        .WIDTH     (16),
        .DEPTH_BITS(2)
    ) dut (
        .clk      (clk),
        .rst      (rst),
        .push     (push),
        .push_data(push_data),
        .pop      (pop),
        .pop_data (pop_data),
        .empty    (empty),
        .full     (full),
        .level    (level)
    );

    task step;
        begin
            @(posedge clk);
            #1;
        end
    endtask

    initial begin
        @(negedge rst);
        `CHECK("empty", empty, 1'b1)
        for (i = 0; i < 6; i = i + 1) begin
            push      = 1'b1;
            push_data = 16'hC000 + i[15:0];
            step;
        end
        push = 1'b0;
        `CHECK("full", full, 1'b1)
        `CHECK("level", level, 3'd4)
        for (i = 0; i < 4; i = i + 1) begin
            `CHECK("pop_data", pop_data, 16'hC000 + i[15:0])
            pop = 1'b1;
            step;
        end
        pop = 1'b0;
        `CHECK("empty", empty, 1'b1)
        `REPORT("fifo_tb")
        $finish;
    end
endmodule
