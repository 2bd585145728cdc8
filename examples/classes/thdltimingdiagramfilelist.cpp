// THdlTimingDiagramFileList, THdlProjectDiagramFile: the folder of diagrams.
#include <hdlbuildfile.h>
#include <iostream>

int main() {
    THdlTimingDiagramFileList diagrams(nullptr);
    diagrams.AddAtTailAndSetOwner(ISFileName::NewISFileName("read.btim"));
    diagrams.AddAtTailAndSetOwner(ISFileName::NewISFileName("drive.fp"));
    std::cout << diagrams.GetName() << "\n";
    for (const THdlProjectFile* file : diagrams) {
        const auto* diagram = dynamic_cast<const THdlProjectDiagramFile*>(file);
        const bool drives =
            diagram->GetProjectFileType() == THdlProjectFile::FILE_TYPE_STIMULUS_DIAGRAM;
        std::cout << diagram->GetNameAndExt() << (drives ? ": stimulus" : "") << "\n";
    }
    return 0;
}
