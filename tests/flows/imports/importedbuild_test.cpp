#include "flows/imports/importedbuild.h"
#include "flows/buildedit.h"
#include "flows/imports/importformats.h"
#include "services/names/isfilename.h"
#include "tests/flows/imports/importedtext.h"
#include "tests/support/recorders.h"
#include <gtest/gtest.h>

namespace {

/// The plan of the build that is made of the record, as a reader finds it.
std::string PlanOf(const TImported& imported, const ImportFolder& folder) {
    const RecordingMessageBox box;
    TBuildEdit edit(ISFileName::NewISFileName(folder.Path("b.xml").c_str()));
    EXPECT_EQ(edit.Make(LanguageOfImported(imported), false), "");
    AddImported(imported, &edit);
    EXPECT_EQ(edit.FindEdits(), "");
    const TBuildPlan plan = MakePlan(edit.GetFound());
    std::string text;
    for (const TPlanSource& source : plan.Sources) {
        text += std::string(GetStringFromHdlLanguage(source.Language)) + " " + source.Library +
                " " + folder.TextOf(source.Path) + (source.IsLibraryFile ? " library file" : "");
        text += "\n";
    }
    for (const TBuildTop& top : plan.Tops) text += "top " + top.Library + "." + top.Entity + "\n";
    for (const TPlanSettings& settings : plan.Settings) {
        const auto add = [&](const char* what, const std::vector<std::string>& texts) {
            for (const std::string& each : texts)
                text += std::string(what) + " " + folder.TextOf(each) + "\n";
        };
        add("standard", {settings.Standard});
        add("include", settings.IncludeDirectories);
        add("library folder", settings.LibraryDirectories);
        add("extension", settings.LibraryExtensions);
        for (const TScanDefine& define : settings.Defines)
            add("define", {define.Name + "=" + define.Value});
        add("delays", {GetDelayTypeFromEnum(settings.Delay)});
        for (const auto& words : settings.Options) add("option", words);
    }
    return text;
}

TImportedSource SourceOf(const ImportFolder& folder, const std::string& path, THdlLanguage language,
                         const std::string& library = "") {
    TImportedSource source;
    source.Path = folder.Path(path);
    source.Language = language;
    source.Library = library;
    return source;
}

}  // namespace

TEST(ImportedBuild, HoldsWhatTheRecordHolds) {
    const ImportFolder folder;
    TImported imported;
    imported.Sources = {SourceOf(folder, "z.v", LANGUAGE_VERILOG, "ip"),
                        SourceOf(folder, "a b.v", LANGUAGE_VERILOG),
                        SourceOf(folder, "t.vhd", LANGUAGE_VHDL, "work"),
                        SourceOf(folder, "p.vhd", LANGUAGE_VHDL, "util"),
                        SourceOf(folder, "m.cpp", LANGUAGE_CPLUSPLUS)};
    imported.Sources[1].IsLibraryFile = true;
    imported.Tops = {{{LANGUAGE_VHDL, "", "tb", ""}, {}}, {{LANGUAGE_VERILOG, "ip", "z", ""}, {}}};
    TImportedSettings& verilog = imported.Settings[LANGUAGE_VERILOG];
    verilog.IncludeDirectories = {{folder.Path("my inc"), {}}};
    verilog.LibraryDirectories = {{folder.Path("lib"), {}}};
    verilog.LibraryExtensions = {{".v", {}}};
    verilog.Defines = {{{"A", "1+2"}, {}}, {{"B", "x y"}, {}}, {{"C", ""}, {}}};
    verilog.Standard = {"2012", {}};
    verilog.Delay = DELAY_TYPE_MAXIMUM;
    verilog.Options[STEP_ANALYSE] = {{"-x", {}}, {"y z", {}}, {"-x", {}}};
    verilog.Options[STEP_ELABORATE] = {{"-e", {}}};
    verilog.Options[STEP_RUN] = {{"+r", {}}};
    imported.Settings[LANGUAGE_VHDL].Standard = {"1993", {}};
    EXPECT_EQ(PlanOf(imported, folder),
              "Verilog ip z.v\n"
              "Verilog work a b.v library file\n"
              "VHDL work t.vhd\n"
              "VHDL util p.vhd\n"
              "C++ work m.cpp\n"
              "top ip.z\n"
              "top work.tb\n"
              "standard 2012\n"
              "include my inc\n"
              "library folder lib\n"
              "extension .v\n"
              "define A=1+2\n"
              "define B=x y\n"
              "define C=\n"
              "delays max\n"
              "option -x\n"
              "option y z\n"
              "option -x\n"
              "option -e\n"
              "option +r\n"
              "standard 1993\n"
              "delays typical\n"
              "standard \n"
              "delays typical\n");
}

TEST(ImportedBuild, KeepsTheOrderOfVhdlWithoutDependencies) {
    const ImportFolder folder;
    TImported imported;
    imported.Sources = {SourceOf(folder, "z.vhd", LANGUAGE_VHDL),
                        SourceOf(folder, "a.vhd", LANGUAGE_VHDL),
                        SourceOf(folder, "m.vhd", LANGUAGE_VHDL)};
    EXPECT_EQ(PlanOf(imported, folder),
              "VHDL work z.vhd\nVHDL work a.vhd\nVHDL work m.vhd\nstandard \ndelays typical\n");
}

// Each word is one that the plan of a build knows again.
TEST(ImportedBuild, NamesStandards) {
    const ImportFolder folder;
    const struct {
        THdlLanguage Language;
        const char* Year;
    } rows[] = {{LANGUAGE_VERILOG, "2005"}, {LANGUAGE_VERILOG, "2009"}, {LANGUAGE_VERILOG, "2012"},
                {LANGUAGE_VHDL, "1987"},    {LANGUAGE_VHDL, "1993"},    {LANGUAGE_VHDL, "2000"},
                {LANGUAGE_VHDL, "2002"},    {LANGUAGE_VHDL, "2008"},    {LANGUAGE_VHDL, "2019"}};
    for (const auto& row : rows) {
        TImported imported;
        imported.Sources = {SourceOf(folder, "a", row.Language)};
        imported.Settings[row.Language].Standard = {row.Year, {}};
        EXPECT_EQ(PlanOf(imported, folder), std::string(GetStringFromHdlLanguage(row.Language)) +
                                                " work a\nstandard " + row.Year +
                                                "\ndelays typical\n");
    }
}

TEST(ImportedBuild, HasTheLanguageOfItsSources) {
    const ImportFolder folder;
    TImported imported;
    EXPECT_EQ(LanguageOfImported(imported), LANGUAGE_NONE);
    imported.Sources = {SourceOf(folder, "a.cpp", LANGUAGE_CPLUSPLUS),
                        SourceOf(folder, "b.v", LANGUAGE_VERILOG)};
    EXPECT_EQ(LanguageOfImported(imported), LANGUAGE_CPLUSPLUS);
    imported.Sources.push_back(SourceOf(folder, "c.vhd", LANGUAGE_VHDL));
    EXPECT_EQ(LanguageOfImported(imported), LANGUAGE_VHDL);
}
