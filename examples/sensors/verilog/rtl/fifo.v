`timescale 1ns / 1ps

// A queue of 2 ** DEPTH_BITS words. What is pushed into a full one is lost.
module fifo #(
    parameter WIDTH      = 8,
    parameter DEPTH_BITS = 3
) (
    input  wire                clk,
    input  wire                rst,
    input  wire                push,
    input  wire [WIDTH-1:0]    push_data,
    input  wire                pop,
    output wire [WIDTH-1:0]    pop_data,
    output wire                empty,
    output wire                full,
    output wire [DEPTH_BITS:0] level
);
    reg [WIDTH-1:0]    words [0:(1<<DEPTH_BITS)-1];
    reg [DEPTH_BITS:0] first;
    reg [DEPTH_BITS:0] next;

    assign level    = next - first;
    assign empty    = next == first;
    assign full     = level[DEPTH_BITS];
    assign pop_data = words[first[DEPTH_BITS-1:0]];

    always @(posedge clk)
        if (rst) begin
            first <= 0;
            next  <= 0;
        end else begin
            if (push && !full) begin
                words[next[DEPTH_BITS-1:0]] <= push_data;
                next <= next + 1'b1;
            end
            if (pop && !empty) first <= first + 1'b1;
        end
endmodule
