#include "flows/formats/exportwriter.h"
#include "flows/formats/formatwriters.h"
#include <algorithm>

namespace {

bool HasAny(std::string_view text, std::string_view characters) {
    return text.find_first_of(characters) != std::string_view::npos;
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
        if (!settings.IncludeDirectories.empty()) writer->Lose("include directories");
        if (!settings.LibraryDirectories.empty()) writer->Lose("library directories");
        if (!settings.Defines.empty()) writer->Lose("defines");
        if (!settings.Standard.empty()) writer->Lose("the language standard");
        writer->LoseOptions(settings.Language, {});
    }
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
            writer.AddLine(CsvField(source.Library) + "," + CsvField(writer.PathOf(source.Path)));
    writer.LoseOtherLanguages({LANGUAGE_VHDL, LANGUAGE_VERILOG});
    LoseAllSettings(&writer);
    return writer.Take();
}
