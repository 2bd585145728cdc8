`timescale 1ns / 1ps

// Grants one request at a time, the next one behind the last first.
module round_robin #(
    parameter COUNT = 2
) (
    input  wire             clk,
    input  wire             rst,
    input  wire [COUNT-1:0] request,
    output reg  [COUNT-1:0] grant
);
    reg [COUNT-1:0] last;
    reg             found;
    integer         i;
    integer         at;
    integer         from;

    always @* begin
        grant = {COUNT{1'b0}};
        found = 1'b0;
        from  = 0;
        for (i = 0; i < COUNT; i = i + 1) if (last[i]) from = i + 1;
        for (i = 0; i < COUNT; i = i + 1) begin
            at = (from + i) % COUNT;
            if (!found && request[at]) begin
                grant[at] = 1'b1;
                found     = 1'b1;
            end
        end
    end

    always @(posedge clk)
        if (rst) last <= {COUNT{1'b0}};
        else if (found) last <= grant;
endmodule
