library ieee;
use ieee.std_logic_1164.all;
use ieee.numeric_std.all;
use work.math_pkg.all;

-- A tick every PERIOD clocks, the first of them PERIOD clocks after a restart.
entity tick_divider is
    generic (PERIOD : positive);
    port (
        clk     : in  std_logic;
        restart : in  std_logic;
        tick    : out std_logic
    );
end entity tick_divider;

architecture rtl of tick_divider is
    signal count : unsigned(bits_for(PERIOD) downto 0) := (others => '0');
begin
    process (clk) is
    begin
        if rising_edge(clk) then
            tick <= '0';
            if restart = '1' then
                count <= (others => '0');
            elsif count = PERIOD - 1 then
                count <= (others => '0');
                tick  <= '1';
            else
                count <= count + 1;
            end if;
        end if;
    end process;
end architecture rtl;
