#include "flows/formats/exportwriter.h"
#include "flows/formats/formatwriters.h"
#include "flows/formats/tomltext.h"
#include <map>

namespace {

// The server reads these as patterns and variables.
bool IsPattern(std::string_view path) {
    return path.find_first_of("*?[$%") != std::string_view::npos;
}

}  // namespace

TExported WriteVhdlLs(const TExportRequest& request) {
    TExportWriter writer(request, "vhdl-ls");
    const std::string& standard = writer.SettingsOf(LANGUAGE_VHDL).Standard;
    std::map<std::string, std::string> libraries;
    for (const TPlanSource& source : request.Plan.Sources) {
        if (source.Language != LANGUAGE_VHDL) continue;
        if (IsPattern(source.Path)) writer.Refuse(source.Path, "it reads as a pattern");
        // The server has no library of this name: it is the one that a file is in.
        const std::string library = source.Library == "work" ? "work_lib" : source.Library;
        libraries[library] += "  " + TomlText(writer.Utf8Of(writer.PathOf(source.Path))) + ",\n";
    }
    if (libraries.contains("work_lib")) writer.Lose("the library name work");
    if (standard == "1993" || standard == "2008" || standard == "2019")
        writer.AddLine("standard = " + TomlText(standard));
    else if (!standard.empty())
        writer.Lose("the standard " + standard);
    writer.AddLine("[libraries]");
    for (const auto& [library, files] : libraries)
        writer.AddLine(TomlText(writer.Utf8Of(library)) + ".files = [\n" + files + "]");
    writer.LoseOtherLanguages({LANGUAGE_VHDL});
    writer.LoseOptions(LANGUAGE_VHDL, {});
    return writer.Take();
}
