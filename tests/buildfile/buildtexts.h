#pragma once
#include "buildfile/hdlbuildfile.h"
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
    return text + "\nresult " + std::to_string(build.GetReadResult()) + "\n";
}
