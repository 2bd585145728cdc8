// THdlProjectFile: a file of a project, whose kind follows from its extension.
#include <hdlbuildfile.h>
#include <iostream>

int main() {
    const ISFileName* name = ISFileName::NewISFileName("run/simulation.log");
    THdlProjectFile log(name, nullptr, false);
    std::cout << "a log: " << (log.GetProjectFileType() == THdlProjectFile::FILE_TYPE_LOG) << "\n"
              << log.GetNameAndExt() << "\n"
              << "associated files: " << (log.GetAssociatedFileList() != nullptr) << "\n";
    return 0;
}
