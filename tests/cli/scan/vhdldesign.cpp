#include "tests/cli/scan/vhdldesign.h"

namespace {

using TSources = std::vector<TDesignSource>;

constexpr int kLanes = 8;

/// A name in Latin-1, in two cases.
constexpr const char* kLarge = "gr\xF6\xDF\x65";
constexpr const char* kLargeCapitals = "GR\xD6\xDF\x45";

void Add(TSources* sources, const std::string& library, const std::string& name,
         const std::string& text) {
    sources->push_back({library, library + "/" + name + ".vhd", text});
}

/// Packages of all kinds, and the context that the other libraries see them by.
void AddBase(TSources* sources) {
    Add(sources, "base", "types", R"(
library ieee;
use ieee.std_logic_1164.all;
package types is
  subtype word is std_logic_vector(7 downto 0);
  type pair is record first, second : word; end record;
  constant later : natural;
  type counter is protected
    procedure step;
    impure function value return natural;
  end protected;
  component lane is port (i : in word; o : out word); end component;
end package types;
)");
    Add(sources, "base", "types-body", R"(
package body types is
  constant later : natural := work.numbers.seven;
  type counter is protected body
    variable n : natural := 0;
    procedure step is begin n := n + 1; end;
    impure function value return natural is begin return n; end;
  end protected body;
end package body types;
)");
    Add(sources, "base", "numbers", R"(
package numbers is
  constant seven : natural := 7;
  constant text : string := "use work.nothing.all; -- ";
  constant quote : character := '"';
  function is_odd (n : natural) return boolean;
end;
/* package nobody is
   use work.nothing.all; */
)");
    Add(sources, "base", "numbers_body", R"(
package body Numbers is
  function is_odd (n : natural) return boolean is
  begin
    return n mod 2 = 1 and character'('"') = quote;
  end;
end;
)");
    Add(sources, "base", "extended", R"(
use work.numbers.all;
package \Extended Name\ is
  constant \seven\ : natural := seven;
end;
)");
    Add(sources, "base", "latin",
        std::string("use work.\\Extended Name\\.all;\npackage ") + kLarge +
            " is\n  constant \xE4hnlich : natural := \\seven\\;\nend;\n");
    Add(sources, "base", "shift", R"(
package shift is
  generic (depth : positive);
  function turn (n : natural) return natural;
end package;
)");
    Add(sources, "base", "shift_body", R"(
use work.numbers;
package body shift is
  function turn (n : natural) return natural is
  begin
    return (n + numbers.seven) mod depth;
  end;
end package body;
)");
    Add(sources, "base", "shift8", "package shift8 is new work.shift generic map (depth => 8);\n");
    Add(sources, "base", "shift16", R"(
use work.shift;
package shift16 is new shift generic map (depth => 16);
)");
    Add(sources, "base", "user_of_shift", R"(
package user_of_shift is
  generic (package any_shift is new work.shift generic map (<>));
  function twice (n : natural) return natural;
end;
package body user_of_shift is
  function twice (n : natural) return natural is
  begin
    return any_shift.turn(any_shift.turn(n));
  end;
end;
)");
    Add(sources, "base", "twice8", R"(
package twice8 is new work.user_of_shift generic map (any_shift => work.shift8);
)");
    Add(sources, "base", "everyday", R"(
context everyday is
  library ieee;
  use ieee.std_logic_1164.all, ieee.numeric_std.all;
  library base;
  use base.types.all;
end context;
)");
}

/// Sees the packages of the other library by contexts, by the library as a whole and by names.
void AddBus(TSources* sources) {
    Add(sources, "bus_lib", "everything", R"(
context everything is
  library base;
  context base.everyday;
  library bus_lib;
end context;
)");
    Add(sources, "bus_lib", "arbiter_pkg", R"(
library base;
use base.all;
package arbiter_pkg is
  constant limit : natural := numbers.seven;
  subtype request is types.word;
end;
)");
    Add(sources, "bus_lib", "arbiter", R"(
context work.everything;
entity arbiter is
  port (r : in work.arbiter_pkg.request; g : out word);
end;
)");
    // The library is visible through the context clause of the entity.
    Add(sources, "bus_lib", "arbiter-rtl", R"(
architecture rtl of arbiter is
  signal s : word;
  constant n : natural := work.arbiter_pkg.limit;
begin
  s <= r;
  g <= s when n > 1 else not s;
end;
)");
    Add(sources, "bus_lib", "arbiter-two", R"(
architecture two of Arbiter is
begin
  u : entity work.arbiter(rtl) port map (r, g);
end;
)");
    Add(sources, "bus_lib", "arbiter_conf", R"(
configuration arbiter_conf of arbiter is
  for two
  end for;
end;
)");
    Add(sources, "bus_lib", "bridge", R"(
library base;
use base.types;
entity bridge is
  port (i : in types.word; o : out types.word);
end;
architecture rtl of bridge is
  component arbiter is port (r : in types.word; g : out types.word); end component;
  signal a, b : types.word;
begin
  first : arbiter port map (i, a);
  second : configuration work.arbiter_conf port map (a, b);
  third : entity work.arbiter(two) port map (b, o);
end;
)");
}

void AddLane(TSources* sources, int number) {
    const std::string n = std::to_string(number);
    const std::string next = std::to_string((number + 1) % kLanes);
    Add(sources, "core", "lane" + n, R"(
library base;
context base.everyday;
entity lane)" + n + R"( is
  port (i : in word; o : out word);
end entity;
)");
    Add(sources, "core", "lane" + n + "-rtl", R"(
use work.lane_pkg)" + n + R"(.all;
architecture rtl of lane)" + n + R"( is
begin
  o <= i xor mask;
end architecture;
)");
    // Instances of components order nothing: each lane has one of the next.
    Add(sources, "core", "lane" + n + "-chain", R"(
architecture chain of lane)" + n + R"( is
  component lane)" + next + R"( is port (i : in word; o : out word); end component;
begin
  c : lane)" + next + R"( port map (i, o);
end architecture;
)");
    Add(sources, "core", "lane_pkg" + n,
        R"(
library base, ieee;
use ieee.numeric_std.to_unsigned;
package lane_pkg)" +
            n + R"( is
  constant mask : base.types.word :=
    ieee.std_logic_1164.std_logic_vector(to_unsigned()" +
            n + R"( + base.numbers.seven, 8));
end;
)");
    Add(sources, "core", "lane" + n + "_conf",
        R"(
configuration lane)" +
            n + R"(_conf of lane)" + n + R"( is
  for chain
    for c : lane)" +
            next + R"( use entity work.lane)" + next + R"((rtl);
    end for;
  end for;
end;
)");
}

void AddCore(TSources* sources) {
    for (int number = 0; number < kLanes; ++number) AddLane(sources, number);
    Add(sources, "core", "top", R"(
library bus_lib, base;
context bus_lib.everything;
use base.shift8.all;
entity top is
  generic (n : natural := turn(3));
  port (i : in word; o : out word);
end;
)");
    Add(sources, "core", "top-structure", R"(
library core;
architecture structure of top is
  type words is array (0 to 8) of word;
  signal w : words;
  for l2 : lane use entity work.lane2(rtl);
  for others : lane use configuration work.lane3_conf;
begin
  w(0) <= i;
  l0 : entity work.lane0(rtl) port map (w(0), w(1));
  l1 : configuration work.lane1_conf port map (w(1), w(2));
  l2 : lane port map (w(2), w(3));
  l3 : lane port map (w(3), w(4));
  many : for k in 4 to 6 generate
    signal inner : base.types.word;
    use base.\Extended Name\.\seven\;
  begin
    odd : if base.numbers.is_odd(k + \seven\) generate
      u : entity core.lane4(rtl) port map (w(k), inner);
    else generate
      u : component lane port map (w(k), inner);
    end generate;
    w(k + 1) <= inner;
  end generate;
  last : entity bus_lib.bridge port map (w(7), o);
  process
    variable v : natural := base.twice8.twice(1);
  begin
    v := base.shift16.turn(v);
    wait;
  end process;
end;
)");
    Add(sources, "core", "top-flat", R"(
architecture flat of top is
  component lane5 is port (i : in word; o : out word); end component;
begin
  u : lane5 port map (i, o);
end;
)");
    Add(sources, "core", "top_conf", R"(
library bus_lib;
configuration top_conf of top is
  for flat
    for u : lane5 use entity work.lane5(chain);
      for chain
        for c : lane6 use configuration work.lane6_conf;
        end for;
      end for;
    end for;
  end for;
end;
)");
}

void AddTests(TSources* sources) {
    Add(sources, "tests", "bench",
        std::string("library base;\nuse base.shift16.turn;\npackage bench is\n"
                    "  constant \xDC") +
            "ber : natural := turn(base." + kLargeCapitals + ".\xC4hnlich);\nend;\n");
    Add(sources, "tests", "test1", R"(
entity test1 is end;
)");
    Add(sources, "tests", "test1-direct",
        R"(
library core, base;
context base.everyday;
architecture direct of test1 is
  component top is port (i : in word; o : out word); end component;
  signal i, o : word;
  shared variable steps : base.types.counter;
begin
  dut : top port map (i, o);
  other : entity core.top(structure) port map (i, o);
  check : postponed process is
    alias inner is << signal .test1.other.l0.o : base.types.word >>;
  begin
    steps.step;
    assert steps.value = work.bench.)"
        "\xFC"
        R"(BER and inner = i;
    wait;
  end process;
end;
)");
    Add(sources, "tests", "test1_conf", R"(
library core;
configuration test1_conf of test1 is
  for direct
    for dut : top use configuration core.top_conf;
    end for;
  end for;
end;
)");
    Add(sources, "tests", "ticker", R"(
library ieee;
use ieee.std_logic_1164.all;
entity ticker is port (clk, q : in std_logic); end;
architecture a of ticker is begin end;
)");
    Add(sources, "tests", "ticker-properties", R"(
vunit ticker_properties (ticker(a)) {
  default clock is rising_edge(clk);
  assert always q = '0';
}
)");
}

}  // namespace

std::vector<TDesignSource> MakeVhdlDesign() {
    TSources sources;
    AddBase(&sources);
    AddBus(&sources);
    AddCore(&sources);
    AddTests(&sources);
    return sources;
}
