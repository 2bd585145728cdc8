library ieee;
use ieee.std_logic_1164.all;

package body crc_pkg is
    function next_crc(crc, data : byte_t) return byte_t is
        variable value : byte_t := crc xor data;
    begin
        for i in byte_t'range loop
            if value(7) = '1' then
                value := (value(6 downto 0) & '0') xor CRC_POLYNOMIAL;
            else
                value := value(6 downto 0) & '0';
            end if;
        end loop;
        return value;
    end function;

    function crc_of(bytes : byte_vector) return byte_t is
        variable crc : byte_t := CRC_START;
    begin
        for i in bytes'range loop
            crc := next_crc(crc, bytes(i));
        end loop;
        return crc;
    end function;
end package body crc_pkg;
