#include "flows/imports/importcheck.h"
#include "tests/flows/imports/importedtext.h"
#include "tests/support/environmentvariable.h"
#include <gtest/gtest.h>

namespace {

/// What is left of the record, and what is told.
std::string Checked(TImported imported, TImportOrder order = ORDER_COUNTS) {
    const ImportFolder folder;
    folder.Write("a.v", "");
    folder.Write("b.vhd", "");
    folder.Write("sub/c.v", "");
    const TImportRequest request{
        {}, "", [&](const std::string& path) { return folder.TextOf(path); }};
    // Not by Path(): Windows has no path for a name that is no UTF-8.
    const std::string root = folder.Path("x");
    const auto prepend = [&root](std::string* path) {
        *path = root.substr(0, root.size() - 1) + *path;
    };
    for (TImportedSource& source : imported.Sources) prepend(&source.Path);
    for (auto& [language, settings] : imported.Settings)
        for (TImportedText& text : settings.IncludeDirectories) prepend(&text.Text);
    CheckImported(order, request, &imported);
    return folder.TextOf(imported);
}

TImportedSource SourceOf(const std::string& path, int line, const std::string& library = "",
                         bool isLibraryFile = false) {
    TImportedSource source;
    source.Path = path;
    source.Library = library;
    source.IsLibraryFile = isLibraryFile;
    source.Place = {"l", line, 0};
    return source;
}

}  // namespace

TEST(ImportCheck, KeepsEachSourceOnce) {
    TImported imported;
    imported.Sources = {SourceOf("a.v", 1), SourceOf("a.v", 2), SourceOf("sub/../a.v", 3),
                        SourceOf("a.v", 4, "lib"), SourceOf("a.v", 5, "", true)};
    EXPECT_EQ(Checked(imported),
              "l:1 Verilog  a.v\n"
              "l:2 HB705 named again: a.v (first: l:1)\n"
              "l:3 HB705 named again: sub/../a.v (first: l:1)\n"
              "l:4 HB702 named again in another way: a.v (first: l:1)\n"
              "l:5 HB702 named again in another way: a.v (first: l:1)\n");
}

TEST(ImportCheck, TellsOfFilesThatAreMissingOrNoSources) {
    TImported imported;
    imported.Sources = {SourceOf("no.v", 1), SourceOf("a.txt", 2), SourceOf("sub", 3)};
    imported.Sources[2].Language = LANGUAGE_VHDL;
    imported.Settings[LANGUAGE_VERILOG].IncludeDirectories = {{"sub", {"l", 4, 0}},
                                                              {"no", {"l", 5, 0}}};
    EXPECT_EQ(Checked(imported),
              "l:1 Verilog  no.v\n"
              "l:4 include sub\n"
              "l:5 include no\n"
              "l:1 HB707 does not exist: no.v\n"
              "l:2 HB703 no language has the extension of a.txt\n"
              "l:3 HB701 a build has no words for the folder sub as a source\n"
              "l:5 HB707 does not exist: no\n");
}

TEST(ImportCheck, TakesOutNamesThatNoBuildHolds) {
    TImported imported;
    imported.Sources = {SourceOf("b\xE4.v", 1), SourceOf("b\x01.v", 2),
                        SourceOf("c\xEF\xBF\xBF.v", 3), SourceOf("no.v ", 4),
                        SourceOf("no.v", 5, "l\x01")};
    for (TImportedSource& source : imported.Sources) source.Language = LANGUAGE_VERILOG;
    imported.Sources.push_back(SourceOf("a.v", 6));
    imported.Tops = {{{LANGUAGE_VERILOG, "", "t\x02", ""}, {"l", 7, 0}},
                     {{LANGUAGE_VERILOG, "\xFF", "t", ""}, {"l", 8, 0}}};
    TImportedSettings& settings = imported.Settings[LANGUAGE_VERILOG];
    settings.IncludeDirectories = {{"i\x01", {"l", 9, 0}}};
    settings.Defines = {{{"A", "\xFF"}, {"l", 10, 0}}};
    settings.LibraryExtensions = {{".\x03", {"l", 11, 0}}};
    EXPECT_EQ(
        Checked(imported),
        "l:6 Verilog  a.v\n"
        "l:1 HB701 a build has no words for the name b\xE4.v, which is no UTF-8\n"
        "l:2 HB701 a build has no words for the name b\x01.v with a control character in it\n"
        "l:3 HB701 a build has no words for the name c\xEF\xBF\xBF.v with a control character in "
        "it\n"
        "l:4 HB701 a build has no words for the name no.v  with a blank at its end\n"
        "l:5 HB701 a build has no words for the name l\x01 with a control character in it\n"
        "l:7 HB701 a build has no words for the name t\x02 with a control character in it\n"
        "l:8 HB701 a build has no words for the name \xFF, which is no UTF-8\n"
        "l:9 HB701 a build has no words for the name i\x01 with a control character in it\n"
        "l:11 HB701 a build has no words for the option .\x03 with a control character in it\n"
        "l:10 HB701 a build has no words for the option A=\xFF, which is no UTF-8\n");
}

#ifndef _WIN32
// Where names differ by their case, two files are two, and a build holds the first one.
TEST(ImportCheck, TellsFilesApartThatDifferInCase) {
    const ImportFolder folder;
    folder.Write("in/a.v", "");
    folder.Write("in/A.v", "");
    folder.Write("in/b.v", "");
    EXPECT_EQ(folder.ReadText("filelist", "a.v A.v\nb.v B.v\nc.v C.v\n"),
              "in/list:1:1 Verilog  in/a.v\n"
              "in/list:2:1 Verilog  in/b.v\n"
              "in/list:3:1 Verilog  in/c.v\n"
              "in/list:1:5 HB702 named again in another way: in/A.v (first: in/list:1:1)\n"
              "in/list:2:5 HB705 named again: in/B.v (first: in/list:2:1)\n"
              "in/list:3:5 HB705 named again: in/C.v (first: in/list:3:1)\n");
}
#endif

TEST(ImportCheck, TakesOutFoldersWithVariables) {
    const EnvironmentVariable variable("IMPORT_TEST", "x");
    TImported imported;
    TImportedSettings& settings = imported.Settings[LANGUAGE_VERILOG];
    settings.IncludeDirectories = {{"$(IMPORT_TEST)/a", {"l", 1, 0}}, {"sub", {"l", 2, 0}}};
    EXPECT_EQ(Checked(imported),
              "l:2 include sub\n"
              "l:1 HB701 a build has no words for the folder $(IMPORT_TEST)/a with a variable in "
              "it\n");
}

TEST(ImportCheck, TellsOfAnOrderThatGroupsLose) {
    TImported imported;
    imported.Sources = {SourceOf("b.vhd", 1), SourceOf("a.v", 2), SourceOf("sub/c.v", 3)};
    const std::string listed = "l:1 VHDL  b.vhd\nl:2 Verilog  a.v\nl:3 Verilog  sub/c.v\n";
    EXPECT_EQ(Checked(imported, ORDER_COUNTS),
              listed + "l:2 HB701 a build has no words for the order of Verilog behind VHDL\n");
    EXPECT_EQ(Checked(imported, ORDER_DOES_NOT_COUNT), listed);
    for (const std::size_t number : {std::size_t{1}, std::size_t{2}})
        imported.Sources[number].IsLibraryFile = true;
    EXPECT_EQ(
        Checked(imported, ORDER_COUNTS),
        "l:1 VHDL  b.vhd\nl:2 Verilog  a.v library file\nl:3 Verilog  sub/c.v library file\n");
}

TEST(ImportCheck, GivesTopsTheLanguageOfTheSources) {
    TImported imported;
    imported.Sources = {SourceOf("a.v", 1)};
    imported.Tops = {{{LANGUAGE_NONE, "", "tb", ""}, {"l", 2, 0}}};
    EXPECT_EQ(Checked(imported), "l:1 Verilog  a.v\nl:2 top Verilog .tb\n");
    imported.Sources = {SourceOf("b.vhd", 3)};
    EXPECT_EQ(Checked(imported), "l:3 VHDL  b.vhd\nl:2 top VHDL .tb\n");
}

// Of sources in two languages that of another top of the name is meant, or of the one whose file
// has the name.
TEST(ImportCheck, GivesTopsTheLanguageOfTheirFiles) {
    TImported imported;
    imported.Sources = {SourceOf("a.v", 1), SourceOf("b.vhd", 2)};
    imported.Tops = {{{LANGUAGE_NONE, "", "a", ""}, {"l", 3, 0}},
                     {{LANGUAGE_NONE, "", "B", ""}, {"l", 4, 0}},
                     {{LANGUAGE_NONE, "", "tb", ""}, {"l", 5, 0}},
                     {{LANGUAGE_VERILOG, "", "tb", ""}, {"l", 6, 0}},
                     {{LANGUAGE_NONE, "", "tb2", ""}, {"l", 7, 0}}};
    EXPECT_EQ(Checked(imported),
              "l:1 Verilog  a.v\n"
              "l:2 VHDL  b.vhd\n"
              "l:3 top Verilog .a\n"
              "l:4 top VHDL .B\n"
              "l:5 top Verilog .tb\n"
              "l:6 top Verilog .tb\n"
              "l:7 top VHDL .tb2\n"
              "l:7 HB701 a build has no words for the language of the top tb2, taken for VHDL\n");
}

TEST(ImportCheck, TakesOutWhatOptionTextsDoNotHold) {
    const EnvironmentVariable variable("IMPORT_TEST", "x");
    TImported imported;
    TImportedSettings& settings = imported.Settings[LANGUAGE_VERILOG];
    settings.Defines = {{{"A", "\"x\""}, {"l", 1, 0}},
                        {{"B", "$IMPORT_TEST"}, {"l", 2, 0}},
                        {{"C", "1\n2"}, {"l", 3, 0}},
                        {{"D", "a b+c"}, {"l", 4, 0}}};
    settings.Options[STEP_RUN] = {{"+x=\"", {"l", 5, 0}}, {"+y", {"l", 6, 0}}};
    EXPECT_EQ(Checked(imported),
              "l:4 define D=a b+c\n"
              "l:6 option +y\n"
              "l:1 HB701 a build has no words for the option A=\"x\" with a quote in it\n"
              "l:2 HB701 a build has no words for the option B=$IMPORT_TEST with a variable in it\n"
              "l:3 HB701 a build has no words for the option C=1\n2 with a line end in it\n"
              "l:5 HB701 a build has no words for the option +x=\" with a quote in it\n");
}
