#include "flows/imports/edamoptions.h"
#include "flows/optiontexts.h"
#include "flows/plan/planoptions.h"
#include "flows/plan/toolwords.h"
#include <algorithm>
#include <unordered_map>

namespace {

constexpr std::string_view kGhdlStandard = "--std=";

}  // namespace

void TEdamOptions::Read() {
    for (const TTree& tool : Tree.MapIn(Tree.GetRoot(), "tool_options")) {
        if (tool.Kind == TREE_NULL) continue;
        if (tool.Key == "icarus")
            ReadIcarus(tool);
        else if (tool.Key == "verilator")
            ReadVerilator(tool);
        else if (tool.Key == "ghdl")
            ReadGhdl(tool);
        else
            Tree.GetReader().Lose("the options of " + tool.Key, Tree.KeyPlaceOf(tool));
    }
    for (const TWords& words : Kept)
        Tree.GetReader().KeepOption(LANGUAGE_VERILOG, words.front().Text,
                                    Tree.PlaceOf(*words.front().From),
                                    OperandsOf(words.begin(), words.end()));
}

void TEdamOptions::ReadIcarus(const TTree& tool) {
    if (!Tree.IsMap(tool)) return;
    Tree.LoseOthers(tool, {"iverilog_options"});
    TakeVerilogWords(WordsIn(tool, "iverilog_options"), LIST_ICARUS_COMMAND);
}

void TEdamOptions::ReadVerilator(const TTree& tool) {
    if (!Tree.IsMap(tool)) return;
    Tree.LoseOthers(tool, {"mode", "verilator_options", "run_options"});
    Mode = Tree.ValueIn(tool, "mode");
    TakeVerilogWords(WordsIn(tool, "verilator_options"), LIST_VERILATOR);
    const TWords words = WordsIn(tool, "run_options");
    for (TWordsAt word = words.begin(); word != words.end(); ++word)
        if (word->IsPlain && BeginsWithOne(word->Text, kWordsWithPlus))
            Tree.GetReader().KeepRunOption(LANGUAGE_VERILOG, word->Text, Tree.PlaceOf(*word->From),
                                           {});
        else
            Lose(word, word + 1);
}

void TEdamOptions::ReadGhdl(const TTree& tool) {
    if (!Tree.IsMap(tool)) return;
    Tree.LoseOthers(tool, {"analyze_options", "run_options"});
    TakeGhdlWords(WordsIn(tool, "analyze_options"), STEP_ANALYSE);
    TakeGhdlWords(WordsIn(tool, "run_options"), STEP_RUN);
}

// The entries become the text of a makefile, in which a shell finds the words.
TEdamOptions::TWords TEdamOptions::WordsIn(const TTree& tool, std::string_view key) {
    TWords words;
    for (const TTree& entry : Tree.ListIn(tool, key)) {
        if (!Tree.IsSingle(entry)) continue;
        const bool isPlain = entry.Text.find_first_of("$#'`\\") == std::string::npos;
        for (std::string& word : WordsOfOptions(entry.Text))
            words.push_back({std::move(word), &entry, isPlain});
    }
    return words;
}

void TEdamOptions::TakeVerilogWords(const TWords& words, TListTool tool) {
    std::vector<TWords> kept;
    const TWordBeginnings known =
        tool == LIST_VERILATOR ? TWordBeginnings(kWordsOfVerilator) : kWordsOfIcarus;
    for (TWordsAt word = words.begin(); word != words.end();) {
        const TListOption* const option = FindListOption(word->Text, tool);
        if (tool == LIST_ICARUS_COMMAND && TakeIcarusWord(*word)) {
            ++word;
        } else if (option && option->Meaning != MEANS_OPTION) {
            word = TakeOption(*option, word, words.end());
        } else {
            const TWordsAt end = EndOfOption(word, words.end(), option);
            const bool isPlain =
                std::all_of(word, end, [](const TWord& each) { return each.IsPlain; });
            if (isPlain && BeginsWithOne(word->Text, known))
                kept.emplace_back(word, end);
            else
                Lose(word, end);
            word = end;
        }
    }
    MergeKept(std::move(kept));
}

bool TEdamOptions::TakeIcarusWord(const TWord& word) {
    const TIcarusWord* const known = FindIcarusWord(word.Text);
    if (!known) return false;
    if (known->Standard) SetYear(known->Standard, word);
    if (known->Delay) Tree.GetReader().SettingsOf(LANGUAGE_VERILOG).Delay = known->Delay;
    return true;
}

void TEdamOptions::SetYear(const std::string& year, const TWord& word) {
    VerilogYear = {year, Tree.PlaceOf(*word.From)};
}

TEdamOptions::TWordsAt TEdamOptions::TakeOption(const TListOption& option, TWordsAt word,
                                                TWordsAt end) {
    if (option.Meaning == MEANS_SYSTEM_VERILOG) {
        SetYear("2012", *word);
        return word + 1;
    }
    const bool isList = option.Form == FORM_LIST;
    const bool isNext = !isList && word->Text == option.Name;
    if (isNext && word + 1 == end) {
        Tree.Fail(word->Text + " without a value", *word->From);
        return end;
    }
    const TWordsAt behind = word + (isNext ? 2 : 1);
    std::string value = isNext ? (word + 1)->Text : word->Text.substr(option.Name.size());
    if (option.Form == FORM_EQUALS && !isNext) value.erase(0, 1);
    if (!(behind - 1)->IsPlain || option.Meaning == MEANS_LIST ||
        option.Meaning == MEANS_LIST_BESIDE)
        Lose(word, behind);
    else if (isList)
        for (const std::string& each : ValuesOfList(value)) Take(option.Meaning, each, *word);
    else
        Take(option.Meaning, value, *word);
    return behind;
}

void TEdamOptions::Take(TListMeaning meaning, const std::string& value, const TWord& word) {
    if (!Taken.insert(std::to_string(meaning) + value).second) return;
    TImportReader& reader = Tree.GetReader();
    const TImportPlace place = Tree.PlaceOf(*word.From);
    TImportedSettings& settings = reader.SettingsOf(LANGUAGE_VERILOG);
    switch (meaning) {
        case MEANS_INCLUDE_FOLDER:
            return Tree.AddIncludeDirectory(LANGUAGE_VERILOG, value, *word.From);
        case MEANS_LIBRARY_FOLDER:
            settings.LibraryDirectories.push_back({Tree.PathOf(value), place});
            return;
        case MEANS_LIBRARY_EXTENSION:
            settings.LibraryExtensions.push_back({value, place});
            return;
        case MEANS_DEFINE:
            return reader.AddDefine(value, place);
        case MEANS_TOP:
            return reader.AddTop({LANGUAGE_VERILOG, "", value, ""}, place);
        default:
            return reader.AddSource({Tree.PathOf(value), LANGUAGE_VERILOG, "", true, place});
    }
}

void TEdamOptions::TakeGhdlWords(const TWords& words, TPlanStep step) {
    for (TWordsAt word = words.begin(); word != words.end();) {
        const TWordsAt end = EndOfOption(word, words.end(), nullptr);
        const std::string year = word->Text.starts_with(kGhdlStandard)
                                     ? FindVhdlStandard(word->Text.substr(kGhdlStandard.size()))
                                     : std::string();
        const bool isPlain = std::all_of(word, end, [](const TWord& each) { return each.IsPlain; });
        if (!year.empty()) {
            Tree.GetReader().SetStandard(LANGUAGE_VHDL, year, Tree.PlaceOf(*word->From));
            VhdlYear = year;
            if (word + 1 != end) Lose(word + 1, end);
        } else if (!isPlain || !BeginsWithOne(word->Text, kWordsOfGhdl)) {
            Lose(word, end);
        } else {
            const auto keep =
                step == STEP_ANALYSE ? &TImportReader::KeepOption : &TImportReader::KeepRunOption;
            (Tree.GetReader().*keep)(LANGUAGE_VHDL, word->Text, Tree.PlaceOf(*word->From),
                                     OperandsOf(word, end));
        }
        word = end;
    }
}

// An operand that is known to be one may look like an option.
TEdamOptions::TWordsAt TEdamOptions::EndOfOption(TWordsAt word, TWordsAt end,
                                                 const TListOption* option) const {
    const bool hasOperand = option && option->Form == FORM_OPERAND && word + 1 != end;
    return std::find_if(word + (hasOperand ? 2 : 1), end,
                        [](const TWord& next) { return IsOptionWord(next.Text); });
}

std::vector<std::string> TEdamOptions::OperandsOf(TWordsAt word, TWordsAt end) {
    std::vector<std::string> operands;
    for (TWordsAt next = word + 1; next != end; ++next) operands.push_back(next->Text);
    return operands;
}

void TEdamOptions::Lose(TWordsAt word, TWordsAt end) {
    std::string text = word->Text;
    for (TWordsAt next = word + 1; next != end; ++next) text.append(" ").append(next->Text);
    Tree.Lose("the option " + text, *word->From);
}

// Options of both tools stand in both lists in one order, so that each tool's list comes out again.
void TEdamOptions::MergeKept(std::vector<TWords> kept) {
    const auto textOf = [](const TWords& words) {
        std::string text;
        for (const TWord& word : words) text.append(word.Text).append("\n");
        return text;
    };
    std::unordered_map<std::string, std::vector<std::size_t>> places;
    for (std::size_t at = 0; at < Kept.size(); ++at) places[textOf(Kept[at])].push_back(at);
    std::vector<TWords> merged;
    std::size_t next = 0;
    const auto takeUpTo = [&](std::size_t end) {
        while (next < end) merged.push_back(std::move(Kept[next++]));
    };
    for (TWords& words : kept) {
        const std::vector<std::size_t>& same = places[textOf(words)];
        const auto place = std::lower_bound(same.begin(), same.end(), next);
        if (place == same.end())
            merged.push_back(std::move(words));
        else
            takeUpTo(*place + 1);
    }
    takeUpTo(Kept.size());
    Kept = std::move(merged);
}

void TEdamOptions::SetVerilogYear(bool hasSystemVerilogFile) {
    if (VerilogYear.Text.empty() || (VerilogYear.Text == "2012" && hasSystemVerilogFile)) return;
    Tree.GetReader().SetStandard(LANGUAGE_VERILOG, VerilogYear.Text, VerilogYear.Place);
}

void TEdamOptions::CheckMode(bool hasVerilog, bool hasProgram) {
    if (!Mode) return;
    const std::string_view own = hasVerilog && !hasProgram ? "binary" : "cc";
    if (Mode->Text != own) Tree.Lose("the mode " + Mode->Text + " of Verilator", *Mode);
}
