context work.link_context;

-- Sends each sample as the bytes of a frame. A sample that comes meanwhile is dropped and counted.
entity framer is
    port (
        clk        : in  std_logic;
        rst        : in  std_logic;
        in_valid   : in  std_logic;
        in_sample  : in  sample_t;
        out_valid  : out std_logic;
        out_byte   : out byte_t;
        out_ready  : in  std_logic;
        drop_count : out natural
    );
end entity framer;

architecture rtl of framer is
    signal frame     : frame_t;
    signal remaining : natural range 0 to FRAME_BYTES := 0;
begin
    process (clk) is
    begin
        if rising_edge(clk) then
            if rst = '1' then
                remaining  <= 0;
                drop_count <= 0;
            elsif remaining = 0 then
                if in_valid = '1' then
                    frame     <= to_frame(in_sample);
                    remaining <= FRAME_BYTES;
                end if;
            else
                if in_valid = '1' then
                    drop_count <= drop_count + 1;
                end if;
                if out_ready = '1' then
                    frame     <= frame(1 to FRAME_BYTES - 1) & x"00";
                    remaining <= remaining - 1;
                end if;
            end if;
        end if;
    end process;

    out_valid <= '1' when remaining > 0 else '0';
    out_byte  <= frame(0);
end architecture rtl;
