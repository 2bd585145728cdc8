library common;
context common.common_context;

-- Keeps samples within two limits.
entity limiter is
    generic (
        LOW  : integer := SAMPLE_LOW;
        HIGH : integer := SAMPLE_HIGH
    );
    port (
        clk        : in  std_logic;
        rst        : in  std_logic;
        in_valid   : in  std_logic;
        in_sample  : in  sample_t;
        out_valid  : out std_logic;
        out_sample : out sample_t
    );
begin
    assert LOW <= HIGH report "the limits are swapped" severity failure;
end entity limiter;

architecture rtl of limiter is
begin
    process (clk) is
    begin
        if rising_edge(clk) then
            out_valid <= in_valid and not rst;
            if in_valid = '1' then
                out_sample <= to_sample(clip(to_integer(in_sample), LOW, HIGH));
            end if;
        end if;
    end process;
end architecture rtl;
