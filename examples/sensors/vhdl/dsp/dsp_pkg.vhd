library common;
context common.common_context;

-- How a chain of filters is set, and the parts that a configuration chooses.
package dsp_pkg is
    type filter_settings_t is record
        offset      : integer;   -- added to each sample
        window_bits : natural;   -- the average is over 2 ** window_bits samples
        decimation  : positive;  -- one of so many averages is passed on
        low, high   : integer;   -- where averages are clipped
    end record;

    constant DEFAULT_SETTINGS : filter_settings_t :=
        (offset => 0, window_bits => 2, decimation => 2, low => SAMPLE_LOW, high => SAMPLE_HIGH);

    component moving_average is
        generic (WINDOW_BITS : natural);
        port (
            clk        : in  std_logic;
            rst        : in  std_logic;
            in_valid   : in  std_logic;
            in_sample  : in  sample_t;
            out_valid  : out std_logic;
            out_sample : out sample_t
        );
    end component;
end package dsp_pkg;
