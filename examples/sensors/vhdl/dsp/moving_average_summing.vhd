-- Adds the whole window each time: the plain form that the other one is compared with.
architecture summing of moving_average is
    constant LENGTH : positive := 2 ** WINDOW_BITS;
begin
    process (clk) is
        variable window : sample_vector(0 to LENGTH - 1) := (others => (others => '0'));
        variable sum    : integer;
    begin
        if rising_edge(clk) then
            out_valid <= in_valid and not rst;
            if rst = '1' then
                window := (others => (others => '0'));
            elsif in_valid = '1' then
                window := in_sample & window(0 to LENGTH - 2);
                sum    := 0;
                for i in window'range loop
                    sum := sum + to_integer(window(i));
                end loop;
                out_sample <= to_sample(floor_divide(sum, LENGTH));
            end if;
        end if;
    end process;
end architecture summing;
