-- Library util: small helpers that every other unit uses.
library ieee;
use ieee.std_logic_1164.all;

package util_pkg is
  function bits_for(count : positive) return natural;
end package util_pkg;

package body util_pkg is
  function bits_for(count : positive) return natural is
    variable bits  : natural  := 0;
    variable reach : positive := 1;
  begin
    while reach < count loop
      reach := reach * 2;
      bits  := bits + 1;
    end loop;
    return bits;
  end function bits_for;
end package body util_pkg;
