#include "services/options/optiontable.h"
#include "tests/services/options/conversion.h"
#include <gtest/gtest.h>
#include <set>

using namespace options;

namespace {

constexpr TOptionTarget kVerilog3{3, LANGUAGE_VERILOG};
constexpr TOptionTarget kVerilog4{4, LANGUAGE_VERILOG};
constexpr TOptionTarget kVhdl3{3, LANGUAGE_VHDL};
constexpr TOptionTarget kVhdl4{4, LANGUAGE_VHDL};

// A word of the build text and what it becomes for families 3 and 4; null: left out.
struct TRowCase {
    const char* Typed;
    const char* Family3;
    const char* Family4;
};

const TRowCase kVerilogRows[] = {
    {"+define+A=1+B", "preprocess +define+A=1+B", "preprocess -define A=1 -define B"},
    {"+define+A", "preprocess +define+A", "preprocess -define A"},
    {"+define++A++B+", "preprocess +define+A+B", "preprocess -define A -define B"},
    {"+define+M=\"a+b c\"+N", "preprocess +define+M=\"a+b c\"+N",
     "preprocess -define M=\"a+b c\" -define N"},
};

const TRowCase kVhdlRows[] = {
    {"+define+_DEBUG", nullptr, nullptr},
    {"-87", "analyze flag -87", nullptr},
    {"-93", "analyze flag -93", "analyze flag -v93"},
};

const TRowCase kRowsOfBothLanguages[] = {
    {"+incdir+a+b+", "preprocess +incdir+a+b", "preprocess -incdir a -incdir b"},
    {"+libext+.v+.vo+", "library +libext+.v+.vo", "library +libext+.v+.vo+"},
    {"-y D", "library -y D", "library -y D"},
    {"-v F", "library -v F", "library -v F"},
    {"+librescan", "library flag +librescan", "library flag +librescan"},
    {"+liborder", "library flag +liborder", "library flag +liborder"},
    {"-f F", "analyze -f F", "analyze -file F"},
    {"-l F", "analyze -l F", "analyze -logfile F"},
    {"+mindelays", "elaborate flag +mindelays", "elaborate flag -mindelays"},
    {"+typdelays", "elaborate flag +typdelays", "elaborate flag -typdelays"},
    {"+maxdelays", "elaborate flag +maxdelays", "elaborate flag -maxdelays"},
    {"+notimingchecks", "elaborate flag +notimingchecks", "elaborate flag -notimingchecks"},
    {"+nospecify", "elaborate flag +nospecify", "elaborate flag -nospecify"},
    {"+no_notifier", "elaborate flag +no_notifier", "elaborate flag -nonotifier"},
    {"+delay_mode_path", "analyze +delay_mode_path", "elaborate -delay_mode path"},
    {"+pulse_r/20", "elaborate +pulse_r/20", "elaborate -pulse_r 20"},
    {"+pulse_e/30", "elaborate +pulse_e/30", "elaborate -pulse_e 30"},
    {"+sdf_verbose", "elaborate flag +sdf_verbose", "elaborate flag -sdf_verbose"},
    {"-u", "analyze flag -u", "analyze flag -upcase"},
    {"-w", nullptr, "analyze flag -neverwarn"},
    {"-s", nullptr, "simulate flag -tcl"},
    {"-i F", "simulate -do F", "simulate -input F"},
    {"-k F", nullptr, "simulate -keyfile F"},
    {"-c", nullptr, nullptr},
    {"-a", nullptr, nullptr},
    {"-t", nullptr, nullptr},
    {"-d", nullptr, nullptr},
    {"-x", nullptr, nullptr},
    {"+linedebug", nullptr, "analyze flag -linedebug"},
    {"-linedebug", nullptr, "analyze flag -linedebug"},
    {"-work L", "analyze -work L", "analyze -work L"},
    {"--qdx_usegcc", nullptr, nullptr},
};

std::string Expected(const char* typed, const char* item) {
    return item ? std::string(item) + "\n"
                : "! " + std::string(typed) + ": the simulator has no such option\n";
}

void ExpectRow(const TRowCase& row, const TOptionTarget& family3, const TOptionTarget& family4) {
    EXPECT_EQ(Converted(row.Typed, family3), Expected(row.Typed, row.Family3)) << row.Typed;
    EXPECT_EQ(Converted(row.Typed, family4), Expected(row.Typed, row.Family4)) << row.Typed;
    const TOptionTarget family8{8, family3.Language};
    EXPECT_EQ(Converted(row.Typed, family8), Expected(row.Typed, row.Family3)) << row.Typed;
}

}  // namespace

TEST(OptionConversion, TakesEachOptionToItsFormInTheTargetsLanguage) {
    for (const TRowCase& row : kVerilogRows) ExpectRow(row, kVerilog3, kVerilog4);
    for (const TRowCase& row : kVhdlRows) ExpectRow(row, kVhdl3, kVhdl4);
    for (const TRowCase& row : kRowsOfBothLanguages) {
        ExpectRow(row, kVerilog3, kVerilog4);
        ExpectRow(row, kVhdl3, kVhdl4);
    }
}

TEST(OptionConversion, KnowsNoOptionBesidesThoseOfTheCasesAbove) {
    std::set<const TOptionRow*> seen;
    const auto look = [&](const TRowCase& row, THdlLanguage language) {
        const std::string word = std::string(row.Typed).substr(0, std::string(row.Typed).find(' '));
        seen.insert(FindOptionRow(word, {}, language));
    };
    for (const TRowCase& row : kVerilogRows) look(row, LANGUAGE_VERILOG);
    for (const TRowCase& row : kVhdlRows) look(row, LANGUAGE_VHDL);
    for (const TRowCase& row : kRowsOfBothLanguages) look(row, LANGUAGE_VERILOG);
    std::string others;
    for (const TOptionRow& row : GetOptionTable())
        if (!seen.count(&row)) others += std::string(row.Option) + "\n";
    EXPECT_EQ(others, "--simz_options\n--modelsim_options\n--ncsim_options\n--activehdl_options\n");
    EXPECT_EQ(seen.count(nullptr), 0U);
}

TEST(OptionConversion, PassesUnknownWordsOnAsTypedToTheirTextsStage) {
    const char* text =
        "-lint top.v -S +Typdelays -yD +define +pulse_r/ +delay_mode_ --qdx_ \"a b\"";
    for (const TOptionTarget& target : {kVerilog3, kVerilog4, kVhdl3, kVhdl4})
        EXPECT_EQ(Converted(text, target, STAGE_ELABORATE),
                  "elaborate -lint\n"
                  "elaborate top.v\n"
                  "elaborate -S\n"
                  "elaborate +Typdelays\n"
                  "elaborate -yD\n"
                  "elaborate +define\n"
                  "elaborate +pulse_r/\n"
                  "elaborate +delay_mode_\n"
                  "elaborate --qdx_\n"
                  "elaborate \"a b\"\n");
}

TEST(OptionConversion, KnowsLanguageVersionsInVhdlOnly) {
    for (const TOptionTarget& target : {kVerilog3, kVerilog4})
        EXPECT_EQ(Converted("-87 -93", target), "analyze -87\nanalyze -93\n");
}

TEST(OptionConversion, SendsWordsOfEachStageHome) {
    struct {
        int Stage;
        const char* Items;
    } const rows[] = {
        {STAGE_COMPILE, "analyze -file F\nanalyze word\n"},
        {STAGE_ELABORATE, "elaborate -file F\nelaborate word\n"},
        {STAGE_SIMULATE, "simulate -file F\nsimulate word\n"},
        {7, "analyze -file F\nanalyze word\n"},
        {6, "elaborate -file F\nelaborate word\n"},
        {0, "analyze -file F\nanalyze word\n"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Converted("-f F word", kVerilog4, row.Stage), row.Items) << row.Stage;
}

TEST(OptionConversion, SendsUnknownPlusWordsOfTheRuntimeTextToTheSimulator) {
    EXPECT_EQ(Converted("+go=1 go +typdelays", kVerilog4, STAGE_COMPILE, SOURCE_RUNTIME),
              "simulate +go=1\nanalyze go\nelaborate flag -typdelays\n");
    EXPECT_EQ(Converted("+go=1", kVerilog3, STAGE_COMPILE), "analyze +go=1\n");
    EXPECT_EQ(Converted("+go=1", {1, LANGUAGE_VERILOG}, STAGE_COMPILE, SOURCE_RUNTIME),
              "analyze +go=1\n");
}

TEST(OptionConversion, TakesTheNextWordAsOperandWhateverItLooksLike) {
    EXPECT_EQ(Converted("-y -v -f +define+A -l\t\"a b\"", kVerilog4),
              "library -y -v\nanalyze -file +define+A\nanalyze -logfile \"a b\"\n");
}

TEST(OptionConversion, KeepsATimeResolutionTogether) {
    for (const TOptionTarget& target : {kVerilog3, kVerilog4}) {
        EXPECT_EQ(Converted("-t ns", target, STAGE_ELABORATE), "elaborate -t\nelaborate ns\n");
        EXPECT_EQ(Converted("-t -lint", target),
                  "analyze -lint\n"
                  "! -t: the simulator has no such option\n");
        EXPECT_EQ(Converted("-t +go", target),
                  "analyze +go\n"
                  "! -t: the simulator has no such option\n");
    }
}

TEST(OptionConversion, ReportsWhatItCannotParse) {
    struct {
        const char* Label;
        const char* Typed;
        const char* Items;
    } const rows[] = {
        {"no operand", "+librescan -y",
         "library flag +librescan\nanalyze -y\n! -y: the operand is missing\n"},
        {"no operand for a target's options", "--ncsim_options",
         "analyze --ncsim_options\n! --ncsim_options: the operand is missing\n"},
        {"an empty list", "+define+ -u",
         "analyze flag -upcase\n! +define+: the list has no value\n"},
        {"a list of empty values", "+incdir+++", "! +incdir+++: the list has no value\n"},
        {"an empty list that would be passed on", "+libext+",
         "! +libext+: the list has no value\n"},
        {"an unclosed quote", "-u \"a b -y",
         "analyze flag -upcase\nanalyze \"a b -y\n! \"a b -y: the quote is not closed\n"},
        {"an unclosed quote in an operand", "-y \"a b",
         "library -y \"a b\n! \"a b: the quote is not closed\n"},
        {"an unclosed quote in a list", "+define+A=\"x+B c",
         "preprocess -define A=\"x+B c\n! +define+A=\"x+B c: the quote is not closed\n"},
        {"several", "-c +define+ -k",
         "analyze -k\n! -c: the simulator has no such option\n"
         "+define+: the list has no value\n-k: the operand is missing\n"},
    };
    for (const auto& row : rows) EXPECT_EQ(Converted(row.Typed, kVerilog4), row.Items) << row.Label;
}

TEST(OptionConversion, ReportsUnclosedQuotesForTheOwnSimulatorsToo) {
    EXPECT_EQ(Converted("+define+ -y \"a b", {1, LANGUAGE_VERILOG}),
              "analyze +define+\nanalyze -y\nanalyze \"a b\n! \"a b: the quote is not closed\n");
}

TEST(OptionConversion, ForcesTheWordsMeantForTheTargetToTheirTextsStage) {
    const char* text =
        "--simz_options \"-x +y\" --modelsim_options \"-t ps +nospecify\" "
        "--ncsim_options -access --activehdl_options \"a \"\"b\" -u";
    EXPECT_EQ(Converted(text, kVerilog3, STAGE_ELABORATE),
              "elaborate forced -t\nelaborate forced ps\nelaborate forced +nospecify\n"
              "analyze flag -u\n");
    EXPECT_EQ(Converted(text, kVerilog4, STAGE_SIMULATE),
              "simulate forced -access\nanalyze flag -upcase\n");
    EXPECT_EQ(Converted(text, {8, LANGUAGE_VERILOG}),
              "analyze forced \"a \"\"b\"\nanalyze flag -u\n");
}

TEST(OptionConversion, TakesUnknownTargetsForUnknownWords) {
    EXPECT_EQ(Converted("--vcs_options \"-a b\"", kVerilog3),
              "analyze --vcs_options\nanalyze \"-a b\"\n");
}

TEST(OptionConversion, ForcesNothingFromAnEmptyOperand) {
    EXPECT_EQ(Converted("--ncsim_options \"\" -lint", kVerilog4), "analyze -lint\n");
}

TEST(OptionConversion, FindsLineDebuggingInsideTheOwnSimulatorsOptions) {
    const char* text = "--simz_options \"-x +linedebug -linedebug\" --simz_options +linedebug";
    EXPECT_EQ(Converted(text, kVerilog4, STAGE_ELABORATE),
              "analyze flag -linedebug\nanalyze flag -linedebug\n");
    EXPECT_EQ(Converted(text, kVhdl3, STAGE_ELABORATE),
              "! +linedebug: the simulator has no such option\n"
              "+linedebug: the simulator has no such option\n");
    EXPECT_EQ(Converted("--modelsim_options +linedebug", kVerilog4), "");
}

TEST(OptionConversion, LeavesTheWordsOfItsOwnAndOfUnknownSimulatorsAlone) {
    const char* text =
        "+define+A++ \t+typdelays -k key.txt --simz_options \"+linedebug -x\" "
        "--modelsim_options -t --qdx_usegcc -c";
    for (const int family : {0, 1, 2, 5, 6, 7, 9, -1, 1000})
        for (const THdlLanguage language : {LANGUAGE_VERILOG, LANGUAGE_VHDL})
            EXPECT_EQ(Converted(text, {family, language}, STAGE_SIMULATE, SOURCE_RUNTIME),
                      "simulate +define+A++\nsimulate +typdelays\nsimulate -k\nsimulate key.txt\n"
                      "simulate --simz_options\nsimulate \"+linedebug -x\"\n"
                      "simulate --modelsim_options\nsimulate -t\nsimulate --qdx_usegcc\n"
                      "simulate -c\n")
                << family;
}

TEST(OptionConversion, AddsToTheResultsThatItIsGiven) {
    TConvertedOptionResults results;
    EXPECT_TRUE(
        ParseAndConvertOptions("-u", SOURCE_BUILD_OR_LINKER, 1, kVerilog4, nullptr, &results));
    EXPECT_TRUE(ParseAndConvertOptions("-u +go", SOURCE_RUNTIME, 4, kVerilog4, nullptr, &results));
    EXPECT_EQ(ItemsOf(results), "analyze flag -upcase\nanalyze flag -upcase\nsimulate +go\n");
    EXPECT_EQ(results.GetArgsForPhases(GetCompilePhasesForStage(1)), "-upcase");
}

TEST(OptionConversion, GuardsAgainstNullArguments) {
    TConvertedOptionResults results;
    EXPECT_TRUE(ParseAndConvertOptions(nullptr, SOURCE_RUNTIME, 4, kVerilog4, nullptr, &results));
    EXPECT_FALSE(ParseAndConvertOptions("-c", SOURCE_RUNTIME, 4, kVerilog4, nullptr, &results));
    EXPECT_FALSE(ParseAndConvertOptions("-u", SOURCE_RUNTIME, 4, kVerilog4, nullptr, nullptr));
    EXPECT_EQ(ItemsOf(results), "");
}
