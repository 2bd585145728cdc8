#pragma once
#include "buildfile/simwraphdlbuildfile.h"
#include "filenames/componentnamelist.h"
#include "translation/v2vtranslationoptionslist.h"
#include <memory>
#include <string>

// The build file of the works, with something in every section.

inline constexpr int kSources = 12;

inline std::string SourceName(int number) {
    return "a source whose name is not short " + std::to_string(number) + ".vhd";
}

/// Sections of objects that a build lets go of and that stay valid until the process ends.
inline constexpr const char* kSectionsThatStay =
    "<TopLevelComponents ForceTopLevelComponents='true'><ComponentList Language='VHDL'>"
    "<Component Library='l' Architecture='an architecture of long name'>\\odd name\\"
    "</Component><Component Library='l'>a_component_with_a_long_name</Component>"
    "</ComponentList></TopLevelComponents>"
    "<Vhdl2VerilogTranslationOptions><v2v-np Enabled='true'><AdditionalOptions>p q"
    "</AdditionalOptions></v2v-np></Vhdl2VerilogTranslationOptions>";

/// Each source needs the next one and the one two further.
inline std::string MakeBuildText(const char* sections = kSectionsThatStay) {
    std::string text =
        std::string(
            "<!DOCTYPE HdlBuildFileList SYSTEM \"hdl-buildfile.dtd\">\n<HdlBuildFileList>"
            "<HdlBuildFile TopLevelLanguage='VHDL' QmvVersion='a version that is a long text' "
            "IdlVersion='i' HvlLanguage='Verilog' HdlLanguage='VHDL' SugarEngineDll='s.dll' "
            "DestinationLibrary='a library whose name is long' SnapshotName='a snapshot of long "
            "name' "
            "SingleFileOnlyBuild='true'>") +
        sections +
        "<ExternalSimulatorSettings><Tool Name='VCS' Path='/a/path/that/is/not/short' "
        "PliLibPath='x y.so'>Verilog</Tool></ExternalSimulatorSettings>"
        "<GeneralConfiguration CompileVerilogFiles='true' LogFileName='a log of a long name.log'/>"
        "<ProjectLanguageConfigurationList><LanguageSettings Language='VHDL'><SimTool>Scirocco"
        "</SimTool><BuildOptions>-x \"options that are long\"</BuildOptions></LanguageSettings>"
        "</ProjectLanguageConfigurationList>"
        "<OutputDiagram>d/o.btim</OutputDiagram><SourceFileGroup Language='VHDL'>";
    for (int i = 0; i < kSources; ++i) {
        text += "<SourceFile Library='false' PrecompiledLibrary=''>" + SourceName(i);
        for (const int next : {i + 1, i + 3})
            if (next < kSources) text += "<Dependency>" + SourceName(next) + "</Dependency>";
        text += "</SourceFile>\n";
    }
    return text +
           "</SourceFileGroup><SourceFileGroup Language='Verilog'><SourceFile>v.v</SourceFile>"
           "</SourceFileGroup><BuildFileVariables><Variable Name='A' Value='a long value of a "
           "variable'/></BuildFileVariables></HdlBuildFile></HdlBuildFileList>";
}

/// Deletes what a build leaves to its caller.
struct TBuildEnd {
    void operator()(TSimWrapHdlBuildFile* build) const {
        if (TComponentNameList* names = build->GetComponentNameList(LANGUAGE_VHDL)) names->Flush();
        TV2VTranslationOptionsList* const options = build->GetV2VOptions();
        if (options) options->Flush();
        delete build;
        delete options;
    }
};
using TOwnBuild = std::unique_ptr<TSimWrapHdlBuildFile, TBuildEnd>;
