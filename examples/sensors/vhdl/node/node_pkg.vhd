library common;
context common.common_context;
library dsp;
use dsp.dsp_pkg.all;

-- The settings of the node as it is built.
package node_pkg is
    constant NODE_SETTINGS : filter_settings_t :=
        (offset => -20, window_bits => 3, decimation => 4, low => -1500, high => 1500);

    constant BIT_CLOCKS : positive := 4;

    constant ALARM_ON  : integer := 900;
    constant ALARM_OFF : integer := 700;
end package node_pkg;
