-- entity comment is end; "unclosed string /* ' `if x then
/* entity block_comment is end;
   -- */ library lib; /* second */ use lib.first.all;

entity "no_entity" is
entity traps is
    generic (c : character := '''; d : character := '"'; e : character := ';'; f : string := "--");
    port (\entity\ : in bit; \end;\ : out bit_vector(3 downto 0));
end entity traps;

package chars is
    constant a : bit := bit'('1');
    constant b : character := character ' (''');
    constant c : string := "it""s; end; architecture x of y is";
    constant d : string := %a "quoted" ; entity %;
    constant e : string := '(' & ')' & '"' & '-' & '-' & '`' & '\';
    constant f : boolean := a'stable and b'stable'('x') and c'length = 1;
    constant g : bit_vector := x"0F" & B"1_0" & 12UX"F" & o"7" ; constant h : integer := 16#FF#e1;
    type t is (''', '(', ';', '"', '\', lib, 'e', 'n', 'd');
    alias "and" is work.ops."and" [bit, bit return bit];
    alias quote is work.ops.'"' [return character];
    constant ext : integer := \work.ops\ + \a\\.b\ + work.\ops\.c;
    type rec is record
        parameter, protected, context, view : integer; -- end record;
    end record;
    type time2 is range 0 to 1 units fs2; end units;
    type prot is protected
        procedure entity_like(signal configuration_like : in bit);
    end protected prot;
end;

`protect begin_protected
`protect encrypt_agent = "x", encrypt_agent_info = "y"
`protect data_block
entity hidden is end; ' " /* `protect end_protected
`protect end_protected

`if TOOL = "x" then
use work.taken.all;
`elsif TOOL = "y" then
use work.left_out.all; " /* not open at the end of the line: */
`else
use work.left_out_too.all;
`end if
architecture rtl of traps is
    signal property, sequence, default, cover, force, assume : bit;
    attribute mark of rtl : architecture is 1;
    attribute mark of entity_like : entity is "entity";
    for all : comp use entity lib.bound(rtl);
    function "+" (a : integer) return integer is begin return a; end "+";
    component comp is port (x : in bit := '1'); end component comp;
begin
    -- psl assert always entity;
    default clock is rising_edge(clk);
    assert always {a; b} |=> {c[*2]; "--"; d} report "entity fake is";
    property p is always (x -> next y);
    label1 : comp port map (x => '1');
    label2 : if alt : true generate signal s : bit; begin i1 : comp; end alt; else generate
        i2 : entity lib.direct ( struct ) port map (a => open, b => bit'('0'));
    end generate label2;
    process begin
        if a'event and a='1' then s <= force '1'; elsif b = ';' then s <= release; end if;
        case a is when '0' => null; when others => label3 : call; end case;
        wait until <<signal .tb.lib.dut.x : bit>>'event;
    end process;
    x <= y when z else "end architecture rtl;";
end architecture rtl;

configuration last of traps is for rtl end for; end;
