// A bench counts its failures in an integer "failures".
`ifndef BENCH_CHECKS_VH
`define BENCH_CHECKS_VH

`define CHECK(what, is, wanted) \
    if ((is) !== (wanted)) begin \
        failures = failures + 1; \
        $display("%0t: %s is %h instead of %h", $time, what, is, wanted); \
    end

`define REPORT(bench) \
    if (failures == 0) $display("%s passed", bench); \
    else begin \
        $display("%s failed: %0d checks", bench, failures); \
        $fatal(1); \
    end

`endif
