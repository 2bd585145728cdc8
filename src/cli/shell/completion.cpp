#include "cli/shell/completion.h"
#include "cli/frame/tooloptions.h"
#include "cli/shell/argumentkinds.h"
#include "cli/shell/offerednames.h"
#include <string_view>
#include <unordered_set>

namespace {

constexpr std::string_view kWordsMark = "--";

TArgument ArgumentOf(const TToolOption& option) {
    static bool flag = false;
    static std::string text;
    if (*option.Value) return {option.Names, &text, option.Description};
    return {option.Names, &flag, option.Description};
}

/// Those that no command has.
const std::vector<TArgument>& VersionArguments() {
    static const std::vector<TArgument> arguments = {
        ArgumentOf(kVersionOption), ArgumentOf(kVerboseOption), ArgumentOf(kVersionJsonOption)};
    return arguments;
}

const TArgument& HelpArgument() {
    static const TArgument argument = ArgumentOf(kLongHelpOption);
    return argument;
}

const std::vector<TArgument>& CommonArguments() {
    static const std::vector<TArgument> arguments = {HelpArgument(), ArgumentOf(kQuietOption),
                                                     ArgumentOf(kSizeOption)};
    return arguments;
}

bool TakesValue(const TArgument& argument) {
    return std::holds_alternative<std::string*>(argument.Value) || MayBeRepeated(argument);
}

/// The last of the names of an option, "-o,--output", which is its longest.
std::string LongName(const TArgument& argument) {
    const std::string_view names = argument.Name;
    const std::size_t comma = names.rfind(',');
    return std::string(comma == std::string_view::npos ? names : names.substr(comma + 1));
}

bool HasName(const TArgument& argument, std::string_view word) {
    std::string_view names = argument.Name;
    for (std::size_t comma = names.find(','); comma != std::string_view::npos;
         comma = names.find(',')) {
        if (names.substr(0, comma) == word) return true;
        names.remove_prefix(comma + 1);
    }
    return names == word;
}

/// Follows a command line word by word.
class TWordsWalk {
public:
    explicit TWordsWalk(const std::vector<TCommand>& commands)
        : Commands(commands), Level(&commands) {}

    void Take(const std::string& word);
    TCompletion Complete(const std::string& word) const;

private:
    const TArgument* FindOption(std::string_view word) const;
    const TArgument* NextPlace() const;
    const TCommand* FindCommand(const std::string& word) const;
    void Enter(const TCommand& command);
    void TakeValue(const TArgument& argument, const std::string& word);
    void AddNames(const TArgument& argument, const std::string& word,
                  TCompletion* completion) const;
    void AddWords(const std::string& word, TCompletion* completion) const;
    void AddOptions(const std::string& word, TCompletion* completion) const;
    void AddCommands(const std::string& word, TCompletion* completion) const;

    const std::vector<TCommand>& Commands;
    const std::vector<TCommand>* Level;  // the commands or verbs that may come next; null: none
    std::string Command;                 // its words
    std::vector<const TArgument*> Arguments;
    const TArgument* Open = nullptr;  // whose value comes next
    std::string Words;                // the name of those behind the arguments; "": there are none
    TGivenValues Given;
    bool IsBehindMark = false;
};

void TWordsWalk::Take(const std::string& word) {
    if (IsBehindMark) {
        Given.try_emplace(Words, word);
    } else if (Open) {
        TakeValue(*Open, word);
        Open = nullptr;
    } else if (word == kWordsMark) {
        IsBehindMark = true;
    } else if (word.size() > 1 && word[0] == '-') {
        const TArgument* const option = FindOption(word);
        if (option) Given.try_emplace(option->Name);
        if (option && TakesValue(*option)) Open = option;
        if (!option) Given.try_emplace(Words, word);
    } else if (const TArgument* const place = NextPlace(); place && !FindCommand(word)) {
        TakeValue(*place, word);
    } else if (const TCommand* const command = FindCommand(word)) {
        Enter(*command);
    } else {
        Given.try_emplace(Words, word);
        // Nothing is known of what follows an unknown command.
        if (Command.empty()) Level = nullptr;
    }
}

TCompletion TWordsWalk::Complete(const std::string& word) const {
    TCompletion completion;
    if (IsBehindMark) {
        AddWords(word, &completion);
        completion.TakesFiles = true;
    } else if (Open) {
        AddNames(*Open, word, &completion);
    } else if (word.starts_with("-")) {
        AddWords(word, &completion);
        AddOptions(word, &completion);
    } else {
        AddCommands(word, &completion);
        if (const TArgument* const place = NextPlace())
            AddNames(*place, word, &completion);
        else
            AddWords(word, &completion);
    }
    return completion;
}

const TArgument* TWordsWalk::FindOption(std::string_view word) const {
    for (const TArgument* argument : Arguments)
        if (IsOption(*argument) && HasName(*argument, word)) return argument;
    for (const TArgument& argument : CommonArguments())
        if (HasName(argument, word)) return &argument;
    return nullptr;
}

/// The argument that is found by its place and comes next; null: there is none.
const TArgument* TWordsWalk::NextPlace() const {
    for (const TArgument* argument : Arguments)
        if (!IsOption(*argument) && (MayBeRepeated(*argument) || !Given.contains(argument->Name)))
            return argument;
    return nullptr;
}

/// A verb may follow once all arguments in front of it are there.
const TCommand* TWordsWalk::FindCommand(const std::string& word) const {
    if (!Level) return nullptr;
    const TArgument* const place = NextPlace();
    if (place && place->IsRequired) return nullptr;
    for (const TCommand& command : *Level)
        if (command.Name == word) return &command;
    return nullptr;
}

void TWordsWalk::Enter(const TCommand& command) {
    Command += (Command.empty() ? "" : " ") + std::string(command.Name);
    for (const TArgument& argument : command.Arguments) Arguments.push_back(&argument);
    Level = command.Verbs.empty() ? nullptr : &command.Verbs;
    const std::string_view words = command.Words.Usage;
    Words = words.substr(0, words.find(' '));
}

void TWordsWalk::TakeValue(const TArgument& argument, const std::string& word) {
    Given[argument.Name] = word;
}

void TWordsWalk::AddNames(const TArgument& argument, const std::string& word,
                          TCompletion* completion) const {
    if (argument.Name == std::string_view(kCommandArgument)) {
        for (const TCommand& command : Commands)
            if (std::string_view(command.Name).starts_with(word))
                completion->Candidates.push_back({command.Name, command.Description});
        return;
    }
    const TOfferedNames offered = NamesFor(Command, LongName(argument), Given);
    for (const std::string& name : offered.Names)
        if (name.starts_with(word)) completion->Candidates.push_back({name, ""});
    completion->TakesFiles = offered.TakesFiles;
}

/// The first of the words: those behind it are its own.
void TWordsWalk::AddWords(const std::string& word, TCompletion* completion) const {
    if (Words.empty() || Given.contains(Words)) return;
    for (const std::string& name : NamesFor(Command, Words, Given).Names)
        if (name.starts_with(word)) completion->Candidates.push_back({name, ""});
}

void TWordsWalk::AddOptions(const std::string& word, TCompletion* completion) const {
    const auto add = [&](const TArgument& argument) {
        if (!IsOption(argument) || (Given.contains(argument.Name) && !MayBeRepeated(argument)))
            return;
        const std::string name = HasName(argument, word) ? word : LongName(argument);
        if (name.starts_with(word)) completion->Candidates.push_back({name, argument.Help});
    };
    // Those of a verb stand behind those of its command, which may be the same.
    std::unordered_set<std::string_view> met;
    for (const TArgument* argument : Arguments)
        if (met.insert(argument->Name).second) add(*argument);
    for (const TArgument& argument : CommonArguments()) add(argument);
    if (!Command.empty()) return;
    for (const TArgument& argument : VersionArguments()) add(argument);
}

void TWordsWalk::AddCommands(const std::string& word, TCompletion* completion) const {
    if (!Level) return;
    for (const TCommand& command : *Level)
        if (std::string_view(command.Name).starts_with(word) && FindCommand(command.Name))
            completion->Candidates.push_back({command.Name, command.Description});
}

}  // namespace

TCompletion CompleteWords(const std::vector<TCommand>& commands,
                          const std::vector<std::string>& words) {
    TWordsWalk walk(commands);
    for (std::size_t i = 0; i + 1 < words.size(); ++i) walk.Take(words[i]);
    return walk.Complete(words.empty() ? "" : words.back());
}
