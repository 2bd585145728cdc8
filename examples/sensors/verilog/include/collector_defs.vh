// Widths that all parts of the collector share. The build may define CHANNELS and FIFO_BITS.
`ifndef COLLECTOR_DEFS_VH
`define COLLECTOR_DEFS_VH

`ifndef CHANNELS
`define CHANNELS 2
`endif

`ifndef FIFO_BITS
`define FIFO_BITS 3
`endif

`define SAMPLE_BITS 12
`define CHANNEL_BITS 4
`define STAMP_BITS 16
`define RECORD_BITS (`CHANNEL_BITS + `STAMP_BITS + `SAMPLE_BITS)

`endif
