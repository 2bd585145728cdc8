// Properties of the options in build files, over random texts.
#include "services/options/optionwords.h"
#include "settings/projectsimlanguageconfig.h"
#include "tests/settings/settingstext.h"
#include "tests/settings/writtenoptions.h"
#include "tests/support/recorders.h"
#include <algorithm>
#include <cstdlib>
#include <gtest/gtest.h>
#include <map>
#include <random>
#include <set>

namespace {

constexpr unsigned kSeed = 20260711;

/// How many texts are tried; HDLBUILDFILE_OPTION_TEXTS gives another number for a longer run.
int TextCount() {
    const char* const given = std::getenv("HDLBUILDFILE_OPTION_TEXTS");
    return given ? std::atoi(given) : 20000;
}

using TWordCounts = std::map<std::string, int>;

/// The same pseudo-random texts on every system: distributions differ, the engine does not.
class OptionTextMaker {
public:
    std::size_t Below(std::size_t bound) { return Engine() % bound; }

    /// Options and unknown words from short lists, so that words repeat in a text and among texts;
    /// now and then no word at all, and blanks of all kinds. `*unknown` gains the unknown words.
    std::string Make(std::set<std::string>* unknown) {
        std::string text = Blanks();
        for (std::size_t count = Below(8); count > 0; --count) {
            const bool isKnown = Below(2) == 0;
            text += isKnown ? kOptions[Below(std::size(kOptions))] : UnknownWord(unknown);
            text += " " + Blanks();
        }
        if (Below(2) == 0) text.resize(text.find_last_not_of(" \t\n") + 1);
        return text;
    }

private:
    // Every option with its operand; each gives the same text again when it is read back.
    static constexpr const char* kOptions[] = {"+define+A=1+B",
                                               "-y lib",
                                               "-y -novopt",
                                               "+maxdelays",
                                               "-u",
                                               "-w",
                                               "-s",
                                               "-93",
                                               "-k key",
                                               "-l \"a log\"",
                                               "+libext+.v+",
                                               "+incdir+a+b",
                                               "-f f.f",
                                               "-work \"\"",
                                               "+librescan",
                                               "-i run.do",
                                               "+pulse_r/20",
                                               "+delay_mode_path",
                                               "--qdx_usegcc",
                                               "+define+_DEBUG",
                                               "--simz_options \"+linedebug a\""};
    static constexpr const char* kUnknown[] = {"-novopt", "-lint", "-64", "lib", "\"\"",
                                               "\"a b\"", "-t ns", "A",   "x+y", "-Q=\" \""};

    std::string UnknownWord(std::set<std::string>* unknown) {
        const std::string words = kUnknown[Below(std::size(kUnknown))];
        for (const std::string& word : options::SplitIntoWords(words).Words) unknown->insert(word);
        return words;
    }

    std::string Blanks() {
        const std::size_t count = Below(3);
        return std::string(count, " \t\n"[Below(3)]);
    }

    std::mt19937 Engine{kSeed};
};

struct TRandomRun {
    TOptionTexts Typed;
    std::set<std::string> Unknown;
    TSimulatorType Simulator;
    THdlLanguage Language;
};

TRandomRun MakeRun(OptionTextMaker& maker, int number) {
    TRandomRun run;
    run.Simulator = static_cast<TSimulatorType>(number % 31);
    run.Language = number / 31 % 2 == 0 ? LANGUAGE_VERILOG : LANGUAGE_VHDL;
    run.Typed.Build = maker.Make(&run.Unknown);
    run.Typed.Linker = maker.Below(4) == 0 ? "" : maker.Make(&run.Unknown);
    run.Typed.Runtime = maker.Make(&run.Unknown);
    return run;
}

TProjectSimLanguageConfig Configured(const TRandomRun& run) {
    TProjectSimLanguageConfig settings;
    settings.SetTool(run.Simulator);
    SetOptions(settings, run.Typed);
    return settings;
}

// Their build options gain the linker options without being converted: every word of the latter is
// written in both texts, and once more with each further write.
constexpr int kMergedAsTyped[] = {8, 9, 14, 15, 16, 17};

bool IsMergedAsTyped(int simulator) {
    return std::find(std::begin(kMergedAsTyped), std::end(kMergedAsTyped), simulator) !=
           std::end(kMergedAsTyped);
}

TWordCounts CountsIn(const TOptionTexts& texts) {
    TWordCounts counts;
    for (const std::string& text : {texts.Build, texts.Linker, texts.Runtime})
        for (const std::string& word : options::SplitIntoWords(text).Words) ++counts[word];
    return counts;
}

/// Which unknown words come out more or less often than they were typed; "" when none does.
/// Operands that are spelled like one count on both sides: the options that have them are passed
/// on.
std::string WrongCounts(const TRandomRun& run, const TOptionTexts& written) {
    TOptionTexts typed = run.Typed;
    if (IsMergedAsTyped(run.Simulator)) typed.Build += " " + typed.Linker;
    TWordCounts expected = CountsIn(typed);
    TWordCounts found = CountsIn(written);
    std::string wrong;
    for (const std::string& word : run.Unknown)
        if (found[word] != expected[word])
            wrong += word + ": " + std::to_string(found[word]) + ", not " +
                     std::to_string(expected[word]) + "\n";
    return wrong;
}

std::string TextOf(const TRandomRun& run) {
    return std::to_string(run.Simulator) + "/" + GetStringFromHdlLanguage(run.Language) + " " +
           testing::PrintToString(TextOf(run.Typed));
}

}  // namespace

// Every unknown word comes out as often as it was typed, also with line debugging; a second write
// gives the same texts; and so does a write of what is read back.
TEST(LanguageOptionProperties, NoWordIsLostOrGainedAndRepeatedWritesAgree) {
    const CppCompiler compiler("cl");
    const RecordingLog log;  // of the writes without a simulator
    OptionTextMaker maker;
    const int count = TextCount();
    for (int i = 0; i < count; ++i) {
        const TRandomRun run = MakeRun(maker, i);
        TProjectSimLanguageConfig settings = Configured(run);
        const bool lineDebug = maker.Below(4) == 0;
        const TOptionTexts first = WrittenOptions(settings, run.Language, lineDebug ? "D" : "");
        ASSERT_EQ(WrongCounts(run, first), "") << i << ": " << TextOf(run) << TextOf(first);
        if (lineDebug || IsMergedAsTyped(run.Simulator)) continue;

        ASSERT_EQ(TextOf(WrittenOptions(settings, run.Language, "")), TextOf(first))
            << i << ": " << TextOf(run);
        SetOptions(settings, first);
        ASSERT_EQ(TextOf(WrittenOptions(settings, run.Language, "")), TextOf(first))
            << i << ": " << TextOf(run);
    }
}
