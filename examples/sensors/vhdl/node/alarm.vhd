library common;
context common.common_context;

-- Raises the alarm above one level and ends it below another.
entity alarm is
    generic (ON_LEVEL, OFF_LEVEL : integer);
    port (
        clk       : in  std_logic;
        rst       : in  std_logic;
        in_valid  : in  std_logic;
        in_sample : in  sample_t;
        is_on     : out std_logic
    );
begin
    assert OFF_LEVEL < ON_LEVEL report "the alarm would flicker" severity failure;
end entity alarm;

architecture rtl of alarm is
begin
    process (clk) is
    begin
        if rising_edge(clk) then
            if rst = '1' then
                is_on <= '0';
            elsif in_valid = '1' then
                if in_sample > ON_LEVEL then
                    is_on <= '1';
                elsif in_sample < OFF_LEVEL then
                    is_on <= '0';
                end if;
            end if;
        end if;
    end process;
end architecture rtl;
