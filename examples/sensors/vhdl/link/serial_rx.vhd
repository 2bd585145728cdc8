library common;
context common.common_context;

-- Receives what serial_tx sends: each bit is read in its middle.
entity serial_rx is
    generic (BIT_CLOCKS : positive);
    port (
        clk       : in  std_logic;
        rst       : in  std_logic;
        line      : in  std_logic;
        out_valid : out std_logic;
        out_byte  : out byte_t
    );
end entity serial_rx;

architecture rtl of serial_rx is
    signal level : std_logic;
    signal wait_clocks : natural range 0 to 2 * BIT_CLOCKS := 0;
    signal remaining   : natural range 0 to 9              := 0;
    signal shift       : byte_t;
begin
    synchronize : entity common.synchronizer
        generic map (START => '1')
        port map (clk => clk, input => line, output => level);

    process (clk) is
    begin
        if rising_edge(clk) then
            out_valid <= '0';
            if rst = '1' then
                remaining <= 0;
            elsif remaining = 0 then
                if level = '0' then
                    remaining   <= 9;
                    wait_clocks <= BIT_CLOCKS + BIT_CLOCKS / 2 - 1;
                end if;
            elsif wait_clocks > 0 then
                wait_clocks <= wait_clocks - 1;
            else
                wait_clocks <= BIT_CLOCKS - 1;
                remaining   <= remaining - 1;
                if remaining > 1 then
                    shift <= level & shift(7 downto 1);
                else
                    -- Without the stop bit it was no byte.
                    out_valid <= level;
                    out_byte  <= shift;
                end if;
            end if;
        end if;
    end process;
end architecture rtl;
