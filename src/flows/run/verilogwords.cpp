#include "flows/run/verilogwords.h"
#include <algorithm>

bool AsksForSystemVerilog(const TRunRecipe& recipe) {
    const auto& sources = recipe.GetPlan().Sources;
    return !recipe.GetSettings().Standard.empty() ||
           std::any_of(sources.begin(), sources.end(), [](const TPlanSource& source) {
               return source.Language == LANGUAGE_VERILOG && source.Path.ends_with(".sv");
           });
}

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
