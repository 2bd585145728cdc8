// TV2VTranslationStringOption: a switch with words behind it.
#include <hdlbuildfile.h>
#include <iostream>

int main() {
    TV2VTranslationStringOption prefix("-rip", "-rip, prefix", "Remove a prefix", true);
    prefix.ParseAndPopulateList("p_ q_");
    prefix.AddAnOption("r_");
    std::cout << prefix.GetCommandLineOption() << "\n"
              << "has q_: " << prefix.FindString("q_") << "\n";
    return 0;
}
