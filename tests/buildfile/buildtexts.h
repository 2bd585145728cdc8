#pragma once
#include "buildfile/hdlbuildfile.h"
#include "buildfile/hdlbuildfilexmllist.h"
#include "settings/projectsimlanguageconfig.h"
#include "tests/projectfiles/sourcefakes.h"
#include <string>

/// What the accessors of a build give, an item a line.
inline std::string TextOf(const THdlBuildFile& build) {
    const auto name = [](const ISFileName* file) {
        return std::string(file ? file->GetNameAndExt() : "<null>");
    };
    const auto flag = [](bool on) { return std::string(on ? "true" : "false"); };
    const auto set = [](const void* object) { return std::string(object ? "set" : "null"); };
    const auto language = [](THdlLanguage value) {
        return " " + std::string(GetStringFromHdlLanguage(value));
    };
    std::string text =
        "file " + name(build.GetFileName()) + "\nlanguages" + language(build.GetTopLanguage()) +
        language(build.GetHvlLanguage()) + language(build.GetHdlLanguage()) + "\nversions " +
        build.GetQMVVersion() + " " + build.GetIdlVersion() + "\nsugar " +
        name(build.GetSugarEngineDll()) + "\ntime " + build.GetTimeBase()->GetBaseTimeUnitStr() +
        " " + build.GetTimeBase()->GetDisplayTimeUnitStr() + "\nlibraries '" +
        build.GetGenerationDestinationLibrary() + "' '" + build.GetDestinationLibrary() +
        "' snapshot '" + build.GetSnapshotName() + "'\ndefines '" + build.GetVerilogUserDefines() +
        "' plus options '" + build.GetVerilogOtherPlusOptions() + "'\nsingle " +
        flag(build.IsSingleFileOnlyBuild()) + " force " + flag(build.GetForceTopLevelComponents()) +
        "\ngeneral " + set(build.GetGeneralConfiguration()) + " options " +
        set(build.GetV2VOptions()) + "\nvariables";
    for (const auto& [variable, value] : *build.GetPseudoEnvironmentVariables())
        text += " " + variable + "=" + value;
    text += "\ntools";
    for (const THdlLanguage value : build.GetSimToolLanguages()) text += language(value);
    std::string components;
    std::string configurations;
    std::string sources;
    for (int i = LANGUAGE_VERILOG; i <= LANGUAGE_NONE; ++i) {
        const auto value = static_cast<THdlLanguage>(i);
        if (build.GetComponentNameList(value)) components += language(value);
        if (const auto* config = build.GetProjectLanguageConfig(value))
            configurations += language(value) + "=" + config->GetBuildOptions();
    }
    for (const THdlLanguage value : build.GetSourceFileLanguages()) {
        sources += language(value) + ":";
        for (const IHdlSourceFile* source : *build.GetSourceFileGroup(value))
            sources += " " + NameOf(source);
    }
    text += "\ncomponents" + components + "\nconfigurations" + configurations + "\nsources" +
            sources + "\nordered";
    for (const IHdlSourceFile* source : *build.GetFilesToCompile(LANGUAGE_VHDL))
        text += " " + NameOf(source);
    text += "\nprecompiled";
    for (const std::string& library : build.GetPrecompiledLibraryGroups()) text += " " + library;
    return text + "\nresult " + std::to_string(build.GetReadResult()) + " error '" +
           build.GetReadError().Reason + "'\n";
}

/// The text behind the first START of that name; "<none>" without one.
inline std::string TextBehind(const TXMLList& document, const std::string& name) {
    for (DListIterator<TElement*> element(document); element.NotAtTail(); ++element) {
        if (element.Current()->ElemType != TElement::START ||
            element.Current()->Name != name.c_str())
            continue;
        ++element;
        return element.Current()->Text.Str();
    }
    return "<none>";
}

/// The members that have no getter, as the document and the Verilog command line show them: output
/// diagram, elaborate-only flag (the linker options take the place of the build options) and GOF
/// flag (no log file). Gives the build Verilog settings of its own and takes the GOF flag.
inline std::string TextOfMembersWithoutGetter(THdlBuildFile* build) {
    TProjectSimLanguageConfig verilog;
    verilog.SetTool(SIM_ZORVIK_VERILOG);
    verilog.SetBuildOptions("build");
    verilog.SetLinkerOptions("link");
    build->AddLanguageConfig(LANGUAGE_VERILOG, &verilog);
    THdlBuildFileXMLList document(build);
    build->WriteFile(&document);
    return "diagram " + TextBehind(document, "OutputDiagram") + "\noptions " +
           TextBehind(document, "BuildOptions") + "\ncommand line" +
           build->GetVerilogCommandLineOptions() + "\n";
}
