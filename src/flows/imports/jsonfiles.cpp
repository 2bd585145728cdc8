#include "flows/imports/formatreaders.h"
#include "flows/imports/treeimport.h"
#include "flows/plan/planoptions.h"

namespace {

void ReadHdlPrjFile(const TTree& file, TTreeImport* tree) {
    if (!tree->IsMap(file)) return;
    tree->LoseOthers(file, {"file", "language", "library"});
    const std::string name = tree->TextIn(file, "file");
    const std::string language = tree->TextIn(file, "language");
    if (name.empty()) return tree->Fail("a file without a name", file);
    TImportedSource source;
    source.Path = tree->PathOf(name);
    source.Library = tree->TextIn(file, "library");
    source.Place = tree->PlaceOf(file);
    source.Language = language.empty() || language == "vhdl" ? LANGUAGE_VHDL : LANGUAGE_VERILOG;
    if (source.Language == LANGUAGE_VERILOG && language != "verilog")
        return tree->Lose("the file " + name + " in the language " + language, file);
    tree->GetReader().AddSource(std::move(source));
}

// What chooses the standard is taken as one; a library is that of a source.
void ReadGhdlWord(const TTree& word, TTreeImport* tree) {
    constexpr std::string_view kStandard = "--std=";
    if (!tree->IsSingle(word)) return;
    const std::string year = word.Text.starts_with(kStandard)
                                 ? FindVhdlStandard(word.Text.substr(kStandard.size()))
                                 : std::string();
    if (year.empty()) return tree->AddOption(LANGUAGE_VHDL, word.Text, word);
    tree->GetReader().SetStandard(LANGUAGE_VHDL, year, tree->PlaceOf(word));
}

void ReadBenderGroup(const TTree& group, TTreeImport* tree) {
    if (!tree->IsMap(group)) return;
    tree->LoseOthers(group, {"package", "independent", "include_dirs", "defines", "files",
                             "dependencies", "version"});
    for (const TTree& folder : tree->ListIn(group, "include_dirs"))
        if (tree->IsSingle(folder))
            tree->AddIncludeDirectory(LANGUAGE_VERILOG, folder.Text, folder);
    for (const TTree& define : tree->MapIn(group, "defines")) {
        const bool isNull = define.Kind == TREE_NULL;
        if (isNull || tree->IsSingle(define))
            tree->GetReader().AddDefine(isNull ? define.Key : define.Key + "=" + define.Text,
                                        tree->KeyPlaceOf(define));
    }
    for (const TTree& file : tree->ListIn(group, "files")) {
        if (!tree->IsSingle(file)) continue;
        TImportedSource source;
        source.Path = tree->PathOf(file.Text);
        source.Place = tree->PlaceOf(file);
        tree->GetReader().AddSource(std::move(source));
    }
}

/// Whether the groups have the same under a key.
bool IsSameInAll(const std::vector<TTree>& groups, std::string_view key) {
    const auto textOf = [key](const TTree& group) {
        std::string text;
        if (const TTree* const values = group.Find(key))
            for (const TTree& value : values->Values)
                text.append(value.Key).append("=").append(value.Text).append("\n");
        return text;
    };
    for (const TTree& group : groups)
        if (textOf(group) != textOf(groups.front())) return false;
    return true;
}

}  // namespace

void ReadHdlPrj(TImportReader& reader, const TImportFile& file) {
    TTreeImport tree(reader, file);
    if (!tree.Read(ReadJsonTree, TREE_MAP)) return;
    tree.LoseOthers(tree.GetRoot(), {"options", "files"});
    const TTree* const options = tree.GetRoot().Find("options");
    if (options && options->Kind != TREE_NULL && tree.IsMap(*options)) {
        tree.LoseOthers(*options, {"ghdl_analysis"});
        for (const TTree& word : tree.ListIn(*options, "ghdl_analysis")) ReadGhdlWord(word, &tree);
    }
    for (const TTree& entry : tree.ListIn(tree.GetRoot(), "files")) ReadHdlPrjFile(entry, &tree);
}

void ReadVunitJson(TImportReader& reader, const TImportFile& file) {
    TTreeImport tree(reader, file);
    if (!tree.Read(ReadJsonTree, TREE_MAP)) return;
    const TTree* const version = tree.GetRoot().Find("export_format_version");
    const std::string major =
        version && tree.IsMap(*version) ? tree.TextIn(*version, "major") : std::string();
    if (major != "1") tree.Fail("the version " + major + " of an export of VUnit", tree.GetRoot());
    for (const TTree& entry : tree.ListIn(tree.GetRoot(), "files")) {
        if (!tree.IsMap(entry)) continue;
        tree.LoseOthers(entry, {"file_name", "library_name"});
        const std::string name = tree.TextIn(entry, "file_name");
        if (name.empty()) tree.Fail("a file without a name", entry);
        TImportedSource source;
        source.Path = tree.PathOf(name);
        source.Library = tree.TextIn(entry, "library_name");
        source.Place = tree.PlaceOf(entry);
        if (!name.empty()) reader.AddSource(std::move(source));
    }
    tree.LoseOthers(tree.GetRoot(), {"export_format_version", "files"}, {"tests"});
}

// A build has its defines for all sources of a language.
void ReadBender(TImportReader& reader, const TImportFile& file) {
    TTreeImport tree(reader, file);
    if (!tree.Read(ReadJsonTree, TREE_LIST)) return;
    for (const TTree& group : tree.GetRoot().Values) ReadBenderGroup(group, &tree);
    if (!IsSameInAll(tree.GetRoot().Values, "defines"))
        tree.Lose("defines of some packages alone", tree.GetRoot());
    if (!IsSameInAll(tree.GetRoot().Values, "include_dirs"))
        reader.Tell(DIAGNOSTIC_IMPORTED_FOR_ALL, {"include directories of some packages"},
                    tree.PlaceOf(tree.GetRoot()));
}
