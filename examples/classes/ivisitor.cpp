// IVisitor, IBaseVisitor, IAccept: does something with each file of a project by its class.
#include <hdlbuildfile.h>
#include <iostream>

class Visitor : public IBaseVisitor, public IVisitor<THdlProjectSourceFile> {
public:
    void Visit(THdlProjectSourceFile* source) override {
        std::cout << "source " << source->GetNameAndExt() << "\n";
    }
    void VisitUnhandled() override { std::cout << "something else\n"; }
};

int main() {
    THdlProjectSourceFile source(ISFileName::NewISFileName("top.vhd"), nullptr, false);
    THdlProjectFile text(ISFileName::NewISFileName("notes.txt"), nullptr, false);
    Visitor visitor;
    for (const hdb::IAccept* item :
         {static_cast<const hdb::IAccept*>(&source), static_cast<const hdb::IAccept*>(&text)})
        item->Accept(&visitor);
    return 0;
}
