library ieee;
use ieee.std_logic_1164.all;
use ieee.numeric_std.all;
library bus_lib;
use bus_lib.stream_pkg.all;
library util;
use util.util_pkg.all;

entity fifo_tb is
end entity fifo_tb;

architecture test of fifo_tb is
  signal clk    : std_logic := '0';
  signal rst    : std_logic := '1';
  signal input  : stream_t  := (data => (others => '0'), valid => '0');
  signal take   : std_logic := '0';
  signal full   : std_logic;
  signal output : stream_t;
  signal done   : boolean   := false;
begin
  clk <= not clk after 5 ns when not done else '0';

  dut : entity work.fifo
    port map (clk => clk, rst => rst, input => input, take => take, full => full,
              output => output);

  process
  begin
    assert bits_for(stream_depth) = 3 report "bits_for is wrong" severity failure;
    wait until rising_edge(clk);
    rst <= '0';
    for i in 0 to stream_depth - 1 loop
      input <= (data => std_logic_vector(to_unsigned(i * 3, 8)), valid => '1');
      wait until rising_edge(clk);
    end loop;
    input.valid <= '0';
    wait until falling_edge(clk);
    assert full = '1' report "the FIFO should be full" severity failure;
    take <= '1';
    for i in 0 to stream_depth - 1 loop
      assert output.valid = '1' and unsigned(output.data) = i * 3
        report "wrong byte" severity failure;
      wait until falling_edge(clk);
    end loop;
    assert output.valid = '0' report "the FIFO should be empty" severity failure;
    report "fifo_tb passed";
    done <= true;
    wait;
  end process;
end architecture test;
