library ieee;
use ieee.std_logic_1164.all;
use ieee.numeric_std.all;

-- The types that all parts of the node share.
package types_pkg is
    constant SAMPLE_BITS : positive := 12;

    subtype sample_t is signed(SAMPLE_BITS - 1 downto 0);
    type sample_vector is array (natural range <>) of sample_t;

    subtype byte_t is std_logic_vector(7 downto 0);
    type byte_vector is array (natural range <>) of byte_t;

    constant SAMPLE_LOW  : integer := -2 ** (SAMPLE_BITS - 1);
    constant SAMPLE_HIGH : integer := 2 ** (SAMPLE_BITS - 1) - 1;
end package types_pkg;
