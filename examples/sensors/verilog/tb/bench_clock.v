`timescale 1ns / 1ps

// The clock and the reset of a bench, and an end to one that hangs.
module bench_clock #(
    parameter LAST = 10000
) (
    output reg clk,
    output reg rst
);
    initial begin
        clk = 1'b0;
        rst = 1'b1;
        repeat (4) @(posedge clk);
        #1 rst = 1'b0;
        repeat (LAST) @(posedge clk);
        $display("the bench hangs");
        $fatal(1);
    end

    always #5 clk = ~clk;
endmodule
