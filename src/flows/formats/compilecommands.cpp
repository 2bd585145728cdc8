#include "flows/formats/exportwriter.h"
#include "flows/formats/formatwriters.h"
#include "flows/trees/json.h"

namespace {

bool IsCompiled(const TPlanSource& source) {
    return source.Language == LANGUAGE_CPLUSPLUS || source.Language == LANGUAGE_SYSTEMC;
}

/// What stands before the name of a source.
std::vector<std::string> CommandOf(THdlLanguage language, const TExportWriter& writer) {
    const TPlanSettings& settings = writer.SettingsOf(language);
    // No compiler takes the extension of SystemC for one of its own.
    std::vector<std::string> words{"c++"};
    if (language == LANGUAGE_SYSTEMC) words.insert(words.end(), {"-x", "c++"});
    for (const std::string& folder : settings.IncludeDirectories)
        words.push_back("-I" + writer.PathOf(folder));
    for (const TScanDefine& define : settings.Defines) words.push_back("-D" + TextOf(define));
    const std::vector<std::string>& options = settings.Options[STEP_ANALYSE];
    words.insert(words.end(), options.begin(), options.end());
    words.emplace_back("-c");
    return words;
}

// A root keeps its delimiter: "C:" alone is the current folder of a drive.
std::string WithoutDelimiter(const std::string& folder) {
    if (folder.empty()) return folder;
    const bool isRoot = folder.find('/') == folder.size() - 1 &&
                        (folder.size() == 1 || folder[folder.size() - 2] == ':');
    return isRoot ? folder : folder.substr(0, folder.size() - 1);
}

}  // namespace

// Paths are relative to the directory that each entry names.
TExported WriteCompileCommands(const TExportRequest& request) {
    TExportWriter writer(request, "compile-commands");
    TJson commands = TJson::Array();
    const std::string& folder = request.Folder.empty() ? request.Plan.Folder : request.Folder;
    for (const TPlanSource& source : request.Plan.Sources) {
        if (!IsCompiled(source)) continue;
        std::vector<std::string> words = CommandOf(source.Language, writer);
        for (const std::string& word : words) writer.Utf8Of(word);
        words.push_back(writer.WordOf(source.Path));
        commands.Add({{"directory", writer.Utf8Of(WithoutDelimiter(folder))},
                      {"arguments", words},
                      {"file", writer.Utf8Of(writer.PathOf(source.Path))}});
    }
    writer.AddLine(commands.Dump(2));
    writer.LoseOtherLanguages({LANGUAGE_CPLUSPLUS, LANGUAGE_SYSTEMC});
    for (const THdlLanguage language : {LANGUAGE_CPLUSPLUS, LANGUAGE_SYSTEMC}) {
        if (!writer.SettingsOf(language).LibraryDirectories.empty())
            writer.Lose("library directories");
        writer.LoseOptions(language, {STEP_ANALYSE});
    }
    return writer.Take();
}
