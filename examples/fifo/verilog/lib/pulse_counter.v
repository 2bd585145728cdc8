module pulse_counter (
    input  wire        clk,
    input  wire        rst,
    input  wire        pulse,
    output reg  [15:0] count
);
    always @(posedge clk) count <= rst ? 16'd0 : count + {15'd0, pulse};
endmodule
