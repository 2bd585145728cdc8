#include "flows/verilogoptions.h"
#include "flows/optiontexts.h"
#include <utility>

namespace {

using TTake = void (*)(std::string value, TVerilogOptions* options);

void TakeDefine(std::string value, TVerilogOptions* options) {
    const std::size_t sign = value.find('=');
    if (sign + 1 == value.size()) options->EmptyDefines.push_back(value.substr(0, sign));
    if (sign == std::string::npos)
        options->Defines.push_back({std::move(value), ""});
    else
        options->Defines.push_back({value.substr(0, sign), value.substr(sign + 1)});
}

void TakeIncludeFolder(std::string value, TVerilogOptions* options) {
    options->IncludeFolders.push_back(std::move(value));
}

void TakeLibraryFolder(std::string value, TVerilogOptions* options) {
    options->LibraryFolders.push_back(std::move(value));
}

void TakeLibraryFile(std::string value, TVerilogOptions* options) {
    options->LibraryFiles.push_back(std::move(value));
}

void TakeLibraryExtension(std::string value, TVerilogOptions* options) {
    options->LibraryExtensions.push_back(std::move(value));
}

/// How the value of an option is written.
enum class TForm {
    List,     ///< behind the name, several with a plus in between
    Operand,  ///< the next word
    Joined    ///< behind the name; the next word when nothing is there
};

struct TOptionRow {
    std::string_view Name;
    TForm Form;
    TTake Take;
};

// What begins like another one stands in front of it.
constexpr TOptionRow kOptions[] = {
    {"+define+", TForm::List, TakeDefine},           {"+incdir+", TForm::List, TakeIncludeFolder},
    {"+libext+", TForm::List, TakeLibraryExtension}, {"-define", TForm::Operand, TakeDefine},
    {"-incdir", TForm::Operand, TakeIncludeFolder},  {"-y", TForm::Operand, TakeLibraryFolder},
    {"-v", TForm::Operand, TakeLibraryFile},         {"-D", TForm::Joined, TakeDefine},
    {"-I", TForm::Joined, TakeIncludeFolder},
};

bool IsMeant(const TOptionRow& row, const std::string& word) {
    return row.Form == TForm::Operand ? word == row.Name : word.starts_with(row.Name);
}

/// Takes the word at `*at` with what belongs to it; false when no row means it, or its operand is
/// not there.
bool Take(const std::vector<std::string>& words, std::size_t* at, TVerilogOptions* options) {
    for (const TOptionRow& row : kOptions) {
        if (!IsMeant(row, words[*at])) continue;
        const std::string value = words[*at].substr(row.Name.size());
        if (row.Form == TForm::List)
            for (std::string& listed : ValuesOfList(value)) row.Take(std::move(listed), options);
        else if (!value.empty())
            row.Take(value, options);
        else if (*at + 1 < words.size())
            row.Take(words[++*at], options);
        else
            return false;
        return true;
    }
    return false;
}

}  // namespace

void AddVerilogOptions(std::string_view text, TVerilogOptions* options) {
    const std::vector<std::string> words = WordsOfOptions(text);
    for (std::size_t at = 0; at < words.size(); ++at)
        if (!Take(words, &at, options)) options->Others.push_back(words[at]);
}
