-- Library bus_lib: the record that a stream carries.
library ieee;
use ieee.std_logic_1164.all;
library util;
use util.util_pkg.all;

package stream_pkg is
  constant stream_depth : positive := 8;
  constant address_bits : natural  := bits_for(stream_depth);

  subtype byte_t is std_logic_vector(7 downto 0);

  type stream_t is record
    data  : byte_t;
    valid : std_logic;
  end record stream_t;
end package stream_pkg;
