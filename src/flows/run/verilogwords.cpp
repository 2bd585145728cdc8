#include "flows/run/verilogwords.h"

std::string QuotedText(const std::string& text) {
    std::string quoted = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\') quoted += '\\';
        quoted += c;
    }
    return quoted + '"';
}

void AppendDefines(const TRunRecipe& recipe, TRunRecipe::TWords* words) {
    for (const TScanDefine& define : recipe.GetSettings().Defines)
        words->push_back("-D" + define.Name + (define.Value.empty() ? "" : "=" + define.Value));
}

void AppendSources(const TRunRecipe& recipe, TRunRecipe::TWords* words) {
    for (const TPlanSource& source : recipe.GetPlan().Sources)
        if (source.Language == LANGUAGE_VERILOG && !source.IsLibraryFile)
            words->push_back(source.Path);
}

void AppendLibraryFiles(const TRunRecipe& recipe, const std::string& option,
                        TRunRecipe::TWords* words) {
    for (const TPlanSource& source : recipe.GetPlan().Sources)
        if (source.Language == LANGUAGE_VERILOG && source.IsLibraryFile)
            Append({option, source.Path}, words);
}
