library common;
context common.common_context;

-- Passes on the last of each FACTOR samples.
entity decimator is
    generic (FACTOR : positive);
    port (
        clk        : in  std_logic;
        rst        : in  std_logic;
        in_valid   : in  std_logic;
        in_sample  : in  sample_t;
        out_valid  : out std_logic;
        out_sample : out sample_t
    );
end entity decimator;

architecture rtl of decimator is
    signal count : natural range 0 to FACTOR - 1 := 0;
begin
    process (clk) is
    begin
        if rising_edge(clk) then
            out_valid <= '0';
            if rst = '1' then
                count <= 0;
            elsif in_valid = '1' then
                if count = FACTOR - 1 then
                    count      <= 0;
                    out_valid  <= '1';
                    out_sample <= in_sample;
                else
                    count <= count + 1;
                end if;
            end if;
        end if;
    end process;
end architecture rtl;
