// THdlProjectTemplateFile: a source that was made from a template, with its associated files.
#include <hdlbuildfile.h>
#include <iostream>

int main() {
    THdlProjectTemplateFile bench(ISFileName::NewISFileName("bench.v"), nullptr);
    std::cout << "made from a template: " << bench.IsTemplateFile() << "\n";
    bench.AddAssociatedFileAtTail(ISFileName::NewISFileName("driver.v"));
    bench.AddAssociatedFileAtHead(ISFileName::NewISFileName("clock.v"));
    for (const THdlProjectFile* file : *bench.GetAssociatedFileList())
        std::cout << file->GetNameAndExt() << "\n";
    return 0;
}
