#include "flows/formats/exportwriter.h"
#include "flows/formats/formatwriters.h"
#include "flows/formats/tomltext.h"

namespace {

// A blank at an end and what begins a comment or an option would be read as something else.
const char* VeribleComplaint(std::string_view name) {
    if (name.find_first_of("\n\r") != std::string_view::npos) return "a line holds one name";
    if (name.empty() || name.starts_with(' ') || name.ends_with(' '))
        return "blanks at the ends of a line are lost";
    if (name.starts_with('#') || name.starts_with("//")) return "it reads as a comment";
    return name.starts_with('+') || name.starts_with('-') ? "it reads as an option" : nullptr;
}

/// Adds a line unless its name cannot be held.
void AddItem(const char* option, const std::string& name, TExportWriter* writer) {
    if (const char* const complaint = VeribleComplaint(name))
        writer->Refuse(name, complaint);
    else
        writer->AddLine(option + name);
}

}  // namespace

TExported WriteVeribleList(const TExportRequest& request) {
    TExportWriter writer(request, "verible");
    const TPlanSettings& settings = writer.SettingsOf(LANGUAGE_VERILOG);
    for (const std::string& folder : settings.IncludeDirectories)
        AddItem("+incdir+", writer.PathOf(folder), &writer);
    // The server drops a define without a value.
    for (const TScanDefine& define : settings.Defines)
        if (define.Value.empty())
            writer.Lose("the define " + define.Name + " without a value");
        else
            AddItem("+define+", TextOf(define), &writer);
    for (const TPlanSource& source : request.Plan.Sources)
        if (source.Language == LANGUAGE_VERILOG) AddItem("", writer.PathOf(source.Path), &writer);
    if (!settings.LibraryDirectories.empty()) writer.Lose("library directories");
    writer.LoseLibraries({LANGUAGE_VERILOG});
    writer.LoseLibraryFiles();
    writer.LoseOtherLanguages({LANGUAGE_VERILOG});
    writer.LoseOptions(LANGUAGE_VERILOG, {});
    return writer.Take();
}

// The server finds sources by itself.
TExported WriteSvls(const TExportRequest& request) {
    TExportWriter writer(request, "svls");
    const TPlanSettings& settings = writer.SettingsOf(LANGUAGE_VERILOG);
    writer.AddLine("[verilog]");
    writer.AddLine("include_paths = [");
    for (const std::string& folder : settings.IncludeDirectories)
        writer.AddLine("  " + TomlText(writer.Utf8Of(writer.PathOf(folder))) + ",");
    writer.AddLine("]");
    if (!settings.Defines.empty()) writer.Lose("defines");
    if (!settings.LibraryDirectories.empty()) writer.Lose("library directories");
    writer.LoseOtherLanguages({LANGUAGE_VERILOG});
    writer.LoseOptions(LANGUAGE_VERILOG, {});
    return writer.Take();
}
