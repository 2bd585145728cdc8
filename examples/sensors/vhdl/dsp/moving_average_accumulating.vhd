-- Keeps the sum, and takes out of it what leaves the window: one adder, whatever the length.
architecture accumulating of moving_average is
    constant LENGTH : positive := 2 ** WINDOW_BITS;

    signal window : sample_vector(0 to LENGTH - 1);
    signal sum    : signed(SAMPLE_BITS + WINDOW_BITS - 1 downto 0);
    signal is_new : std_logic := '0';
begin
    process (clk) is
    begin
        if rising_edge(clk) then
            is_new <= in_valid and not rst;
            if rst = '1' then
                window <= (others => (others => '0'));
                sum    <= (others => '0');
            elsif in_valid = '1' then
                window(0) <= in_sample;
                for i in 1 to LENGTH - 1 loop
                    window(i) <= window(i - 1);
                end loop;
                sum <= sum + in_sample - window(LENGTH - 1);
            end if;
        end if;
    end process;

    out_valid  <= is_new;
    out_sample <= resize(shift_right(sum, WINDOW_BITS), SAMPLE_BITS);
end architecture accumulating;
