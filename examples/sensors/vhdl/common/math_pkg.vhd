use work.types_pkg.all;

-- Arithmetic on samples.
package math_pkg is
    -- The bits that a counter of that many states needs.
    function bits_for(states : positive) return natural;

    function clip(value, low, high : integer) return integer;

    -- The nearest sample.
    function to_sample(value : integer) return sample_t;

    -- Rounded towards minus infinity, as a shift of bits does.
    function floor_divide(value : integer; divisor : positive) return integer;
end package math_pkg;
