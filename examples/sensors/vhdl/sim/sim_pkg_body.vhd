package body sim_pkg is
    function stimulus(index : natural) return sample_t is
        constant phase : natural := index mod 128;
    begin
        if index mod 29 = 11 then
            return to_sample(SAMPLE_HIGH);
        elsif phase < 64 then
            return to_sample(phase * 60 - 1800);
        end if;
        return to_sample((127 - phase) * 60 - 1800);
    end function;

    function average_at(settings : filter_settings_t; index : natural) return integer is
        constant length : positive := 2 ** settings.window_bits;
        variable sum    : integer  := 0;
    begin
        for back in 0 to minimum(length - 1, index) loop
            sum := sum + to_integer(to_sample(
                to_integer(stimulus(index - back)) + settings.offset));
        end loop;
        return floor_divide(sum, length);
    end function;

    function expected(settings : filter_settings_t; count : natural) return sample_vector is
        variable samples : sample_vector(0 to count / settings.decimation - 1);
    begin
        for i in samples'range loop
            samples(i) := to_sample(clip(
                average_at(settings, (i + 1) * settings.decimation - 1),
                settings.low, settings.high));
        end loop;
        return samples;
    end function;
end package body sim_pkg;
