#include "flows/formats/exportwriter.h"
#include "flows/formats/formatwriters.h"
#include <map>

namespace {

std::string PythonText(std::string_view text) {
    constexpr char kHex[] = "0123456789abcdef";
    std::string quoted = "\"";
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < ' ' || byte == 0x7F) {
            quoted.append("\\x").append(1, kHex[byte / 16]).append(1, kHex[byte % 16]);
            continue;
        }
        if (c == '"' || c == '\\') quoted += '\\';
        quoted += c;
    }
    return quoted + '"';
}

/// Writes run.py.
class TVunitScript {
public:
    explicit TVunitScript(const TExportRequest& request) : Writer(request, "vunit") {}

    TExported Write();

private:
    void AddHead();
    void AddSource(const std::string& library, const TPlanSource& source);
    bool IsMixed() const;
    std::string VerilogArguments();
    std::string PythonTextOf(const std::string& name) { return PythonText(Writer.Utf8Of(name)); }

    TExportWriter Writer;
    bool IsGuarded = false;  ///< Verilog is added where the simulator compiles it
    std::string Verilog;     ///< the arguments of its sources
};

TExported TVunitScript::Write() {
    IsGuarded = IsMixed();
    AddHead();
    std::map<std::string, std::string> libraries;
    Verilog = VerilogArguments();
    for (const TPlanSource& source : Writer.GetPlan().Sources) {
        if (source.Language != LANGUAGE_VHDL && source.Language != LANGUAGE_VERILOG) continue;
        // VUnit has no library of this name.
        const std::string name = source.Library == "work" ? "work_lib" : source.Library;
        if (source.Library == "work") Writer.Lose("the library name work");
        auto [library, isNew] = libraries.try_emplace(name);
        if (isNew) {
            library->second = "library_" + std::to_string(libraries.size());
            Writer.AddLine(library->second + " = project.add_library(" + PythonTextOf(name) + ")");
        }
        AddSource(library->second, source);
    }
    Writer.AddLine("");
    Writer.AddLine("project.main()");
    Writer.LoseOtherLanguages({LANGUAGE_VHDL, LANGUAGE_VERILOG});
    for (const TPlanSettings& settings : Writer.GetPlan().Settings)
        Writer.LoseOptions(settings.Language, {});
    if (!Writer.SettingsOf(LANGUAGE_VERILOG).LibraryDirectories.empty())
        Writer.Lose("library directories");
    Writer.LoseVerilogStandard();
    Writer.LoseLibraryFiles();
    Writer.LoseDelays();
    return Writer.Take();
}

void TVunitScript::AddHead() {
    const std::string& standard = Writer.SettingsOf(LANGUAGE_VHDL).Standard;
    Writer.AddLine("from pathlib import Path");
    Writer.AddLine("");
    Writer.AddLine("from vunit import VUnit");
    Writer.AddLine("");
    Writer.AddLine("root = Path(__file__).resolve().parent");
    Writer.AddLine("project = VUnit.from_argv(vhdl_standard=" +
                   PythonText(standard.empty() ? "2008" : standard) + ")");
    Writer.AddLine("project.add_vhdl_builtins()");
    if (!IsGuarded) return;
    Writer.AddLine("# GHDL and NVC compile the VHDL part alone.");
    Writer.AddLine("has_verilog = project.get_simulator_name() not in (\"ghdl\", \"nvc\")");
}

void TVunitScript::AddSource(const std::string& library, const TPlanSource& source) {
    const bool isVerilog = source.Language == LANGUAGE_VERILOG;
    Writer.AddLine((isVerilog && IsGuarded ? "if has_verilog: " : "") + library +
                   ".add_source_file(root / " + PythonTextOf(Writer.PathOf(source.Path)) +
                   (isVerilog ? Verilog : "") + ")");
}

// VUnit refuses a project with files that its simulator cannot compile.
bool TVunitScript::IsMixed() const {
    return Writer.HasSources(LANGUAGE_VHDL) && Writer.HasSources(LANGUAGE_VERILOG);
}

std::string TVunitScript::VerilogArguments() {
    const TPlanSettings& settings = Writer.SettingsOf(LANGUAGE_VERILOG);
    std::string arguments;
    std::string folders;
    for (const std::string& folder : settings.IncludeDirectories)
        folders += (folders.empty() ? "str(root / " : ", str(root / ") +
                   PythonTextOf(Writer.PathOf(folder)) + ")";
    if (!folders.empty()) arguments += ", include_dirs=[" + folders + "]";
    std::string defines;
    for (const TScanDefine& define : settings.Defines)
        defines += (defines.empty() ? "" : ", ") + PythonTextOf(define.Name) + ": " +
                   PythonTextOf(define.Value);
    if (!defines.empty()) arguments += ", defines={" + defines + "}";
    return arguments;
}

}  // namespace

TExported WriteVunitScript(const TExportRequest& request) {
    return TVunitScript(request).Write();
}
