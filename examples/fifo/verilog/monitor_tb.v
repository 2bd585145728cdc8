`include "bus_defs.vh"

module monitor_tb;
    reg                   clk = 1'b0;
    reg                   rst = 1'b1;
    reg                   valid = 1'b0;
    reg  [`BUS_WIDTH-1:0] data = {`BUS_WIDTH{1'b0}};
    wire [`BUS_WIDTH-1:0] last;
    wire [15:0]           count;

    bus_monitor dut (.clk(clk), .rst(rst), .valid(valid), .data(data), .last(last), .count(count));

    always #5 clk = ~clk;

    initial begin
        repeat (2) @(negedge clk);
        rst = 1'b0;
        repeat (3) begin
            valid = 1'b1;
            data = data + 8'd7;
            @(negedge clk);
            valid = 1'b0;
            @(negedge clk);
        end
        repeat (2) @(negedge clk);
        if (last !== 8'd21 || count !== 16'd3) begin
            $display("monitor_tb failed: last %0d count %0d", last, count);
        end else begin
            $display("monitor_tb passed");
        end
        $finish;
    end
endmodule
