#include "buildfile/hdlbuildfilexmllist.h"
#include "buildfile/hdlbuildfile.h"
#include "services/xml/xmlstream.h"

namespace {

constexpr const char* kDocumentType = "<!DOCTYPE HdlBuildFileList SYSTEM \"hdl-buildfile.dtd\">";

/// The reader of a section, by the name of its element.
struct TSection {
    const char* Name;
    bool (THdlBuildFile::*Read)(TElementIterator&);
};

constexpr const char* kBuildElement = "HdlBuildFile";

constexpr TSection kSections[] = {
    {kBuildElement, &THdlBuildFile::ReadAttributes},
    {"TopLevelComponents", &THdlBuildFile::ReadTopLevelComponentNames},
    {"ExternalSimulatorSettings", &THdlBuildFile::ReadExternalConfigurations},
    {"GeneralConfiguration", &THdlBuildFile::ReadGeneralSettings},
    {"ProjectLanguageConfigurationList", &THdlBuildFile::ReadProjectSettings},
    {"Verilog2VhdlTranslationOptions", &THdlBuildFile::ReadVerilog2VhdlTranslationOptions},
    {"Vhdl2VerilogTranslationOptions", &THdlBuildFile::ReadVhdl2VerilogTranslationOptions},
    {"OutputDiagram", &THdlBuildFile::ReadOutputDiagram},
    {"SourceFileGroup", &THdlBuildFile::ReadSourceFileGroups},
    {"BuildFileVariables", &THdlBuildFile::ReadPseudoEnvironmentVariables},
};

const TSection* FindSection(const TElementIterator& element) {
    for (const TSection& section : kSections)
        if (IsAtStart(element, section.Name)) return &section;
    return nullptr;
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
    bool& isBuildMet = Build->BuildElementMet;
    isBuildMet = false;
    TElementIterator element = GetFirst();
    while (element.NotAtTail()) {
        const TElementIterator before = element;
        const TSection* section = FindSection(element);
        if (section == kSections) isBuildMet = true;
        if (section && !(Build->*section->Read)(element)) break;
        // A reader stops on the next section's start, which must not be stepped over.
        if (element == before) ++element;
    }
    // Behind a section that could not be read.
    if (!isBuildMet) isBuildMet = FindNext(element, kBuildElement, nullptr);
    return true;
}
