#include "tests/flows/scan/scanrows.h"

TEST(VhdlInstances, FindsInstances) {
    const struct {
        const char* Statements;
        const char* Needs;
    } rows[] = {
        {"u: entity lib.e(a) port map (x);", "  entity lib.e(a) 5:11\n"},
        {"u: entity work.f generic map (lib.p.c);",
         "  entity work.f 5:11\n  selected lib.p 5:31\n"},
        {"u: entity f;", "  entity f 5:11\n"},
        {"u: entity other.f;", "  maybe entity other.f 5:11\n"},
        {"u: configuration lib.c port map (x);", "  configuration lib.c 5:18\n"},
        {"u: component f port map (x);", "  component f 5:14\n"},
        {"u: component lib.p.f port map (x);", "  selected lib.p 5:14\n  component f 5:20\n"},
        {"u: f port map (x);", "  component f 5:4\n"},
        {"u: f generic map (1) port map (x);", "  component f 5:4\n"},
        {"u: lib.p.f port map (x);", "  selected lib.p 5:4\n  component f 5:10\n"},
        {"u: f; v: \\f\\; w: F;", "  component f 5:4\n  component \\f\\ 5:10\n"},
        {"u: f(x); v: x <= y; w: postponed f(x); x: assert y; f(z);", ""},
        {"u: process begin l: call; m: x := y; end process; v: f;", "  component f 5:54\n"},
        {"g: for i in 0 to 1 generate u: f port map (x); end generate;", "  component f 5:32\n"},
        {"g: if a: x generate u: f; elsif b: y generate begin v: g; end b; else generate w: h; "
         "end generate; x: i;",
         "  component f 5:24\n  component g 5:56\n  component h 5:83\n  component i 5:103\n"},
        {"g: case x generate when a: 1 => u: f; end a; when others => v: entity work.h; "
         "end generate; w: g;",
         "  component f 5:36\n  entity work.h 5:71\n  component g 5:96\n"},
        // An alternative may have the name of the architecture.
        {"g: if x generate u: f; else a: generate v: g; end a; end generate; w: h;",
         "  component f 5:21\n  component g 5:44\n  component h 5:71\n"},
        {"b: block (x) is signal s : t; begin u: f; end block; v: g;",
         "  component f 5:40\n  component g 5:57\n"},
        {"b: block component f is end component; begin u: f; end block b;", "  component f 5:49\n"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(NeedsIn("", row.Statements), row.Needs) << row.Statements;
}

TEST(VhdlInstances, FindsWhatConfigurationsBind) {
    EXPECT_EQ(Scan("library l;\n"
                   "configuration c of top is\n"
                   "  use l.p.all;\n"
                   "  for rtl\n"
                   "    use l.q.all;\n"
                   "    for all : comp use entity l.e(a)\n"
                   "      generic map (g => l.r.c) port map (x => y);\n"
                   "      for a\n"
                   "        for u1, u2 : inner use configuration l.d; end for;\n"
                   "        for gen (0 to 3)\n"
                   "          for others : deep\n"
                   "            for struct end for;\n"
                   "          end for;\n"
                   "        end for;\n"
                   "      end for;\n"
                   "    end for;\n"
                   "    for v : comp2 use open; end for;\n"
                   "    for w, x : comp3 use entity f; for b end for; end for;\n"
                   "  end for;\n"
                   "end configuration c;\n"
                   "entity after_it is end;\n"),
              "configuration c of top 2:15 library l\n"
              "  primary work.top 2:20\n"
              "  use l.p 3:7\n"
              "  architecture work.top(rtl) 4:7\n"
              "  use l.q 5:9\n"
              "  binding l.e(a) 6:31\n"
              "  selected l.r 7:25\n"
              "  architecture l.e(a) 8:11\n"
              "  configuration l.d 9:46\n"
              "  maybe architecture deep(struct) 12:17\n"
              "  binding f 18:33\n"
              "  architecture f(b) 18:40\n"
              "entity after_it 21:8\n");
}

TEST(VhdlInstances, FindsWhatConfigurationSpecificationsBind) {
    EXPECT_EQ(NeedsIn("for all : comp use entity lib.e(a) port map (x => y);\n"
                      "for u : comp use configuration lib.c; for others : c use open;\n"
                      "for v : comp use entity work.f; use vunit lib.v; end for;",
                      "u: comp;"),
              "  entity lib.e(a) 3:27\n"
              "  configuration lib.c 4:32\n"
              "  entity work.f 5:25\n"
              "  use lib.v 5:43\n"
              "  component comp 7:4\n");
}
