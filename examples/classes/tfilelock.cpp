// TFileLock: reads, changes and saves a file while others that save it wait.
#include <fstream>
#include <hdlbuildfile.h>
#include <iostream>

int main() {
    std::ofstream("count.txt") << "41";
    {
        const TFileLock lock("count.txt");
        if (!lock.IsHeld()) {
            std::cerr << lock.GetReason() << "\n";
            return 1;
        }
        std::string text;
        ReadWholeFile("count.txt", &text, nullptr);
        ReplaceWholeFile("count.txt", std::to_string(std::stoi(text) + 1), nullptr);
    }
    std::cout << std::ifstream("count.txt").rdbuf() << "\n";
    return 0;
}
