library ieee;
use ieee.std_logic_1164.all;
use ieee.numeric_std.all;
library bus_lib;
use bus_lib.stream_pkg.all;

entity fifo is
  port (
    clk   : in  std_logic;
    rst   : in  std_logic;
    input : in  stream_t;
    take  : in  std_logic;
    full  : out std_logic;
    output : out stream_t);
end entity fifo;

architecture rtl of fifo is
  type memory_t is array (0 to stream_depth - 1) of byte_t;
  signal memory   : memory_t := (others => (others => '0'));
  signal write_at : unsigned(address_bits downto 0) := (others => '0');
  signal read_at  : unsigned(address_bits downto 0) := (others => '0');
  signal used     : unsigned(address_bits downto 0);
begin
  used         <= write_at - read_at;
  full         <= '1' when used = stream_depth else '0';
  output.valid <= '1' when used /= 0 else '0';
  output.data  <= memory(to_integer(read_at(address_bits - 1 downto 0)));

  process (clk)
  begin
    if rising_edge(clk) then
      if rst = '1' then
        write_at <= (others => '0');
        read_at  <= (others => '0');
      else
        if input.valid = '1' and used /= stream_depth then
          memory(to_integer(write_at(address_bits - 1 downto 0))) <= input.data;
          write_at <= write_at + 1;
        end if;
        if take = '1' and used /= 0 then
          read_at <= read_at + 1;
        end if;
      end if;
    end if;
  end process;
end architecture rtl;
