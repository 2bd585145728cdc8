#include "flows/formats/exportwriter.h"
#include "flows/formats/formatwriters.h"
#include "flows/scan/sourcetext.h"
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

std::string WithoutDelimiter(const std::string& folder) {
    return folder.size() > 1 ? folder.substr(0, folder.size() - 1) : folder;
}

}  // namespace

// Paths are relative to the directory that each entry names.
TExported WriteCompileCommands(const TExportRequest& request) {
    TExportWriter writer(request, "compile-commands");
    TJson commands = TJson::Array();
    const std::string& folder = request.Folder.empty() ? request.Plan.Folder : request.Folder;
    for (const TPlanSource& source : request.Plan.Sources) {
        if (!IsCompiled(source)) continue;
        const std::string name = writer.PathOf(source.Path);
        std::vector<std::string> words = CommandOf(source.Language, writer);
        words.push_back(name);
        for (const std::string& word : words)
            if (!IsUtf8Text(word)) writer.Refuse(word, "it is no UTF-8");
        commands.Add(
            {{"directory", WithoutDelimiter(folder)}, {"arguments", words}, {"file", name}});
    }
    writer.AddLine(commands.Dump(2));
    writer.LoseOtherLanguages({LANGUAGE_CPLUSPLUS, LANGUAGE_SYSTEMC});
    for (const THdlLanguage language : {LANGUAGE_CPLUSPLUS, LANGUAGE_SYSTEMC})
        writer.LoseOptions(language, {STEP_ANALYSE});
    return writer.Take();
}
