#include "flows/imports/formatreaders.h"
#include "flows/imports/treeimport.h"
#include "services/names/utilfilename.h"
#include <algorithm>

namespace {

bool IsOfWindows(const std::string& path) {
    return path.starts_with("\\\\") || (path.size() > 1 && path[1] == ':');
}

/// The words of a command line as a shell of POSIX takes them.
std::vector<std::string> WordsOfShell(const std::string& command) {
    std::vector<std::string> words;
    bool isInWord = false;
    char quote = 0;
    for (std::size_t at = 0; at < command.size(); ++at) {
        const char c = command[at];
        if (!quote && (c == ' ' || c == '\t' || c == '\n')) {
            isInWord = false;
            continue;
        }
        if (!isInWord) words.emplace_back();
        isInWord = true;
        const char next = at + 1 < command.size() ? command[at + 1] : '\0';
        const bool isEscaped = c == '\\' && next != '\0' && quote != '\'' &&
                               (!quote || std::string_view("\"\\$`").find(next) < 4);
        if (isEscaped)
            words.back() += command[++at];
        else if (c == quote)
            quote = 0;
        else if (!quote && (c == '"' || c == '\''))
            quote = c;
        else
            words.back() += c;
    }
    return words;
}

/// As programs of Windows take them, where a backslash is the delimiter of a path.
std::vector<std::string> WordsOfWindows(const std::string& command) {
    std::vector<std::string> words;
    bool isInWord = false;
    bool isQuoted = false;
    for (std::size_t at = 0; at < command.size(); ++at) {
        const char c = command[at];
        if (!isQuoted && (c == ' ' || c == '\t' || c == '\n')) {
            isInWord = false;
            continue;
        }
        if (!isInWord) words.emplace_back();
        isInWord = true;
        if (c == '\\' && at + 1 < command.size() && command[at + 1] == '"')
            words.back() += command[++at];
        else if (c == '"')
            isQuoted = !isQuoted;
        else
            words.back() += c;
    }
    return words;
}

std::vector<std::string> WordsOfCommand(const std::string& command, const std::string& directory) {
    const std::string program = command.substr(command.starts_with('"') ? 1 : 0);
    return IsOfWindows(directory) || IsOfWindows(program) ? WordsOfWindows(command)
                                                          : WordsOfShell(command);
}

// What stands in front of a compiler.
bool IsLauncher(const std::string& word) {
    constexpr std::string_view kLaunchers[] = {"ccache", "distcc", "icecc", "sccache"};
    const std::string name = TUtilFileName(word.c_str()).GetParts(PART_NAME);
    return std::find(std::begin(kLaunchers), std::end(kLaunchers), name) != std::end(kLaunchers);
}

/// What follows the name of an option.
enum TCommandMeaning : int {
    GIVES_FOLDER,    ///< an include directory
    GIVES_PATH,      ///< a path that the option needs
    GIVES_OUTPUT,    ///< what the compiler writes
    GIVES_LANGUAGE,  ///< the language of the source
    GIVES_WORD       ///< a word that the option needs as it is
};

struct TCommandOption {
    std::string_view Name;
    TCommandMeaning Meaning;
    bool IsJoined;  ///< what follows may stand in the same word
};

constexpr TCommandOption kCommandOptions[] = {
    {"-isystem", GIVES_PATH, true},   {"-iquote", GIVES_PATH, true},
    {"-idirafter", GIVES_PATH, true}, {"-include", GIVES_PATH, false},
    {"-imacros", GIVES_PATH, false},  {"-I", GIVES_FOLDER, true},
    {"-o", GIVES_OUTPUT, true},       {"-MF", GIVES_OUTPUT, true},
    {"-MT", GIVES_OUTPUT, true},      {"-MQ", GIVES_OUTPUT, true},
    {"-MJ", GIVES_OUTPUT, true},      {"-x", GIVES_LANGUAGE, true},
    {"-Xclang", GIVES_WORD, false},   {"-Xpreprocessor", GIVES_WORD, false},
    {"-Xlinker", GIVES_WORD, false},  {"-Xassembler", GIVES_WORD, false},
    {"-mllvm", GIVES_WORD, false},    {"-arch", GIVES_WORD, false},
    {"-target", GIVES_WORD, false},   {"--param", GIVES_WORD, false},
};

/// Those that compilers choose with "-x".
constexpr std::string_view kCompilerLanguages[] = {
    "assembler", "assembler-with-cpp", "c",   "c++",  "c++-cpp-output", "c++-header",   "c-header",
    "cuda",      "cpp-output",         "hip", "none", "objective-c",    "objective-c++"};

// Whether it writes object files and dependencies, or says that the source follows.
bool IsForOutput(const std::string& word) {
    return word == "-c" || word == "--" || word == "-MD" || word == "-MMD" || word == "-MP";
}

/// Reads the commands.
class TCompileCommands {
public:
    explicit TCompileCommands(TTreeImport* tree) : Tree(*tree) {}

    void Read(const TTree& entry);

private:
    using TOptions = std::vector<std::vector<std::string>>;  // each with what follows it
    struct TCompiled {
        TOptions Options;
        std::vector<std::string> Folders;
        bool IsToldOfFolders = false;
    };

    std::vector<std::string> WordsOf(const TTree& entry) const;
    TCompiled CompiledBy(const TTree& entry, const std::string& folder, const std::string& path);
    void AddSettings(const TTree& entry, const std::string& name, THdlLanguage language,
                     const TCompiled& compiled);

    TTreeImport& Tree;
    std::map<THdlLanguage, TCompiled> First;  // of the first source
};

THdlLanguage LanguageOfCommand(const std::string& name) {
    const THdlLanguage language = LanguageOfPath(name);
    return language == LANGUAGE_SYSTEMC ? language : LANGUAGE_CPLUSPLUS;
}

void TCompileCommands::Read(const TTree& entry) {
    if (!Tree.IsMap(entry)) return;
    Tree.LoseOthers(entry, {"directory", "file", "arguments", "command", "output"});
    const std::string name = Tree.TextIn(entry, "file");
    if (name.empty()) return Tree.Fail("an entry without a file", entry);
    const std::string folder = Tree.PathOf(Tree.TextIn(entry, "directory")) + "/";
    TImportedSource source;
    source.Path = TImportReader::WholeOf(name, folder);
    source.Language = LanguageOfCommand(name);
    source.Place = Tree.PlaceOf(entry);
    AddSettings(entry, name, source.Language, CompiledBy(entry, folder, source.Path));
    Tree.GetReader().AddSource(std::move(source));
}

std::vector<std::string> TCompileCommands::WordsOf(const TTree& entry) const {
    if (!entry.Find("arguments"))
        return WordsOfCommand(Tree.TextIn(entry, "command"), Tree.TextIn(entry, "directory"));
    std::vector<std::string> words;
    for (const TTree& word : Tree.ListIn(entry, "arguments"))
        if (Tree.IsSingle(word)) words.push_back(word.Text);
    return words;
}

/// The value of the option in `words[*at]`, or in the word behind it, which is passed over.
std::string ValueOf(const TCommandOption& option, const std::vector<std::string>& words,
                    std::size_t* at) {
    const std::string value = words[*at].substr(option.Name.size());
    return value.empty() && *at + 1 < words.size() ? words[++*at] : value;
}

bool IsCompilerLanguage(const std::string& name) {
    return std::find(std::begin(kCompilerLanguages), std::end(kCompilerLanguages), name) !=
           std::end(kCompilerLanguages);
}

const TCommandOption* FindCommandOption(const std::string& word) {
    for (const TCommandOption& option : kCommandOptions) {
        if (word == option.Name) return &option;
        if (!option.IsJoined || !word.starts_with(option.Name)) continue;
        if (option.Meaning != GIVES_LANGUAGE || IsCompilerLanguage(word.substr(option.Name.size())))
            return &option;
    }
    return nullptr;
}

/// The number of the first word behind the compiler.
std::size_t FirstArgument(const std::vector<std::string>& words) {
    if (words.empty() || !IsLauncher(words.front())) return 1;
    std::size_t at = 1;
    while (at < words.size() && words[at].starts_with('-')) ++at;
    return at + 1;
}

/// What a compiler takes the source for without "-x"; SystemC is C++ to it.
const char* LanguageForCompiler(const std::string& path) {
    return path.ends_with(".c") ? "c" : "c++";
}

// What names the compiler, the source and the output is no option of the language, and neither is
// the language that the source has anyway.
TCompileCommands::TCompiled TCompileCommands::CompiledBy(const TTree& entry,
                                                         const std::string& folder,
                                                         const std::string& path) {
    const std::vector<std::string> words = WordsOf(entry);
    TCompiled compiled;
    for (std::size_t at = FirstArgument(words); at < words.size(); ++at) {
        const std::string& word = words[at];
        const TCommandOption* const option = FindCommandOption(word);
        if (!option) {
            const bool isSource =
                !word.starts_with('-') && TImportReader::WholeOf(word, folder) == path;
            if (!isSource && !IsForOutput(word)) compiled.Options.push_back({word});
            continue;
        }
        const std::string value = ValueOf(*option, words, &at);
        const std::string name(option->Name);
        if (option->Meaning == GIVES_FOLDER)
            compiled.Folders.push_back(TImportReader::WholeOf(value, folder));
        else if (option->Meaning == GIVES_PATH)
            compiled.Options.push_back({name, TImportReader::WholeOf(value, folder)});
        else if (option->Meaning == GIVES_WORD ||
                 (option->Meaning == GIVES_LANGUAGE && value != LanguageForCompiler(path)))
            compiled.Options.push_back({name, value});
    }
    return compiled;
}

void TCompileCommands::AddSettings(const TTree& entry, const std::string& name,
                                   THdlLanguage language, const TCompiled& compiled) {
    for (const std::string& folder : compiled.Folders)
        Tree.AddIncludeDirectory(language, folder, entry);
    const auto [at, isNew] = First.try_emplace(language, compiled);
    TCompiled& first = at->second;
    if (isNew) {
        for (const std::vector<std::string>& words : first.Options)
            Tree.GetReader().KeepOption(language, words.front(), Tree.PlaceOf(entry),
                                        {words.begin() + 1, words.end()});
        return;
    }
    if (first.Options != compiled.Options) Tree.Lose("options of " + name + " alone", entry);
    if (first.Folders == compiled.Folders || first.IsToldOfFolders) return;
    first.IsToldOfFolders = true;
    Tree.GetReader().Tell(DIAGNOSTIC_IMPORTED_FOR_ALL, {"include directories of " + name},
                          Tree.PlaceOf(entry));
}

}  // namespace

void ReadCompileCommands(TImportReader& reader, const TImportFile& file) {
    TTreeImport tree(reader, file);
    if (!tree.Read(ReadJsonTree, TREE_LIST)) return;
    TCompileCommands commands(&tree);
    for (const TTree& entry : tree.GetRoot().Values) commands.Read(entry);
}
