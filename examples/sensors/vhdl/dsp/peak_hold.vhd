library common;
context common.common_context;

-- The lowest and the highest sample since the reset.
entity peak_hold is
    port (
        clk       : in  std_logic;
        rst       : in  std_logic;
        in_valid  : in  std_logic;
        in_sample : in  sample_t;
        lowest    : out sample_t;
        highest   : out sample_t
    );
end entity peak_hold;

architecture rtl of peak_hold is
begin
    process (clk) is
    begin
        if rising_edge(clk) then
            if rst = '1' then
                lowest  <= to_sample(SAMPLE_HIGH);
                highest <= to_sample(SAMPLE_LOW);
            elsif in_valid = '1' then
                lowest  <= minimum(lowest, in_sample);
                highest <= maximum(highest, in_sample);
            end if;
        end if;
    end process;
end architecture rtl;
