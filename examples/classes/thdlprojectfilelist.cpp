// THdlProjectFileList: a folder of a project, which owns its files and has each name once.
#include <hdlbuildfile.h>
#include <iostream>

int main() {
    THdlProjectFileList folder(THdlProjectFileList::LIST_TYPE_FILE_INPUT, nullptr);
    const ISFileName* stimuli = ISFileName::NewISFileName("stimuli.txt");
    folder.AddAtTailAndSetOwner(stimuli);
    folder.AddAtHeadAndSetOwner(ISFileName::NewISFileName("memory.txt"));
    const auto [listed, isNew] = folder.AddAtTailAndSetOwner(stimuli);
    std::cout << folder.GetName() << "\n"
              << listed->GetNameAndExt() << " is new: " << isNew << "\n";
    for (const THdlProjectFile* file : folder) std::cout << file->GetNameAndExt() << "\n";
    folder.Remove(stimuli, true);
    std::cout << "still there: " << folder.Contains(stimuli) << "\n";
    return 0;
}
