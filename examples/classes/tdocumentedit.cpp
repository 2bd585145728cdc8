// TDocumentEdit: brings a change into a document and leaves every other byte as it is.
#include <hdlbuildfile.h>
#include <iostream>

int main() {
    const std::string document = "<Tools>\n  <!-- ours -->\n  <Tool   Name='VCS'/>\n</Tools>\n";
    TXMLList base;
    base.ReadFromText(document, nullptr);
    TXMLList wanted;
    wanted.ReadFromText("<Tools><Tool Name='NCSim'/></Tools>", nullptr);
    TDocumentEdit edit;
    if (!edit.Find(document, base, wanted, {})) return 1;
    std::cout << edit.GetEdited() << edit.GetUnifiedDiff("tools.xml");
    return 0;
}
