library common;
context common.common_context;

-- Takes the offset of the sensor out of its samples.
entity calibration is
    generic (OFFSET : integer);
    port (
        clk        : in  std_logic;
        rst        : in  std_logic;
        in_valid   : in  std_logic;
        in_sample  : in  sample_t;
        out_valid  : out std_logic;
        out_sample : out sample_t
    );
end entity calibration;

architecture rtl of calibration is
begin
    process (clk) is
    begin
        if rising_edge(clk) then
            out_valid <= in_valid and not rst;
            if in_valid = '1' then
                out_sample <= to_sample(to_integer(in_sample) + OFFSET);
            end if;
        end if;
    end process;
end architecture rtl;
