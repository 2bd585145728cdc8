library dsp;
library link;
use work.node_pkg.all;

architecture rtl of sensor_node is
    signal valid      : std_logic;
    signal sample     : sample_t;
    signal byte_valid : std_logic;
    signal byte_ready : std_logic;
    signal byte       : byte_t;
    signal dropped    : natural;
begin
    filter : configuration dsp.filter_accumulating
        generic map (SETTINGS => NODE_SETTINGS)
        port map (clk, rst, in_valid, in_sample, valid, sample);

    watch : entity work.alarm
        generic map (ON_LEVEL => ALARM_ON, OFF_LEVEL => ALARM_OFF)
        port map (clk, rst, valid, sample, alarm);

    peaks : entity dsp.peak_hold
        port map (clk, rst, valid, sample, lowest, highest);

    frames : entity link.framer
        port map (clk, rst, valid, sample, byte_valid, byte, byte_ready, dropped);

    send : entity link.serial_tx
        generic map (BIT_CLOCKS => BIT_CLOCKS)
        port map (clk, rst, byte_valid, byte, byte_ready, line);

    assert dropped = 0 or rst = '1' report "samples come faster than frames leave" severity error;
end architecture rtl;
