library common;
context common.common_context;
library dsp;
use dsp.dsp_pkg.all;
use work.sim_pkg.all;
use std.env.finish;

-- Both forms of the filter give what is expected, at the same time.
entity filter_tb is
    generic (COUNT : positive := 400);
end entity filter_tb;

architecture sim of filter_tb is
    constant SETTINGS : filter_settings_t :=
        (offset => 35, window_bits => 2, decimation => 3, low => -1000, high => 1200);

    signal clk    : std_logic := '0';
    signal rst    : std_logic := '1';
    signal valid  : std_logic;
    signal sample : sample_t;
    signal done   : boolean;

    signal first_valid, second_valid   : std_logic;
    signal first_sample, second_sample : sample_t;
begin
    clk <= not clk after CLOCK_PERIOD / 2;
    rst <= '0' after 4 * CLOCK_PERIOD;

    source : entity work.sample_source
        generic map (COUNT => COUNT, INTERVAL => 2)
        port map (clk, rst, valid, sample, done);

    first : configuration dsp.filter_accumulating
        generic map (SETTINGS => SETTINGS)
        port map (clk, rst, valid, sample, first_valid, first_sample);

    second : configuration dsp.filter_summing
        generic map (SETTINGS => SETTINGS)
        port map (clk, rst, valid, sample, second_valid, second_sample);

    check : process is
        constant WANTED : sample_vector := expected(SETTINGS, COUNT);
    begin
        for i in WANTED'range loop
            wait until rising_edge(clk) and first_valid = '1';
            assert second_valid = '1'
                report "the forms differ in time at " & integer'image(i) severity failure;
            assert first_sample = WANTED(i) and second_sample = WANTED(i)
                report "sample " & integer'image(i) & ": " &
                       integer'image(to_integer(first_sample)) & " and " &
                       integer'image(to_integer(second_sample)) & " instead of " &
                       integer'image(to_integer(WANTED(i)))
                severity failure;
        end loop;
        report "filter_tb passed: " & integer'image(WANTED'length) & " samples" severity note;
        finish;
    end process;

    watchdog : process is
    begin
        wait until done;
        wait for 100 * CLOCK_PERIOD;
        report "samples are missing" severity failure;
    end process;
end architecture sim;
