// TV2VTranslationOption: a switch of a translator.
#include <hdlbuildfile.h>
#include <iostream>

int main() {
    TV2VTranslationOption option("-ncc", "-No_Component_Check, -ncc", "Do not check", true);
    std::cout << '[' << option.GetCommandLineOption() << "]\n";
    option.SetEnabled(false);
    std::cout << '[' << option.GetCommandLineOption() << "]\n"
              << "matches: " << option.IsMatch("-ncc")
              << ", takes words: " << option.HasStringOption() << "\n";
    return 0;
}
