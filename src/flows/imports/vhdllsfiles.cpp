#include "flows/filepatterns.h"
#include "flows/imports/formatreaders.h"
#include "flows/imports/listvariables.h"
#include "flows/imports/treeimport.h"
#include "flows/plan/planoptions.h"
#include "flows/scan/asciicase.h"
#include <algorithm>
#include <unordered_set>

namespace {

/// What a library leaves out.
struct TExcluded {
    std::unordered_set<std::string> Paths;  ///< whole, in small letters
    std::vector<std::string> Patterns;

    bool IsMeant(const std::string& path) const {
        return Paths.contains(FoldAscii(std::string_view(path))) ||
               std::any_of(Patterns.begin(), Patterns.end(), [&path](const std::string& pattern) {
                   return MatchesFilePattern(pattern, path);
               });
    }
};

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
    void AddFiles(const TTree& value, const std::string& library, const TExcluded& excluded);

    TTreeImport& Tree;
};

void TVhdlLsReader::Read() {
    const TTree& root = Tree.GetRoot();
    Tree.LoseOthers(root, {"standard", "libraries"}, {"lint"});
    if (const TTree* const standard = Tree.ValueIn(root, "standard")) ReadStandard(*standard);
    for (const TTree& library : Tree.MapIn(root, "libraries"))
        if (Tree.IsMap(library)) ReadLibrary(library);
}

void TVhdlLsReader::ReadStandard(const TTree& standard) {
    const std::string year = FindVhdlStandard(standard.Text);
    if (!year.empty())
        return Tree.GetReader().SetStandard(LANGUAGE_VHDL, year, Tree.PlaceOf(standard));
    Tree.Fail("the standard " + standard.Text, standard);
}

void TVhdlLsReader::ReadLibrary(const TTree& library) {
    Tree.LoseOthers(library, {"files", "exclude"}, {"is_third_party"});
    TExcluded excluded;
    for (const TTree& value : Tree.ListIn(library, "exclude")) {
        if (!IsText(value)) continue;
        std::string pattern = PatternOf(value);
        if (IsFilePattern(pattern))
            excluded.Patterns.push_back(std::move(pattern));
        else
            excluded.Paths.insert(FoldAscii(std::string_view(pattern)));
    }
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
                             const TExcluded& excluded) {
    const std::string pattern = PatternOf(value);
    std::vector<std::string> paths;
    if (IsFilePattern(pattern)) {
        for (const TFoundSource& found :
             Tree.GetReader().FindPattern(pattern, value.Text, LANGUAGE_VHDL, Tree.PlaceOf(value)))
            paths.push_back(Tree.PathOf(found.Path));
    } else {
        paths.push_back(pattern);
    }
    std::erase_if(paths, [&](const std::string& path) { return excluded.IsMeant(path); });
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
