// TMyString: a text that is changed in its place.
#include <hdlbuildfile.h>
#include <iostream>

int main() {
    TMyString options = "  -y LIB +libext+.v ";
    options.Trim(0, 0);
    options.toLower();
    options += " -q";
    TMyString* words = nullptr;
    const int count = options.WordSplit(&words, ' ');
    for (int i = 0; i < count; ++i) std::cout << words[i] << "\n";
    delete[] words;
    std::cout << options.Index("+libext") << " " << options.SubStr(3, 3) << "\n";
    return 0;
}
