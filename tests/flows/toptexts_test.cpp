#include "flows/toptexts.h"
#include "buildfile/hdlbuildfile.h"
#include <gtest/gtest.h>

TEST(TopTexts, ReadNamesAsTheirLanguageWritesThem) {
    const struct {
        THdlLanguage Language;
        const char* Text;
        const char* Library;
        const char* Entity;
        const char* Architecture;
        bool HasLibrary = true;
    } rows[] = {
        {LANGUAGE_VHDL, "work.counter(rtl)", "work", "counter", "rtl"},
        {LANGUAGE_VHDL, "work.counter", "work", "counter", ""},
        {LANGUAGE_VHDL, "counter(rtl)", "", "counter", "rtl", false},
        {LANGUAGE_VHDL, "counter", "", "counter", "", false},
        {LANGUAGE_VHDL, ".counter", "", "counter", ""},
        {LANGUAGE_VHDL, " my lib . counter ( rtl )", "my lib", "counter", "rtl"},
        {LANGUAGE_VHDL, "l.\\a.b(\\\\c)\\(\\(x)\\)", "l", "\\a.b(\\\\c)\\", "\\(x)\\"},
        {LANGUAGE_VHDL, "l.\\a", "l", "\\a", ""},
        {LANGUAGE_VERILOG, "l.\\a.b( (\\c) )", "l", "\\a.b( ", "\\c) "},
        {LANGUAGE_VERILOG, "l.\\a", "l", "\\a", ""},
        {LANGUAGE_SYSTEMC, "l.\\a+ b(c)", "l", "\\a+ b", "c"},
    };
    for (const auto& row : rows) {
        const TNamedTop named = ReadTop(row.Text, row.Language);
        EXPECT_EQ(named.Complaint, "") << row.Text;
        EXPECT_EQ(named.Top.Language, row.Language) << row.Text;
        EXPECT_EQ(named.Top.Library, row.Library) << row.Text;
        EXPECT_EQ(named.Top.Entity, row.Entity) << row.Text;
        EXPECT_EQ(named.Top.Architecture, row.Architecture) << row.Text;
        EXPECT_EQ(named.HasLibrary, row.HasLibrary) << row.Text;
    }
}

TEST(TopTexts, TellWhatNamesNoComponent) {
    const std::string wanted = ": LIBRARY.ENTITY or LIBRARY.ENTITY(ARCHITECTURE) is wanted";
    for (const char* const text :
         {"", "l.", "l.(a)", "(a)", "l.e(", "l.e()", "l.e(a", "l.e(a)b", "l.e.f"})
        EXPECT_EQ(ReadTop(text, LANGUAGE_VHDL).Complaint, "'" + std::string(text) + "'" + wanted);
    EXPECT_EQ(ReadTop("l.e)", LANGUAGE_VHDL).Complaint,
              "'e)' is no simple name of VHDL: as an escaped one it is written '\\e)\\'");
    EXPECT_EQ(ReadTop("l.e(1a)", LANGUAGE_VHDL).Complaint,
              "'1a' is no simple name of VHDL: as an escaped one it is written '\\1a\\'");
    EXPECT_EQ(ReadTop("l.a+b", LANGUAGE_VERILOG).Complaint,
              "'a+b' is no simple name of Verilog: as an escaped one it is written '\\a+b '");
}

TEST(TopTexts, ShowWhatIsReadBack) {
    EXPECT_EQ(TextOf({LANGUAGE_VHDL, "work", "counter", "rtl"}), "work.counter(rtl)");
    EXPECT_EQ(TextOf({LANGUAGE_VERILOG, "work", "\\a+b ", ""}), "work.\\a+b ");
    EXPECT_EQ(TextOf({LANGUAGE_VHDL, "", "counter", ""}), ".counter");
}

TEST(TopTexts, TakeTheNearestWayToReadAName) {
    const std::vector<TBuildTop> tops = {
        {LANGUAGE_VERILOG, "work", "Top", ""}, {LANGUAGE_VERILOG, "work", "top", ""},
        {LANGUAGE_VHDL, "work", "tb", "rtl"},  {LANGUAGE_VHDL, "work", "tb", ""},
        {LANGUAGE_VHDL, "la", "two", "a"},     {LANGUAGE_VHDL, "lb", "Two", ""},
        {LANGUAGE_VHDL, "LB", "two", ""},      {LANGUAGE_VHDL, "work", "\\X\\", ""},
        {LANGUAGE_VHDL, "work", "\\x\\", ""},  {LANGUAGE_VERILOG, "work", "both", ""},
        {LANGUAGE_VHDL, "work", "both", ""},   {LANGUAGE_VERILOG, "work", "Only", ""}};
    const std::string several = "several top-level components are called ";
    const struct {
        const char* Name;
        std::string Expected;
    } rows[] = {
        {"top", "work.top"},
        {"work.Top", "work.Top"},
        {"TOP", several + "'TOP': work.Top (Verilog), work.top (Verilog)"},
        {"work.tb", "work.tb"},
        {"TB", "work.tb"},
        {"work.tb(RTL)", "work.tb(rtl)"},
        {"la.two", "la.two(a)"},
        {"lb.Two", "lb.Two"},
        {"lb.TWO", several + "'lb.TWO': lb.Two (VHDL), LB.two (VHDL)"},
        {"two", several + "'two': lb.Two (VHDL), LB.two (VHDL)"},
        {"WORK.\\x\\", "work.\\x\\"},
        {"both", several + "'both': work.both (Verilog), work.both (VHDL)"},
        {"ONLY", "work.Only"},
        {"onl",
         "unknown top-level component 'onl'; known: work.Top, work.top, work.tb(rtl), work.tb, "
         "la.two(a), lb.Two, LB.two, work.\\X\\, work.\\x\\, work.both, work.both, work.Only"},
    };
    for (const auto& row : rows) {
        const TBuildTop* const top = FindTopOf(tops, row.Name);
        EXPECT_EQ(top ? TextOf(*top) : NoTopOf(tops, row.Name), row.Expected) << row.Name;
    }
}

TEST(TopTexts, TakeTheLibraryOfTheBuildWhereNoneIsNamed) {
    THdlBuildFile build;
    EXPECT_EQ(TextOf(ReadTopToAdd("tb(sim)", LANGUAGE_VHDL, build).Top), "work.tb(sim)");
    build.SetDestinationLibrary("core");
    EXPECT_EQ(TextOf(ReadTopToAdd("tb(sim)", LANGUAGE_VHDL, build).Top), "core.tb(sim)");
    EXPECT_EQ(TextOf(ReadTopToAdd("lib.tb", LANGUAGE_VHDL, build).Top), "lib.tb");
    EXPECT_EQ(ReadTopToAdd(".tb", LANGUAGE_VHDL, build).Complaint,
              "'.tb': a library is wanted in front of the point");
    EXPECT_EQ(ReadTopOf(".tb", LANGUAGE_VHDL, build).Complaint, "");
}

TEST(TopTexts, RemoveWhatIsCalledSo) {
    THdlBuildFile build;
    AddTop(build, {LANGUAGE_VHDL, "work", "tb", ""});
    AddTop(build, {LANGUAGE_VERILOG, "work", "tb", ""});
    AddTop(build, {LANGUAGE_VERILOG, "work", "other", ""});
    EXPECT_FALSE(RemoveTopsCalled("lib.tb", LANGUAGE_NONE, build));
    EXPECT_TRUE(RemoveTopsCalled("tb", LANGUAGE_VHDL, build));
    EXPECT_FALSE(RemoveTopsCalled("tb", LANGUAGE_VHDL, build));
    EXPECT_TRUE(RemoveTopsCalled("work.tb", LANGUAGE_NONE, build));
    EXPECT_EQ(FullNamesOf(ListTops(build)), std::vector<std::string>{"work.other"});
}
