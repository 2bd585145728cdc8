`ifndef G
`define G
`ifdef A `define B
module m (a); `elsif C module m (b); `else module n; `endif
`ifdef SYNTHESIS s u (); `else t u (); `endif `undef A
`include `FILE
`include <whole>
endmodule
`endif
