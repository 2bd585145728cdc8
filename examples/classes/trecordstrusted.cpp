// TRecordsTrusted: a second read of the same sources need not look at the disk again.
#include <fstream>
#include <hdlbuildfile.h>
#include <iostream>

int main() {
    std::ofstream("a.vhd") << "entity a is\nend;\n";
    std::ofstream("build.xml") << "<HdlBuildFileList><HdlBuildFile TopLevelLanguage=\"VHDL\">"
                                  "<SourceFileGroup Language=\"VHDL\"><SourceFile>a.vhd"
                                  "</SourceFile></SourceFileGroup></HdlBuildFile>"
                                  "</HdlBuildFileList>";
    TSimWrapHdlBuildFile build(ISFileName::NewISFileName("build.xml"));
    ISFileName::NewISFileName("a.vhd")->Remove();
    {
        const TRecordsTrusted trusted;
        build.Reload();
        std::cout << "missing, as recorded: " << build.GetFilesMissing() << "\n";
    }
    const ISFileName* source = ISFileName::NewISFileName("a.vhd");
    std::cout << "recorded: " << FindStatusWhenLoaded(source, kDefaultTimeStampKey)->Exists
              << ", on the disk: " << source->Exists() << "\n";
    return 0;
}
