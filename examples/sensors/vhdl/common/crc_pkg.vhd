library ieee;
use ieee.std_logic_1164.all;
use work.types_pkg.all;

-- The cyclic redundancy check of frames: 8 bits, polynomial x^8 + x^2 + x + 1.
package crc_pkg is
    constant CRC_POLYNOMIAL : byte_t := x"07";
    constant CRC_START      : byte_t := x"00";

    function next_crc(crc, data : byte_t) return byte_t;
    function crc_of(bytes : byte_vector) return byte_t;
end package crc_pkg;
