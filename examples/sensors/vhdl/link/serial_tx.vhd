library common;
context common.common_context;

-- Sends bytes with a start and a stop bit, the lowest bit first, each bit for BIT_CLOCKS clocks.
entity serial_tx is
    generic (BIT_CLOCKS : positive);
    port (
        clk      : in  std_logic;
        rst      : in  std_logic;
        in_valid : in  std_logic;
        in_byte  : in  byte_t;
        in_ready : out std_logic;
        line     : out std_logic
    );
end entity serial_tx;

architecture rtl of serial_tx is
    constant BITS : positive := 10;

    signal shift     : std_logic_vector(BITS - 1 downto 0) := (others => '1');
    signal remaining : natural range 0 to BITS             := 0;
    signal tick      : std_logic;
    signal is_idle   : std_logic;
begin
    divider : entity common.tick_divider
        generic map (PERIOD => BIT_CLOCKS)
        port map (clk => clk, restart => is_idle, tick => tick);

    process (clk) is
    begin
        if rising_edge(clk) then
            if rst = '1' then
                shift     <= (others => '1');
                remaining <= 0;
            elsif is_idle = '1' then
                if in_valid = '1' then
                    shift     <= '1' & in_byte & '0';
                    remaining <= BITS;
                end if;
            elsif tick = '1' then
                shift     <= '1' & shift(BITS - 1 downto 1);
                remaining <= remaining - 1;
            end if;
        end if;
    end process;

    is_idle  <= '1' when remaining = 0 else '0';
    in_ready <= is_idle and not rst;
    line     <= shift(0);
end architecture rtl;
