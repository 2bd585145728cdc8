architecture a of e is
begin
  g: if b: x generate u: f; end b; else c: generate begin v: entity work.h(i); end c; end generate;
  h: case y generate when 1 => w: component l.p.c port map (x); when others => end generate;
end a;
