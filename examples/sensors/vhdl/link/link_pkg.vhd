library common;
context common.common_context;
use common.crc_pkg.all;

-- A frame: the start byte, the sample in two bytes with the high one first, and the check of both.
package link_pkg is
    constant FRAME_START : byte_t   := x"A5";
    constant FRAME_BYTES : positive := 4;

    subtype frame_t is byte_vector(0 to FRAME_BYTES - 1);

    function to_frame(sample : sample_t) return frame_t;
    function is_intact(frame : frame_t) return boolean;
    function to_sample(frame : frame_t) return sample_t;
end package link_pkg;

package body link_pkg is
    function to_frame(sample : sample_t) return frame_t is
        constant word  : std_logic_vector(15 downto 0) := std_logic_vector(resize(sample, 16));
        constant bytes : byte_vector(0 to 1)           := (word(15 downto 8), word(7 downto 0));
    begin
        return (FRAME_START, bytes(0), bytes(1), crc_of(bytes));
    end function;

    function is_intact(frame : frame_t) return boolean is
    begin
        return frame(0) = FRAME_START and frame(3) = crc_of(frame(1 to 2));
    end function;

    function to_sample(frame : frame_t) return sample_t is
    begin
        return resize(signed(std_logic_vector'(frame(1) & frame(2))), SAMPLE_BITS);
    end function;
end package body link_pkg;
