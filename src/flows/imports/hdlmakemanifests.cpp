#include "flows/imports/formatreaders.h"
#include "flows/imports/importreader.h"
#include "flows/imports/pythonliterals.h"
#include <deque>

namespace {

/// A manifest whose modules are being read.
struct TOpenManifest {
    TImportFile File;
    std::vector<TImportedText> Modules;  // folders
    std::size_t Next = 0;
    std::string Library = "work";
    std::vector<TImportedText> Files;
    std::vector<TImportedText> Tops;
};

/// Reads a manifest and those of its local modules.
class THdlmakeReader {
public:
    explicit THdlmakeReader(TImportReader* reader) : Reader(*reader) {}

    void Read(const TImportFile& file);

private:
    struct TVariable {
        std::string_view Name;
        void (THdlmakeReader::*Take)(const TPythonText& text, const TImportPlace& place);
    };
    static const TVariable kVariables[];

    void Open(TImportFile file);
    void TakeStatement(const TPythonStatement& statement);
    void EnterModule(const TImportedText& module);

    void TakeFile(const TPythonText& text, const TImportPlace& place) {
        Manifests.back().Files.push_back({text.Text, place});
    }
    void TakeLibrary(const TPythonText& text, const TImportPlace&) {
        Manifests.back().Library = text.Text;
    }
    void TakeModule(const TPythonText& text, const TImportPlace& place);
    void TakeTop(const TPythonText& text, const TImportPlace& place) {
        Manifests.back().Tops.push_back({text.Text, place});
    }
    void TakeIncludeFolder(const TPythonText& text, const TImportPlace& place);
    void TakeVerilogOptions(const TPythonText& text, const TImportPlace& place);
    void TakeVhdlOptions(const TPythonText& text, const TImportPlace& place);
    void TakeAction(const TPythonText& text, const TImportPlace& place);

    TImportReader& Reader;
    std::deque<TOpenManifest> Manifests;
};

const THdlmakeReader::TVariable THdlmakeReader::kVariables[] = {
    {"action", &THdlmakeReader::TakeAction},
    {"files", &THdlmakeReader::TakeFile},
    {"include_dirs", &THdlmakeReader::TakeIncludeFolder},
    {"library", &THdlmakeReader::TakeLibrary},
    {"modules", &THdlmakeReader::TakeModule},
    {"sim_top", &THdlmakeReader::TakeTop},
    {"top_module", &THdlmakeReader::TakeTop},
    {"vcom_opt", &THdlmakeReader::TakeVhdlOptions},
    {"vlog_opt", &THdlmakeReader::TakeVerilogOptions},
};

void THdlmakeReader::Read(const TImportFile& file) {
    Open(file);
    while (!Manifests.empty()) {
        TOpenManifest& manifest = Manifests.back();
        if (manifest.Next < manifest.Modules.size()) {
            EnterModule(manifest.Modules[manifest.Next++]);
            continue;
        }
        Manifests.pop_back();
        if (!Manifests.empty()) Reader.Leave();
    }
}

void THdlmakeReader::Open(TImportFile file) {
    Manifests.push_back({std::move(file), {}, 0, "work", {}, {}});
    TOpenManifest& manifest = Manifests.back();
    TPythonStatements statements(manifest.File.Text);
    TPythonStatement statement;
    while (statements.Next(&statement)) TakeStatement(statement);
    if (statements.GetFault())
        Reader.Fail(statements.GetFault(), {manifest.File.Name, statement.Line, 0});
    for (const TImportedText& each : manifest.Files) {
        TImportedSource source;
        source.Path = TImportReader::WholeOf(each.Text, manifest.File.Folder);
        source.Library = manifest.Library;
        source.Place = each.Place;
        Reader.AddSource(std::move(source));
    }
    for (const TImportedText& top : manifest.Tops)
        Reader.AddTop({LANGUAGE_NONE, manifest.Library, top.Text, ""}, top.Place);
}

void THdlmakeReader::TakeStatement(const TPythonStatement& statement) {
    const std::string& file = Manifests.back().File.Name;
    const TImportPlace place{file, statement.Line, 0};
    // A text alone is a comment.
    if (statement.Name.empty() && statement.IsLiteral) return;
    for (const TVariable& variable : kVariables) {
        if (variable.Name != statement.Name || !statement.IsLiteral) continue;
        for (const TPythonText& text : statement.Texts)
            (this->*variable.Take)(text, {file, text.Line, 0});
        return;
    }
    Reader.Lose(statement.IsLiteral ? "the variable " + statement.Name
                                    : "the statement that begins with '" + statement.Name + "'",
                place);
}

void THdlmakeReader::EnterModule(const TImportedText& module) {
    const std::string folder = TImportReader::WholeOf(module.Text, Manifests.back().File.Folder);
    TImportFile file;
    const std::string path = TImportReader::CanonicalOf("Manifest.py", folder + "/");
    if (Reader.Enter(path, "", "", module.Place, &file)) Open(std::move(file));
}

void THdlmakeReader::TakeModule(const TPythonText& text, const TImportPlace& place) {
    if (text.Key == "local")
        Manifests.back().Modules.push_back({text.Text, place});
    else
        Reader.Lose("the module " + text.Text + " of " + text.Key, place);
}

void THdlmakeReader::TakeIncludeFolder(const TPythonText& text, const TImportPlace& place) {
    Reader.SettingsOf(LANGUAGE_VERILOG)
        .IncludeDirectories.push_back(
            {TImportReader::WholeOf(text.Text, Manifests.back().File.Folder), place});
}

void THdlmakeReader::TakeVerilogOptions(const TPythonText& text, const TImportPlace& place) {
    Reader.TakeOptions(LANGUAGE_VERILOG, text.Text, Manifests.back().File.Folder, place);
}

void THdlmakeReader::TakeVhdlOptions(const TPythonText& text, const TImportPlace& place) {
    Reader.TakeOptions(LANGUAGE_VHDL, text.Text, Manifests.back().File.Folder, place);
}

// A build is for simulation.
void THdlmakeReader::TakeAction(const TPythonText& text, const TImportPlace& place) {
    if (text.Text != "simulation") Reader.Lose("the action " + text.Text, place);
}

}  // namespace

void ReadHdlmakeManifest(TImportReader& reader, const TImportFile& file) {
    THdlmakeReader(&reader).Read(file);
}
