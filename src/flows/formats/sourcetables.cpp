#include "flows/formats/exportwriter.h"
#include "flows/formats/formatwriters.h"
#include "flows/formats/maketext.h"
#include <map>

namespace {

/// What a library map reads as it is written.
bool IsPlainPath(std::string_view path) {
    return !path.empty() && !HasAny(path, " \t\n\r\"',;*?\\$") &&
           path.find("//") == std::string_view::npos && path.find("...") == std::string_view::npos;
}

const char* FileSetOf(THdlLanguage language) {
    if (language == LANGUAGE_VHDL) return "VHDL";
    return language == LANGUAGE_VERILOG ? "VLOG" : nullptr;
}

// A quote within a quoted field is doubled.
std::string CsvField(const std::string& text) {
    if (!HasAny(text, ",\" \n\r") && !text.empty()) return text;
    std::string field = "\"";
    for (const char c : text) {
        if (c == '"') field += '"';
        field += c;
    }
    return field + '"';
}

void LoseAllSettings(TExportWriter* writer) {
    for (const TPlanSettings& settings : writer->GetPlan().Settings) {
        writer->LoseDirectories(settings.Language);
        if (!settings.Standard.empty()) writer->Lose("the language standard");
        writer->LoseOptions(settings.Language, {});
    }
    writer->LoseLibraryFiles();
    writer->LoseDelays();
}

}  // namespace

// A field cannot be quoted: what would end it is refused.
TExported WriteBlueprint(const TExportRequest& request) {
    TExportWriter writer(request, "blueprint");
    for (const TPlanSource& source : request.Plan.Sources) {
        const char* const set = FileSetOf(source.Language);
        if (!set) continue;
        if (HasAny(source.Path, "\t\n\r"))
            writer.Refuse(source.Path, "a tabulator or line end ends the field");
        else
            writer.AddLine(std::string(set) + "\t" + source.Library + "\t" + source.Path);
    }
    writer.LoseOtherLanguages({LANGUAGE_VHDL, LANGUAGE_VERILOG});
    LoseAllSettings(&writer);
    return writer.Take();
}

TExported WriteVunitTable(const TExportRequest& request) {
    TExportWriter writer(request, "vunit-csv");
    for (const TPlanSource& source : request.Plan.Sources)
        if (FileSetOf(source.Language))
            writer.AddLine(CsvField(writer.Utf8Of(source.Library)) + "," +
                           CsvField(writer.Utf8Of(writer.PathOf(source.Path))));
    writer.LoseOtherLanguages({LANGUAGE_VHDL, LANGUAGE_VERILOG});
    LoseAllSettings(&writer);
    return writer.Take();
}

TExported WriteDepfile(const TExportRequest& request) {
    TExportWriter writer(request, "depfile");
    const auto nameOf = [&writer](const std::string& name) {
        if (const char* const complaint = MakeComplaint(name)) writer.Refuse(name, complaint);
        return MakeName(name);
    };
    std::string rule = nameOf(request.Plan.Name) + ":";
    for (const TPlanSource& source : request.Plan.Sources)
        rule.append(" \\\n  ").append(nameOf(writer.PathOf(source.Path)));
    writer.AddLine(rule);
    writer.LoseLibraries({LANGUAGE_VHDL, LANGUAGE_VERILOG});
    LoseAllSettings(&writer);
    return writer.Take();
}

TExported WriteLibraryMap(const TExportRequest& request) {
    TExportWriter writer(request, "libmap");
    std::string folders;
    const auto take = [&writer](const std::string& path, const char* before, std::string* text) {
        const std::string name = writer.PathOf(path);
        if (IsPlainPath(name))
            text->append(text->empty() ? "" : ",").append(before).append(name);
        else
            writer.Refuse(name, "a library map reads one of its characters as something else");
    };
    const TPlanSettings& settings = writer.SettingsOf(LANGUAGE_VERILOG);
    for (const std::string& folder : settings.IncludeDirectories) take(folder, " ", &folders);
    std::map<std::string, std::string> libraries;
    for (const TPlanSource& source : request.Plan.Sources)
        if (source.Language == LANGUAGE_VERILOG)
            take(source.Path, "\n  ", &libraries[source.Library]);
    const std::string end = folders.empty() ? ";" : "\n  -incdir" + folders + ";";
    for (const auto& [library, files] : libraries)
        writer.AddLine(std::string("library ").append(library).append(files).append(end));
    if (!settings.LibraryDirectories.empty()) writer.Lose("library directories");
    if (!settings.Defines.empty()) writer.Lose("defines");
    writer.LoseLibraryFiles();
    writer.LoseDelays();
    writer.LoseOtherLanguages({LANGUAGE_VERILOG});
    writer.LoseOptions(LANGUAGE_VERILOG, {});
    return writer.Take();
}
