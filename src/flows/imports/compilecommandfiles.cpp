#include "flows/imports/formatreaders.h"
#include "flows/imports/treeimport.h"
#include <algorithm>

namespace {

/// The words of a command line as a shell takes them.
std::vector<std::string> WordsOfCommand(const std::string& command) {
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
        if (c == quote)
            quote = 0;
        else if (!quote && (c == '"' || c == '\''))
            quote = c;
        else if (c == '\\' && quote != '\'' && at + 1 < command.size())
            words.back() += command[++at];
        else
            words.back() += c;
    }
    return words;
}

/// Reads the commands.
class TCompileCommands {
public:
    explicit TCompileCommands(TTreeImport* tree) : Tree(*tree) {}

    void Read(const TTree& entry);

private:
    std::vector<std::string> WordsOf(const TTree& entry) const;
    void ReadWords(const TTree& entry, const std::string& folder, const std::string& name,
                   THdlLanguage language);

    TTreeImport& Tree;
    std::map<THdlLanguage, std::vector<std::string>> Options;  // of the first source
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
    ReadWords(entry, folder, name, source.Language);
    Tree.GetReader().AddSource(std::move(source));
}

std::vector<std::string> TCompileCommands::WordsOf(const TTree& entry) const {
    if (!entry.Find("arguments")) return WordsOfCommand(Tree.TextIn(entry, "command"));
    std::vector<std::string> words;
    for (const TTree& word : Tree.ListIn(entry, "arguments"))
        if (Tree.IsSingle(word)) words.push_back(word.Text);
    return words;
}

// What names the compiler, the source and the output is no option of the language.
void TCompileCommands::ReadWords(const TTree& entry, const std::string& folder,
                                 const std::string& name, THdlLanguage language) {
    const std::vector<std::string> words = WordsOf(entry);
    std::vector<std::string> options;
    for (std::size_t at = 1; at < words.size(); ++at) {
        const std::string& word = words[at];
        const bool hasNext = at + 1 < words.size();
        if (word.starts_with("-I") && (word.size() > 2 || hasNext))
            Tree.AddIncludeDirectory(
                language,
                TImportReader::WholeOf(word.size() > 2 ? word.substr(2) : words[++at], folder),
                entry);
        else if ((word == "-o" || (word == "-x" && words.back() == name)) && hasNext)
            ++at;
        else if (word != "-c" && word != name)
            options.push_back(word);
    }
    const auto [first, isNew] = Options.try_emplace(language, options);
    if (isNew)
        for (const std::string& option : options) Tree.AddOption(language, option, entry);
    else if (first->second != options)
        Tree.Lose("options of " + name + " alone", entry);
}

}  // namespace

void ReadCompileCommands(TImportReader& reader, const TImportFile& file) {
    TTreeImport tree(reader, file);
    if (!tree.Read(ReadJsonTree, TREE_LIST)) return;
    TCompileCommands commands(&tree);
    for (const TTree& entry : tree.GetRoot().Values) commands.Read(entry);
}
