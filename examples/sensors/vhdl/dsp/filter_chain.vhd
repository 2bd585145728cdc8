library common;
context common.common_context;
use work.dsp_pkg.all;

-- Calibration, average, limits and decimation, in this order.
entity filter_chain is
    generic (SETTINGS : filter_settings_t := DEFAULT_SETTINGS);
    port (
        clk        : in  std_logic;
        rst        : in  std_logic;
        in_valid   : in  std_logic;
        in_sample  : in  sample_t;
        out_valid  : out std_logic;
        out_sample : out sample_t
    );
end entity filter_chain;

architecture rtl of filter_chain is
    -- What leaves each of the parts.
    signal valid   : std_logic_vector(1 to 3);
    signal samples : sample_vector(1 to 3);
begin
    calibrate : entity work.calibration
        generic map (OFFSET => SETTINGS.offset)
        port map (clk, rst, in_valid, in_sample, valid(1), samples(1));

    -- A configuration chooses the architecture.
    average : moving_average
        generic map (WINDOW_BITS => SETTINGS.window_bits)
        port map (clk, rst, valid(1), samples(1), valid(2), samples(2));

    limit : entity work.limiter
        generic map (LOW => SETTINGS.low, HIGH => SETTINGS.high)
        port map (clk, rst, valid(2), samples(2), valid(3), samples(3));

    decimate : entity work.decimator
        generic map (FACTOR => SETTINGS.decimation)
        port map (clk, rst, valid(3), samples(3), out_valid, out_sample);
end architecture rtl;
