#include "flows/filepatterns.h"
#include "flows/imports/formatreaders.h"
#include "flows/imports/listvariables.h"
#include "flows/imports/treeimport.h"
#include "flows/sourcesearch.h"
#include <algorithm>

namespace {

struct TServerYear {
    std::string_view Name;
    const char* Year;
};

constexpr TServerYear kServerYears[] = {{"93", "1993"},   {"08", "2008"},   {"19", "2019"},
                                        {"1993", "1993"}, {"2008", "2008"}, {"2019", "2019"}};

/// Reads a configuration of the server.
class TVhdlLsReader {
public:
    explicit TVhdlLsReader(TTreeImport* tree) : Tree(*tree) {}

    void Read();

private:
    void ReadStandard(const TTree& standard);
    void ReadLibrary(const TTree& library);
    bool IsText(const TTree& value) const;
    /// With the values of its variables, whole.
    std::string PatternOf(const TTree& value);
    void AddFiles(const TTree& value, const std::string& library,
                  const std::vector<std::string>& excluded);

    TTreeImport& Tree;
};

void TVhdlLsReader::Read() {
    const TTree& root = Tree.GetRoot();
    Tree.LoseOthers(root, {"standard", "libraries"});
    if (const TTree* const standard = Tree.ValueIn(root, "standard")) ReadStandard(*standard);
    for (const TTree& library : Tree.MapIn(root, "libraries"))
        if (Tree.IsMap(library)) ReadLibrary(library);
}

void TVhdlLsReader::ReadStandard(const TTree& standard) {
    for (const TServerYear& known : kServerYears)
        if (known.Name == standard.Text)
            return Tree.GetReader().SetStandard(LANGUAGE_VHDL, known.Year, Tree.PlaceOf(standard));
    Tree.Fail("the standard " + standard.Text, standard);
}

void TVhdlLsReader::ReadLibrary(const TTree& library) {
    Tree.LoseOthers(library, {"files", "exclude"});
    std::vector<std::string> excluded;
    for (const TTree& pattern : Tree.ListIn(library, "exclude"))
        if (IsText(pattern)) excluded.push_back(PatternOf(pattern));
    for (const TTree& pattern : Tree.ListIn(library, "files"))
        if (IsText(pattern)) AddFiles(pattern, library.Key, excluded);
}

bool TVhdlLsReader::IsText(const TTree& value) const {
    if (!value.IsText()) Tree.Fail("no text", value);
    return value.IsText();
}

std::string TVhdlLsReader::PatternOf(const TTree& value) {
    std::vector<std::string> unset;
    const std::string text = WithVariables(value.Text, VARIABLES_ALL, true, &unset);
    for (const std::string& variable : unset)
        Tree.GetReader().Tell(DIAGNOSTIC_UNSET_VARIABLE, {variable}, Tree.PlaceOf(value));
    return Tree.PathOf(text);
}

void TVhdlLsReader::AddFiles(const TTree& value, const std::string& library,
                             const std::vector<std::string>& excluded) {
    const std::string pattern = PatternOf(value);
    std::vector<std::string> paths;
    if (IsFilePattern(pattern)) {
        TSourceSearch search;
        search.Excluded = excluded;
        for (const TFoundSource& found : FindSources({pattern}, search).Sources)
            if (found.Language == LANGUAGE_VHDL) paths.push_back(Tree.PathOf(found.Path));
        if (paths.empty()) Tree.Lose("the pattern " + value.Text + ", which no file has", value);
    } else if (std::none_of(excluded.begin(), excluded.end(), [&](const std::string& left) {
                   return MatchesFilePattern(left, pattern);
               })) {
        paths.push_back(pattern);
    }
    for (std::string& path : paths) {
        TImportedSource source;
        source.Path = std::move(path);
        source.Language = LANGUAGE_VHDL;
        source.Library = library;
        source.Place = Tree.PlaceOf(value);
        Tree.GetReader().AddSource(std::move(source));
    }
}

}  // namespace

void ReadVhdlLs(TImportReader& reader, const TImportFile& file) {
    TTreeImport tree(reader, file);
    if (tree.Read(ReadTomlTree, TREE_MAP)) TVhdlLsReader(&tree).Read();
}
