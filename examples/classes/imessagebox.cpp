// IMessageBox: shows what the library tells the user in a program's own way.
#include <fstream>
#include <hdlbuildfile.h>
#include <iostream>

class Window : public IMessageBox {
public:
    void ShowMessage(const char* text, const char*, int) override {
        const std::string message = text;
        std::cout << "to the user: ..." << message.substr(message.rfind("bad.xml")) << "\n";
    }
};

int main() {
    std::ofstream("bad.xml") << "<HdlBuildFileList><HdlBuildFile></HdlBuildFileList>";
    Window window;
    IMessageBox* former = Fileservices::SetMessageBox(&window);
    const TSimWrapHdlBuildFile build(ISFileName::NewISFileName("bad.xml"));
    Fileservices::SetMessageBox(former);
    return 0;
}
