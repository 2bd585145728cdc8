`include "bus_defs.vh"

// Counts the bytes of a stream and remembers the last one.
module bus_monitor (
    input  wire                  clk,
    input  wire                  rst,
    input  wire                  valid,
    input  wire [`BUS_WIDTH-1:0] data,
    output wire [`BUS_WIDTH-1:0] last,
    output wire [15:0]           count
);
    wire started;

    edge_detect detect (.clk(clk), .rst(rst), .level(valid), .rise(started));
    byte_register keep (.clk(clk), .enable(valid), .d(data), .q(last));
    pulse_counter counter (.clk(clk), .rst(rst), .pulse(started), .count(count));
endmodule
