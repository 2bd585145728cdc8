`if TOOL = "x" and not (VHDL_VERSION < "2019") then
use work.a.all;
`elsif T /= "" xor U = """" then
use work.b.all;
`else
library l;
`end if
package p is new l.g generic map (1);
