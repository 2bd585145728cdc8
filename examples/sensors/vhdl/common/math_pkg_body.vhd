library ieee;
use ieee.numeric_std.all;

package body math_pkg is
    function bits_for(states : positive) return natural is
        variable bits : natural := 0;
    begin
        while 2 ** bits < states loop
            bits := bits + 1;
        end loop;
        return bits;
    end function;

    function clip(value, low, high : integer) return integer is
    begin
        return minimum(maximum(value, low), high);
    end function;

    function to_sample(value : integer) return sample_t is
    begin
        return to_signed(clip(value, SAMPLE_LOW, SAMPLE_HIGH), SAMPLE_BITS);
    end function;

    function floor_divide(value : integer; divisor : positive) return integer is
    begin
        return (value - value mod divisor) / divisor;
    end function;
end package body math_pkg;
