-- What nearly every file of the node begins with.
context common_context is
    library ieee;
    use ieee.std_logic_1164.all;
    use ieee.numeric_std.all;
    library common;
    use common.types_pkg.all;
    use common.math_pkg.all;
end context common_context;
