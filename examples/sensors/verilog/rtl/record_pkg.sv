`timescale 1ns / 1ps
`include "collector_defs.vh"

// What is stored of a sample.
package record_pkg;
    typedef struct packed {
        logic [`CHANNEL_BITS-1:0] channel;
        logic [`STAMP_BITS-1:0]   stamp;
        logic [`SAMPLE_BITS-1:0]  sample;
    } record_t;

    function automatic record_t make_record(input [`CHANNEL_BITS-1:0] channel,
                                            input [`STAMP_BITS-1:0] stamp,
                                            input [`SAMPLE_BITS-1:0] sample);
        make_record.channel = channel;
        make_record.stamp   = stamp;
        make_record.sample  = sample;
    endfunction
endpackage
