#include "buildfile/hdlbuildfilexmllist.h"
#include "buildfile/hdlbuildfile.h"
#include "services/files/pathtext.h"
#include "services/names/isfilename.h"
#include "services/names/utilfilename.h"
#include "services/xml/xmlstream.h"

namespace {

constexpr const char* kDocumentType = "<!DOCTYPE HdlBuildFileList SYSTEM \"hdl-buildfile.dtd\">";

/// The reader of a section, by the name of its element.
struct TSection {
    const char* Name;
    bool (THdlBuildFile::*Read)(TElementIterator&);
};

constexpr TSection kSections[] = {
    {"HdlBuildFile", &THdlBuildFile::ReadAttributes},
    {"TopLevelComponents", &THdlBuildFile::ReadTopLevelComponentNames},
    {"ExternalSimulatorSettings", &THdlBuildFile::ReadExternalConfigurations},
    {"GeneralConfiguration", &THdlBuildFile::ReadGeneralSettings},
    {"ProjectLanguageConfigurationList", &THdlBuildFile::ReadProjectSettings},
    {"Verilog2VhdlTranslationOptions", &THdlBuildFile::ReadVerilog2VhdlTranslationOptions},
    {"Vhdl2VerilogTranslationOptions", &THdlBuildFile::ReadVhdl2VerilogTranslationOptions},
    {"SourceFileGroup", &THdlBuildFile::ReadSourceFileGroups},
    {"BuildFileVariables", &THdlBuildFile::ReadPseudoEnvironmentVariables},
};

const TSection* FindSection(const TElementIterator& element) {
    for (const TSection& section : kSections)
        if (IsAtStart(element, section.Name)) return &section;
    return nullptr;
}

void ReadOutputDiagram(THdlBuildFile* build, TElementIterator& element) {
    ++element;
    std::string path = TrimmedText(element);
    if (path.empty()) return;
    if (IsRelativePath(path.c_str())) {
        TUtilFileName joined(build->GetProjectPath().c_str());
        joined.PushFileName(path.c_str());
        path = joined.Canonical();
    }
    build->SetOutputDiagram(ISFileName::NewISFileName(path.c_str()));
}

}  // namespace

THdlBuildFileXMLList::THdlBuildFileXMLList(THdlBuildFile* build) : Build(build) {
    SetDocumentType(kDocumentType);
}

THdlBuildFileXMLList::~THdlBuildFileXMLList() = default;

void THdlBuildFileXMLList::FillElements() {
    if (Build) Build->WriteFile(this);
}

bool THdlBuildFileXMLList::InterpretElements() {
    if (!Build) return true;
    TElementIterator element(*this);
    while (element.NotAtTail()) {
        const TElementIterator before = element;
        if (const TSection* section = FindSection(element)) {
            if (!(Build->*section->Read)(element)) return true;
        } else if (IsAtStart(element, "OutputDiagram")) {
            ReadOutputDiagram(Build, element);
        }
        // A reader stops on the next section's start, which must not be stepped over.
        if (element == before) ++element;
    }
    return true;
}
