library common;
context common.common_context;
library dsp;
use dsp.dsp_pkg.all;

-- What the benches put in, and what has to come out.
package sim_pkg is
    constant CLOCK_PERIOD : time := 10 ns;

    -- A slow triangle with a spike now and then.
    function stimulus(index : natural) return sample_t;

    -- What a chain of these settings makes of the first `count` samples of the stimulus.
    function expected(settings : filter_settings_t; count : natural) return sample_vector;
end package sim_pkg;
