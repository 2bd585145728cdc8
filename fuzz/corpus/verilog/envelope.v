`define F(a, b) a \
  b // \
 "c
`F(x, (y)) `define L \esc 
module `L ; `protected
x
`endprotected
endmodule
//pragma protect begin_protected
ÿ
//pragma protect end_protected
