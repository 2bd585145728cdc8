library common;
context common.common_context;

-- Samples in, frames out on a serial line, and an alarm.
entity sensor_node is
    port (
        clk       : in  std_logic;
        rst       : in  std_logic;
        in_valid  : in  std_logic;
        in_sample : in  sample_t;
        line      : out std_logic;
        alarm     : out std_logic;
        lowest    : out sample_t;
        highest   : out sample_t
    );
end entity sensor_node;
