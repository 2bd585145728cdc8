// TXMLSectionFile: replaces one section of a file and leaves those of others as they are.
#include <fstream>
#include <hdlbuildfile.h>
#include <iostream>

class Marks : public TXMLSectionFile {
public:
    Marks() : TXMLSectionFile("Marks", "Project", CHILD_OF_ROOT) {}

protected:
    void FillSection() override { PushTextElement("Marks", "new"); }
};

int main() {
    std::ofstream("project.xml") << "<Project><Waves>kept</Waves><Marks>old</Marks></Project>";
    Marks marks;
    marks.ReadFile("project.xml");
    std::cout << "sections: " << marks.GetSectionCount() << "\n";
    marks.ReplaceSection("project.xml");
    std::cout << std::ifstream("project.xml").rdbuf();
    return 0;
}
