library common;
context common.common_context;

-- The average of the last 2 ** WINDOW_BITS samples; those before the first count as zero.
entity moving_average is
    generic (WINDOW_BITS : natural);
    port (
        clk        : in  std_logic;
        rst        : in  std_logic;
        in_valid   : in  std_logic;
        in_sample  : in  sample_t;
        out_valid  : out std_logic;
        out_sample : out sample_t
    );
end entity moving_average;
