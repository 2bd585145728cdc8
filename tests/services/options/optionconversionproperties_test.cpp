#include "services/options/optiontable.h"
#include "services/options/optionwords.h"
#include "tests/services/options/conversion.h"
#include <algorithm>
#include <chrono>
#include <gtest/gtest.h>
#include <random>

using namespace options;

namespace {

constexpr int kTexts = 1000;

// The same pseudo-random texts on every system: distributions differ, the engine does not.
class TextMaker {
public:
    explicit TextMaker(unsigned seed) : Engine(seed) {}

    std::size_t Below(std::size_t bound) { return Engine() % bound; }

    // Bytes 1 to 255, half of them from those that mean something.
    std::string Bytes() {
        static const std::string special = "\"\" \t\n++--=/\\_ydefsz";
        std::string text(Below(40), ' ');
        for (char& c : text)
            c = Below(2) ? special[Below(special.size())] : static_cast<char>(1 + Below(255));
        return text;
    }

    // Words that no option begins with, some quoted or empty, between options and blanks of all
    // kinds; so few that they repeat. None is an option's operand. `*unknown` becomes the words.
    std::string WordsAmongOptions(std::vector<std::string>* unknown) {
        static const std::vector<std::string> options = {"+define+A=1+B",
                                                         "-y lib",
                                                         "+maxdelays",
                                                         "-u",
                                                         "-w",
                                                         "-s",
                                                         "-93",
                                                         "--simz_options \"+linedebug a\"",
                                                         "-k key",
                                                         "-l log",
                                                         "+libext+.v",
                                                         "--ncsim_options -access"};
        static const std::vector<std::string> unknownWords = {
            "-Q", "+Q", "Q", "\"a b\"Q", "\"a b\"", "\"\"", "-lint", "-64", "x+y"};
        std::string text;
        for (std::size_t count = Below(12); count > 0; --count) {
            text += std::string(1 + Below(3), " \t\n"[Below(3)]);
            if (Below(2)) {
                text += options[Below(options.size())];
                continue;
            }
            unknown->push_back(unknownWords[Below(unknownWords.size())]);
            text += unknown->back();
        }
        return text;
    }

private:
    std::mt19937 Engine;
};

std::string AllOutputs(const TConvertedOptionResults& results) {
    const TCompilePhases all = GetCompilePhasesForStage(7);
    std::string text;
    for (const std::string& part :
         {results.GetArgsForPhases(all), results.GetElaboratorArgs(), results.GetSimulatorArgs(),
          results.GetForcedArgsForPhases(all), results.GetForcedElaboratorArgs(),
          results.GetForcedSimulatorArgs()})
        text += part + " ";
    return text;
}

TConvertedOptionResults ConvertFor(int family, const std::string& text, int stage) {
    TConvertedOptionResults results;
    const auto source = stage == STAGE_SIMULATE ? SOURCE_RUNTIME : SOURCE_BUILD_OR_LINKER;
    ParseAndConvertOptions(text.c_str(), source, stage, {family, LANGUAGE_VERILOG}, nullptr,
                           &results);
    return results;
}

// The text with every run of blanks outside quotes as one blank, none at the ends.
std::string WithBlanksReduced(const std::string& text) {
    std::string reduced;
    bool quoted = false;
    bool pending = false;
    for (const char c : text) {
        if (!quoted && (c == ' ' || c == '\t' || c == '\n' || c == '\r')) {
            pending = !reduced.empty();
            continue;
        }
        if (pending) reduced += ' ';
        pending = false;
        if (c == '"') quoted = !quoted;
        reduced += c;
    }
    return reduced;
}

std::ptrdiff_t Quotes(const std::string& text) {
    return std::count(text.begin(), text.end(), '"');
}

}  // namespace

TEST(OptionConversionProperties, EveryUnknownWordComesOutAsOftenAsItWasTyped) {
    TextMaker maker(1);
    for (int i = 0; i < kTexts; ++i)
        for (const int family : {0, 1, 3, 4, 8}) {
            std::vector<std::string> unknown;
            const std::string text = maker.WordsAmongOptions(&unknown);
            const int stage = 1 << maker.Below(3);
            const auto words = SplitIntoWords(AllOutputs(ConvertFor(family, text, stage))).Words;
            for (const auto& word : unknown)
                ASSERT_EQ(std::count(words.begin(), words.end(), word),
                          std::count(unknown.begin(), unknown.end(), word))
                    << word << " in " << testing::PrintToString(text);
        }
}

TEST(OptionConversionProperties, TheOwnSimulatorsGetTheTextWithBlanksReduced) {
    TextMaker maker(2);
    for (int i = 0; i < kTexts; ++i) {
        const std::string text = maker.Bytes();
        for (const int family : {0, 1, 2, 7}) {
            ASSERT_EQ(ConvertFor(family, text, 1).GetArgsForPhases(GetCompilePhasesForStage(1)),
                      WithBlanksReduced(text))
                << testing::PrintToString(text);
            ASSERT_EQ(ConvertFor(family, text, 2).GetElaboratorArgs(), WithBlanksReduced(text));
            ASSERT_EQ(ConvertFor(family, text, 4).GetSimulatorArgs(), WithBlanksReduced(text));
        }
    }
}

TEST(OptionConversionProperties, ArbitraryBytesLoseNoQuotesUnlessTheirOptionIsLeftOut) {
    TextMaker maker(3);
    int kept = 0;
    for (int i = 0; i < 10 * kTexts; ++i) {
        const std::string text = maker.Bytes();
        for (const int family : {3, 4, 8}) {
            RecordingErrors errors;
            TConvertedOptionResults results;
            ParseAndConvertOptions(text.c_str(), SOURCE_BUILD_OR_LINKER, 1,
                                   {family, LANGUAGE_VERILOG}, &errors, &results);
            if (errors.Lines.find("no such option") != std::string::npos) continue;
            if (errors.Lines.find("no value") != std::string::npos) continue;
            ++kept;
            ASSERT_EQ(Quotes(AllOutputs(results)), Quotes(text)) << testing::PrintToString(text);
        }
    }
    EXPECT_GT(kept, 20 * kTexts);
}

TEST(OptionConversionProperties, ConvertedTextsConvertToThemselves) {
    TextMaker maker(4);
    for (int i = 0; i < kTexts; ++i)
        for (const int family : {3, 4}) {
            std::vector<std::string> unknown;
            const std::string text = maker.WordsAmongOptions(&unknown);
            const auto once = ConvertFor(family, text, 2).GetElaboratorArgs();
            ASSERT_EQ(ConvertFor(family, once, 2).GetElaboratorArgs(), once)
                << testing::PrintToString(text);
        }
}

TEST(OptionConversionProperties, LongTextsTakeLinearTime) {
    std::string text;
    for (int i = 0; i < 30000; ++i) text += "-u +define+A -lint ";
    const auto start = std::chrono::steady_clock::now();
    const TConvertedOptionResults results = ConvertFor(4, text, 1);
    EXPECT_EQ(results.GetItems().size(), 90000U);
    EXPECT_EQ(results.GetArgsForPhases({PHASE_ANALYZE}).size(), 8U + 30000U * 6U - 1U);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
}
