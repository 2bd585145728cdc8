library ieee;
use ieee.std_logic_1164.all;

-- Brings a signal of another clock into this one.
entity synchronizer is
    generic (
        STAGES : positive  := 2;
        START  : std_logic := '0'
    );
    port (
        clk    : in  std_logic;
        input  : in  std_logic;
        output : out std_logic
    );
end entity synchronizer;

architecture rtl of synchronizer is
    signal stage : std_logic_vector(1 to STAGES) := (others => START);
begin
    process (clk) is
    begin
        if rising_edge(clk) then
            stage <= input & stage(1 to STAGES - 1);
        end if;
    end process;

    output <= stage(STAGES);
end architecture rtl;
