#include "flows/run/junit.h"
#include "tests/support/temporaryfolder.h"
#include <gtest/gtest.h>

TEST(Junit, TellsOfEverySimulation) {
    const TemporaryFolder folder;
    const TBuildTop tops[] = {{LANGUAGE_VHDL, "work", "tb", "sim"},
                              {LANGUAGE_VERILOG, "lib", "\\a<b ", ""},
                              {LANGUAGE_VERILOG, "lib", "c", ""}};
    TRunPlan run;
    run.Steps.resize(3);
    run.Steps[1].Record.Log = folder.Write(
        "log", "a & b <\"c\">\x1B[1m \xC3\xA4 \xFF \xED\xA0\x80 \xEF\xBF\xBF\r\nend\n");
    run.Simulations = {
        {&tops[0], "ghdl", 0, {}}, {&tops[1], "icarus", 1, {}}, {&tops[2], "icarus", 2, {}}};
    EXPECT_EQ(WriteJunit("my \"build\"", run,
                         {{SIMULATION_PASSED, false, 1005, ""},
                          {SIMULATION_FAILED, false, 20, "exit status 1"},
                          {}}),
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
              "<testsuites name=\"my &quot;build&quot;\" tests=\"3\" failures=\"1\" errors=\"0\" "
              "skipped=\"1\" time=\"1.025\">\n"
              "  <testsuite name=\"my &quot;build&quot;\" tests=\"3\" failures=\"1\" errors=\"0\" "
              "skipped=\"1\" time=\"1.025\">\n"
              "    <testcase classname=\"ghdl.work\" name=\"tb(sim)\" time=\"1.005\"/>\n"
              "    <testcase classname=\"icarus.lib\" name=\"\\a&lt;b \" time=\"0.020\">\n"
              "      <failure message=\"exit status 1\">a &amp; b &lt;&quot;c&quot;&gt;"
              "\xEF\xBF\xBD[1m \xC3\xA4 \xEF\xBF\xBD \xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD "
              "\xEF\xBF\xBD\xEF\xBF\xBD\n"
              "end\n</failure>\n"
              "    </testcase>\n"
              "    <testcase classname=\"icarus.lib\" name=\"c\" time=\"0.000\">\n"
              "      <skipped/>\n"
              "    </testcase>\n"
              "  </testsuite>\n"
              "</testsuites>\n");
}

TEST(Junit, HoldsTheCharactersOfXmlAlone) {
    const TemporaryFolder folder;
    const TBuildTop top = {LANGUAGE_VERILOG, "work", "t", ""};
    TRunPlan run;
    run.Steps.resize(1);
    run.Simulations = {{&top, "icarus", 0, {}}};
    const std::string no = "\xEF\xBF\xBD";
    const struct {
        const char* Bytes;
        std::string Text;
    } rows[] = {
        {"\x7F \xC2\x80 \xDF\xBF", "\x7F \xC2\x80 \xDF\xBF"},
        {"\xE0\xA0\x80 \xED\x9F\xBF \xEE\x80\x80", "\xE0\xA0\x80 \xED\x9F\xBF \xEE\x80\x80"},
        {"\xF0\x90\x80\x80 \xF4\x8F\xBF\xBF", "\xF0\x90\x80\x80 \xF4\x8F\xBF\xBF"},
        {"\xC0\x80", no + no},
        {"\xC1\xBF", no + no},
        {"\xE0\x80\x80", no + no + no},
        {"\xE0\x9F\xBF", no + no + no},
        {"\xED\xA0\x80", no + no + no},
        {"\xED\xBF\xBF", no + no + no},
        {"\xF0\x80\x80\x80", no + no + no + no},
        {"\xF0\x8F\xBF\xBF", no + no + no + no},
        {"\xF4\x90\x80\x80", no + no + no + no},
        {"\xF5\x80\x80\x80", no + no + no + no},
        {"\xEF\xBF\xBE", no},
        {"\xE2\x82", no + no},
    };
    for (const auto& row : rows) {
        run.Steps[0].Record.Log = folder.Write("log", row.Bytes);
        EXPECT_EQ(WriteJunit("b", run, {{SIMULATION_FAILED, false, 0, "r"}}),
                  "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                  "<testsuites name=\"b\" tests=\"1\" failures=\"1\" errors=\"0\" skipped=\"0\" "
                  "time=\"0.000\">\n"
                  "  <testsuite name=\"b\" tests=\"1\" failures=\"1\" errors=\"0\" skipped=\"0\" "
                  "time=\"0.000\">\n"
                  "    <testcase classname=\"icarus.work\" name=\"t\" time=\"0.000\">\n"
                  "      <failure message=\"r\">" +
                      row.Text +
                      "</failure>\n"
                      "    </testcase>\n"
                      "  </testsuite>\n"
                      "</testsuites>\n");
    }
}
