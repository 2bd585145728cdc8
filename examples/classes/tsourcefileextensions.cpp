// TSourceFileExtensions: the language of a source by its extension.
#include <hdlbuildfile.h>
#include <iostream>

int main() {
    const TSourceFileExtensions* extensions = TSourceFileExtensions::GetInstance();
    for (const char* extension : {".vhd", "SV", ".cpp", ".txt"})
        std::cout << extension << " "
                  << GetStringFromHdlLanguage(
                         extensions->GetSourceFileLanguageFromExtension(extension))
                  << "\n";
    return 0;
}
