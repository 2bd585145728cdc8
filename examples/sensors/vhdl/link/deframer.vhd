context work.link_context;

-- Finds frames in a stream of bytes. Bytes in front of a start byte are passed over.
entity deframer is
    port (
        clk         : in  std_logic;
        rst         : in  std_logic;
        in_valid    : in  std_logic;
        in_byte     : in  byte_t;
        out_valid   : out std_logic;
        out_sample  : out sample_t;
        error_count : out natural
    );
end entity deframer;

architecture rtl of deframer is
begin
    process (clk) is
        variable frame : frame_t;
        variable count : natural range 0 to FRAME_BYTES := 0;
    begin
        if rising_edge(clk) then
            out_valid <= '0';
            if rst = '1' then
                count       := 0;
                error_count <= 0;
            elsif in_valid = '1' and (count > 0 or in_byte = FRAME_START) then
                frame(count) := in_byte;
                count        := count + 1;
            end if;
            if count = FRAME_BYTES then
                count      := 0;
                out_sample <= to_sample(frame);
                if is_intact(frame) then
                    out_valid <= '1';
                else
                    error_count <= error_count + 1;
                end if;
            end if;
        end if;
    end process;
end architecture rtl;
