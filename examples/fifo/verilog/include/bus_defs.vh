`ifndef BUS_DEFS_VH
`define BUS_DEFS_VH
`define BUS_WIDTH 8
`endif
