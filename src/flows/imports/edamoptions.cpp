#include "flows/imports/edamoptions.h"
#include "flows/optiontexts.h"
#include "flows/plan/planoptions.h"
#include <algorithm>
#include <unordered_map>
#include <unordered_set>

namespace {

constexpr std::string_view kGhdlStandard = "--std=";

std::string NameOfDefine(const std::string& text) {
    return text.substr(0, text.find('='));
}

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
    AddDefines();
    for (const TWords& words : Kept)
        Tree.GetReader().KeepOption(LANGUAGE_VERILOG, words.front().Text,
                                    Tree.PlaceOf(*words.front().From),
                                    OperandsOf(words.begin(), words.end()));
}

void TEdamOptions::ReadIcarus(const TTree& tool) {
    if (!Tree.IsMap(tool)) return;
    Tree.LoseOthers(tool, {"iverilog_options"});
    Defines[LIST_ICARUS_COMMAND];
    TakeVerilogWords(WordsIn(tool, "iverilog_options"), LIST_ICARUS_COMMAND);
}

void TEdamOptions::ReadVerilator(const TTree& tool) {
    if (!Tree.IsMap(tool)) return;
    Tree.LoseOthers(tool, {"mode", "verilator_options", "run_options"});
    Mode = Tree.ValueIn(tool, "mode");
    Defines[LIST_VERILATOR];
    TakeVerilogWords(WordsIn(tool, "verilator_options"), LIST_VERILATOR);
    const TWords words = WordsIn(tool, "run_options");
    for (TWordsAt word = words.begin(); word != words.end(); ++word)
        if (word->IsPlain && IsTaken(word->Text, kWordsWithPlus))
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
    for (TWordsAt word = words.begin(); word != words.end();) {
        const TListOption* const option = FindListOption(word->Text, tool);
        if (tool == LIST_ICARUS_COMMAND && TakeIcarusWord(*word))
            ++word;
        else if (option && option->Meaning != MEANS_OPTION)
            word = TakeOption(*option, word, words.end(), tool);
        else
            word = TakeUnknown(word, words.end(), tool, &kept);
    }
    MergeKept(std::move(kept));
}

TEdamOptions::TWordsAt TEdamOptions::TakeUnknown(TWordsAt word, TWordsAt end, TListTool tool,
                                                 std::vector<TWords>* kept) {
    const TListOption* const option = FindListOption(word->Text, tool);
    const TWordsAt behind = word + (HasOperand(word, end, option) ? 2 : 1);
    const bool isPlain = std::all_of(word, behind, [](const TWord& each) { return each.IsPlain; });
    const TToolWords& known = tool == LIST_VERILATOR ? kWordsOfVerilator : kWordsOfIcarus;
    if (isPlain && (option || IsTaken(word->Text, known)))
        kept->emplace_back(word, behind);
    else
        Lose(word, behind);
    return behind;
}

bool TEdamOptions::TakeIcarusWord(const TWord& word) {
    const std::optional<TSimProjectDelayType> delay = FindIcarusDelay(word.Text);
    if (delay) Tree.GetReader().SettingsOf(LANGUAGE_VERILOG).Delay = delay;
    const char* const year = FindVerilogYear(word.Text);
    if (year) SetYear(year, word);
    return delay || year;
}

void TEdamOptions::SetYear(const std::string& year, const TWord& word) {
    VerilogYear = {year, Tree.PlaceOf(*word.From)};
}

TEdamOptions::TWordsAt TEdamOptions::TakeOption(const TListOption& option, TWordsAt word,
                                                TWordsAt end, TListTool tool) {
    if (option.Meaning == MEANS_SYSTEM_VERILOG) {
        SetYear(kSystemVerilogYear, *word);
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
        for (const std::string& each : ValuesOfList(value))
            Take(option.Meaning, {each, word->From, true}, tool);
    else
        Take(option.Meaning, {value, word->From, true}, tool);
    return behind;
}

// Directories are searched in their order, which is one for both tools.
bool TEdamOptions::IsNew(TListMeaning meaning, const TWord& value, TListTool tool) {
    const std::string key = std::to_string(meaning) + value.Text;
    if (!TakenOf[tool].insert(key).second) return false;
    const auto [place, isNew] = Taken.try_emplace(key, Taken.size());
    std::size_t& last = LastTaken[{tool, meaning}];
    const bool isFolder = meaning == MEANS_LIBRARY_FOLDER || meaning == MEANS_INCLUDE_FOLDER;
    if (isFolder && place->second < last)
        Tree.LoseOnce("the order of the directories of both Verilog tools", *value.From);
    last = std::max(last, place->second);
    return isNew;
}

void TEdamOptions::Take(TListMeaning meaning, const TWord& value, TListTool tool) {
    if (meaning == MEANS_DEFINE) return Defines[tool].push_back(value);
    if (!IsNew(meaning, value, tool)) return;
    TImportReader& reader = Tree.GetReader();
    const TImportPlace place = Tree.PlaceOf(*value.From);
    TImportedSettings& settings = reader.SettingsOf(LANGUAGE_VERILOG);
    switch (meaning) {
        case MEANS_INCLUDE_FOLDER:
            return Tree.AddIncludeDirectory(LANGUAGE_VERILOG, value.Text, *value.From);
        case MEANS_LIBRARY_FOLDER:
            return settings.LibraryDirectories.push_back({Tree.PathOf(value.Text), place});
        case MEANS_LIBRARY_EXTENSION:
            return settings.LibraryExtensions.push_back({value.Text, place});
        case MEANS_TOP:
            return reader.AddTop({LANGUAGE_VERILOG, "", value.Text, ""}, place);
        case MEANS_LIBRARY_FILE:
            return LibraryFiles.push_back(value);
        case MEANS_DEFINE:
        case MEANS_LIST:
        case MEANS_LIST_BESIDE:
        case MEANS_UNIT_LIST:
        case MEANS_SYSTEM_VERILOG:
        case MEANS_MINIMUM_DELAYS:
        case MEANS_TYPICAL_DELAYS:
        case MEANS_MAXIMUM_DELAYS:
        case MEANS_DELAYS:
        case MEANS_LIBRARY:
        case MEANS_END_OF_LIBRARY:
        case MEANS_OPTION:
            return;  // are taken elsewhere, or no words of these tools
    }
}

// What one tool has a define for, the other one has not, once it is a define of the build.
void TEdamOptions::AddDefines() {
    const bool isForBoth = Defines.size() == 2;
    const TWords icarus = LastOfNames(Defines[LIST_ICARUS_COMMAND]);
    const TWords verilator = LastOfNames(Defines[LIST_VERILATOR]);
    std::unordered_map<std::string, std::string> ofIcarus;
    std::unordered_map<std::string, std::string> ofVerilator;
    for (const TWord& define : icarus) ofIcarus[NameOfDefine(define.Text)] = define.Text;
    for (const TWord& define : verilator) ofVerilator[NameOfDefine(define.Text)] = define.Text;
    const auto lose = [this](const TWord& define, const char* tool) {
        Tree.Lose("the define " + define.Text + " of " + tool + " alone", *define.From);
    };
    for (const TWord& define : icarus) {
        Tree.GetReader().AddDefine(define.Text, Tree.PlaceOf(*define.From));
        if (isForBoth && !ofVerilator.contains(NameOfDefine(define.Text)))
            lose(define, "Icarus Verilog");
    }
    for (const TWord& define : verilator) {
        const auto same = ofIcarus.find(NameOfDefine(define.Text));
        if (same == ofIcarus.end())
            Tree.GetReader().AddDefine(define.Text, Tree.PlaceOf(*define.From));
        if (isForBoth && (same == ofIcarus.end() || same->second != define.Text))
            lose(define, "Verilator");
    }
}

// A tool takes the last one of a name.
TEdamOptions::TWords TEdamOptions::LastOfNames(const TWords& defines) {
    TWords last;
    std::unordered_set<std::string> known;
    for (auto define = defines.rbegin(); define != defines.rend(); ++define)
        if (known.insert(NameOfDefine(define->Text)).second) last.push_back(*define);
    std::reverse(last.begin(), last.end());
    return last;
}

// GHDL takes no operands.
void TEdamOptions::TakeGhdlWords(const TWords& words, TPlanStep step) {
    for (TWordsAt word = words.begin(); word != words.end(); ++word) {
        const std::string year = word->Text.starts_with(kGhdlStandard)
                                     ? FindVhdlStandard(word->Text.substr(kGhdlStandard.size()))
                                     : std::string();
        if (!year.empty()) {
            Tree.GetReader().SetStandard(LANGUAGE_VHDL, year, Tree.PlaceOf(*word->From));
            VhdlYear = year;
        } else if (!word->IsPlain || !IsTaken(word->Text, kWordsOfGhdl)) {
            Lose(word, word + 1);
        } else {
            const auto keep =
                step == STEP_ANALYSE ? &TImportReader::KeepOption : &TImportReader::KeepRunOption;
            (Tree.GetReader().*keep)(LANGUAGE_VHDL, word->Text, Tree.PlaceOf(*word->From), {});
        }
    }
}

// An operand that is known to be one may look like an option.
bool TEdamOptions::HasOperand(TWordsAt word, TWordsAt end, const TListOption* option) const {
    if (word + 1 == end) return false;
    if (option) return option->Form != FORM_ALONE && word->Text == option->Name;
    return MayHaveOperand(word->Text) &&
           TImportReader::MayBeOperand((word + 1)->Text, Tree.GetFolder());
}

std::vector<std::string> TEdamOptions::OperandsOf(TWordsAt word, TWordsAt end) {
    std::vector<std::string> operands;
    for (TWordsAt next = word + 1; next != end; ++next) operands.push_back(next->Text);
    return operands;
}

void TEdamOptions::Lose(TWordsAt word, TWordsAt end) {
    std::vector<std::string> words{word->Text};
    for (const std::string& operand : OperandsOf(word, end)) words.push_back(operand);
    Tree.Lose("the option " + TextOfOption(words), *word->From);
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
    for (const TWord& file : LibraryFiles)
        if (file.Text.ends_with(".sv") || file.Text.ends_with(".svh")) hasSystemVerilogFile = true;
    if (VerilogYear.Text.empty() ||
        (VerilogYear.Text == kSystemVerilogYear && hasSystemVerilogFile))
        return;
    Tree.GetReader().SetStandard(LANGUAGE_VERILOG, VerilogYear.Text, VerilogYear.Place);
}

void TEdamOptions::AddLibraryFiles() {
    for (const TWord& file : LibraryFiles)
        Tree.GetReader().AddSource(
            {Tree.PathOf(file.Text), LANGUAGE_VERILOG, "", true, Tree.PlaceOf(*file.From)});
}

void TEdamOptions::CheckMode(bool hasVerilogFile, bool hasProgram) {
    if (!Mode) return;
    const bool hasVerilog = hasVerilogFile || !LibraryFiles.empty();
    const std::string_view own = hasVerilog && !hasProgram ? "binary" : "cc";
    if (Mode->Text != own) Tree.Lose("the mode " + Mode->Text + " of Verilator", *Mode);
}
