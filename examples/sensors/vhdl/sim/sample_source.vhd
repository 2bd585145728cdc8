library common;
context common.common_context;
use work.sim_pkg.all;

-- A sensor that gives COUNT samples of the stimulus, one every INTERVAL clocks, and then says so.
entity sample_source is
    generic (COUNT, INTERVAL : positive);
    port (
        clk        : in  std_logic;
        rst        : in  std_logic;
        out_valid  : out std_logic;
        out_sample : out sample_t;
        done       : out boolean
    );
end entity sample_source;

architecture sim of sample_source is
begin
    process is
    begin
        done       <= false;
        out_valid  <= '0';
        out_sample <= (others => '0');
        wait until rising_edge(clk) and rst = '0';
        for i in 0 to COUNT - 1 loop
            out_valid  <= '1';
            out_sample <= stimulus(i);
            wait until rising_edge(clk);
            out_valid <= '0';
            for clock in 2 to INTERVAL loop
                wait until rising_edge(clk);
            end loop;
        end loop;
        done <= true;
        wait;
    end process;
end architecture sim;
