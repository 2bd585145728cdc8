#include "services/names/environment.h"
#include "services/names/isfilename.h"
#include "tests/services/names/hostform.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::ElementsAre;
using testing::Pair;

TEST(Environment, ExpandsEachSyntax) {
    const TPseudoVariables variables = {{"A", "one"}, {"B_2", "two"}, {"_c", "three"}, {"E", ""}};
    const struct {
        const char* Text;
        const char* Expected;
        bool HasReference;
    } rows[] = {
        {"${A}", "one", true},
        {"$(A)", "one", true},
        {"$A", "one", true},
        {"%A%", "one", true},
        {"x${A}y$(B_2)z$_c/%A%w", "xoneytwozthree/onew", true},
        {"$A$B_2", "onetwo", true},
        {"$A/$B_2", "one/two", true},
        {"%A%%B_2%", "onetwo", true},
        {"[${E}]", "[]", true},
        {"100%%A%", "100%one", true},
        {"$${A}", "$one", true},
        {"$$A", "$one", true},
        {"${${A}}", "${one}", true},
        // Not well formed.
        {"", "", false},
        {"plain", "plain", false},
        {"$", "$", false},
        {"%", "%", false},
        {"%%", "%%", false},
        {"$1", "$1", false},
        {"%1%", "%1%", false},
        {"${A", "${A", false},
        {"$(A}", "$(A}", false},
        {"${}", "${}", false},
        {"${A B}", "${A B}", false},
        {"%A", "%A", false},
        {"%A B%", "%A B%", false},
        {"50% of 60%", "50% of 60%", false},
        {"${1A}", "${1A}", false},
        // Unknown: as written.
        {"${NO_SUCH_NAME}", "${NO_SUCH_NAME}", true},
        {"$(NO_SUCH_NAME)", "$(NO_SUCH_NAME)", true},
        {"$NO_SUCH_NAME/x", "$NO_SUCH_NAME/x", true},
        {"%NO_SUCH_NAME%", "%NO_SUCH_NAME%", true},
        {"%NO_SUCH_NAME%A%", "%NO_SUCH_NAME%A%", true},
        // The whole name counts, with its case.
        {"$AB", "$AB", true},
        {"$b_2", "$b_2", true},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(ResolveOrvaneEnvVariables(row.Text, &variables), row.Expected) << row.Text;
        EXPECT_EQ(HasOrvaneEnvVariable(row.Text), row.HasReference) << row.Text;
    }
}

TEST(Environment, TakesNullForNothing) {
    EXPECT_EQ(ResolveOrvaneEnvVariables(nullptr, nullptr), "");
    EXPECT_EQ(ResolveOrvaneEnvVariables("$NO_SUCH_NAME", nullptr), "$NO_SUCH_NAME");
    EXPECT_FALSE(HasOrvaneEnvVariable(nullptr));
    std::string value = "before";
    EXPECT_FALSE(GetEnvironmentVariableText(nullptr, &value));
    EXPECT_FALSE(GetEnvironmentVariableText("", &value));
    EXPECT_EQ(value, "before");
}

TEST(Environment, LooksAtPseudoVariablesFirst) {
    const EnvironmentValue process("HDLBUILDFILE_TEST", "from the process");
    const TPseudoVariables variables = {{"HDLBUILDFILE_TEST", "from the build"}};
    EXPECT_EQ(ResolveOrvaneEnvVariables("$HDLBUILDFILE_TEST"), "from the process");
    EXPECT_EQ(ResolveOrvaneEnvVariables("$HDLBUILDFILE_TEST", &variables), "from the build");
}

TEST(Environment, TakesAnEmptyVariableOfTheProcessAsNotSet) {
    std::string value = "before";
    const EnvironmentValue removed("HDLBUILDFILE_TEST", nullptr);
    EXPECT_FALSE(GetEnvironmentVariableText("HDLBUILDFILE_TEST", &value));
    const EnvironmentValue empty("HDLBUILDFILE_TEST", "");
    EXPECT_FALSE(GetEnvironmentVariableText("HDLBUILDFILE_TEST", &value));
    EXPECT_EQ(value, "before");
    EXPECT_EQ(ResolveOrvaneEnvVariables("$HDLBUILDFILE_TEST"), "$HDLBUILDFILE_TEST");
    const EnvironmentValue set("HDLBUILDFILE_TEST", "x");
    EXPECT_TRUE(GetEnvironmentVariableText("HDLBUILDFILE_TEST", &value));
    EXPECT_EQ(value, "x");
    EXPECT_TRUE(GetEnvironmentVariableText("HDLBUILDFILE_TEST", nullptr));
}

TEST(Environment, ExpandsValuesInTurnButNoNameInsideItself) {
    const TPseudoVariables variables = {
        {"ROOT", "/r"},        {"LIB", "$ROOT/lib"},   {"BOTH", "$LIB:%LIB%"},
        {"SELF", "<$SELF>"},   {"PING", "ping $PONG"}, {"PONG", "pong ${PING}"},
        {"OPEN", "${"},        {"X", "x $Y x"},        {"Y", "y $Z y"},
        {"Z", "z $X $Y $Z z"},
    };
    const struct {
        const char* Text;
        const char* Expected;
    } rows[] = {
        {"$LIB/v", "/r/lib/v"},
        {"$BOTH", "/r/lib:/r/lib"},
        {"$SELF $SELF", "<$SELF> <$SELF>"},
        {"$PING", "ping pong ${PING}"},
        {"$PONG", "pong ping $PONG"},
        {"$X", "x y z $X $Y $Z z y x"},
        // A reference does not begin in a value and end behind it.
        {"${OPEN}ROOT}", "${ROOT}"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(ResolveOrvaneEnvVariables(row.Text, &variables), row.Expected) << row.Text;
}

TEST(Environment, ExpandsALongChainOfVariables) {
    constexpr int kLength = 50'000;
    TPseudoVariables variables;
    for (int i = 0; i < kLength; ++i)
        variables["V" + std::to_string(i)] = "$V" + std::to_string(i + 1);
    variables["V" + std::to_string(kLength)] = "end";
    EXPECT_EQ(ResolveOrvaneEnvVariables("[$V0]", &variables), "[end]");
    variables["V" + std::to_string(kLength)] = "$V0";
    EXPECT_EQ(ResolveOrvaneEnvVariables("[$V0]", &variables), "[$V0]");
}

TEST(Environment, LimitsWhatValuesInsert) {
    TPseudoVariables variables;
    // Two references each: the last one would be inserted 2^60 times.
    for (int i = 0; i < 60; ++i) {
        const std::string next = "$V" + std::to_string(i + 1);
        variables["V" + std::to_string(i)] = next + next;
    }
    variables["V60"] = "";
    EXPECT_LE(ResolveOrvaneEnvVariables("$V0", &variables).size(), 10 * kMostExpandedNames);
    variables["V60"] = std::string(1'000'000, 'x');
    EXPECT_LE(ResolveOrvaneEnvVariables("$V0", &variables).size(), 2 * kLongestExpansion);
    variables["V0"] = std::string(kLongestExpansion + 1, 'x');
    EXPECT_EQ(ResolveOrvaneEnvVariables("$V0", &variables), "$V0");
    variables["V0"].pop_back();
    EXPECT_EQ(ResolveOrvaneEnvVariables("[$V0]$V0", &variables), "[" + variables["V0"] + "]$V0");
}

TEST(Environment, ExpandsEachTextOfAVector) {
    const TPseudoVariables variables = {{"A", "one"}};
    EXPECT_THAT(ResolveOrvaneEnvVariables(std::vector<std::string>{"$A", "", "b"}, &variables),
                ElementsAre("one", "", "b"));
}

TEST(Environment, AddsThePseudoVariablesOfAFile) {
    TPseudoVariables variables = {{"P_DIR", "old"}, {"Q", "kept"}};
    const ISFileName* const file = ISFileName::NewISFileName("C:/p/q/fifo.tb.v");
    AddPseudoEnvironmentVariablesForFilename(&variables, file, "P");
    EXPECT_THAT(variables, ElementsAre(Pair("P_DIR", "C:\\p\\q\\"), Pair("P_EXT", ".v"),
                                       Pair("P_NAME", "fifo.tb"),
                                       Pair("P_PATH", "C:\\p\\q\\fifo.tb.v"), Pair("Q", "kept")));
    const TPseudoVariables before = variables;
    AddPseudoEnvironmentVariablesForFilename(&variables, nullptr, "P");
    AddPseudoEnvironmentVariablesForFilename(&variables, file, nullptr);
    AddPseudoEnvironmentVariablesForFilename(nullptr, file, "P");
    EXPECT_EQ(variables, before);
}

}  // namespace
