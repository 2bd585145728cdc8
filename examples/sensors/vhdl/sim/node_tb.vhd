library common;
context common.common_context;
library link;
context link.link_context;
library node;
use node.node_pkg.all;
use work.sim_pkg.all;
use std.env.finish;

-- Every sample that the node sends arrives as it is expected, and the alarm was heard.
entity node_tb is
    generic (COUNT : positive := 320);
end entity node_tb;

architecture sim of node_tb is
    package sample_queue is new common.queue_pkg
        generic map (element_t => sample_t, CAPACITY => 128);
    use sample_queue.all;

    signal clk    : std_logic := '0';
    signal rst    : std_logic := '1';
    signal valid  : std_logic;
    signal sample : sample_t;
    signal done   : boolean;

    signal line            : std_logic;
    signal alarm           : std_logic;
    signal lowest, highest : sample_t;

    signal byte_valid  : std_logic;
    signal byte        : byte_t;
    signal received    : std_logic;
    signal answer      : sample_t;
    signal error_count : natural;
    signal alarm_count : natural := 0;
begin
    clk <= not clk after CLOCK_PERIOD / 2;
    rst <= '0' after 4 * CLOCK_PERIOD;

    source : entity work.sample_source
        generic map (COUNT => COUNT, INTERVAL => 50)
        port map (clk, rst, valid, sample, done);

    dut : entity node.sensor_node
        port map (clk, rst, valid, sample, line, alarm, lowest, highest);

    receive : entity link.serial_rx
        generic map (BIT_CLOCKS => BIT_CLOCKS)
        port map (clk, rst, line, byte_valid, byte);

    frames : entity link.deframer
        port map (clk, rst, byte_valid, byte, received, answer, error_count);

    alarm_count <= alarm_count + 1 when rising_edge(alarm);

    check : process is
        constant WANTED_SAMPLES : sample_vector := expected(NODE_SETTINGS, COUNT);
        variable wanted         : queue_t;
        variable next_sample    : sample_t;
    begin
        clear(wanted);
        for i in WANTED_SAMPLES'range loop
            push(wanted, WANTED_SAMPLES(i));
        end loop;
        while wanted.count > 0 loop
            wait until rising_edge(clk) and received = '1';
            pop(wanted, next_sample);
            assert answer = next_sample
                report integer'image(to_integer(answer)) & " instead of " &
                       integer'image(to_integer(next_sample))
                severity failure;
        end loop;
        assert error_count = 0 report "frames were broken" severity failure;
        assert alarm_count > 0 and highest > ALARM_ON report "no alarm" severity failure;
        assert lowest < highest report "no peaks" severity failure;
        report "node_tb passed: " & integer'image(WANTED_SAMPLES'length) & " frames, " &
               integer'image(alarm_count) & " alarms" severity note;
        finish;
    end process;

    watchdog : process is
    begin
        wait until done;
        wait for 1000 * CLOCK_PERIOD;
        report "frames are missing" severity failure;
    end process;
end architecture sim;
