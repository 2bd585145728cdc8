// THdlTimingDiagramTemplateFileList: the folder of the diagram that others are made from.
#include <hdlbuildfile.h>
#include <iostream>

int main() {
    THdlTimingDiagramTemplateFileList templates(nullptr);
    templates.AddAtTailAndSetOwner(ISFileName::NewISFileName("cycle.btim"));
    std::cout << templates.GetName() << ": " << templates.GetHead()->GetNameAndExt() << "\n";
    const auto transactions = THdlProjectFileList::LIST_TYPE_TRANSACTION_DIAGRAMS;
    std::cout << "its files may move to the transactions: "
              << templates.IsCopyOrMoveCompatibleType(transactions) << "\n";
    return 0;
}
