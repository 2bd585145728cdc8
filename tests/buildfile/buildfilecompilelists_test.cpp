#include "buildfile/hdlbuildfile.h"
#include "tests/buildfile/filledbuild.h"
#include <gtest/gtest.h>
#include <map>

namespace {

using TNames = std::vector<std::string>;

TEST(PrecompiledLibraries, AreKeptOnceInTheOrderFirstMet) {
    OpenBuild build;
    EXPECT_EQ(build.GetPrecompiledLibraryGroups(), TNames{});
    const char* const names[] = {"ieee", "std", "ieee", "IEEE", "", nullptr, ""};
    for (const char* name : names) build.AddPrecompiledLibraryGroupNoDup(name);
    EXPECT_EQ(build.GetPrecompiledLibraryGroups(), (TNames{"ieee", "std", "IEEE", ""}));
}

TEST(PrecompiledLibraries, AreMadeAnewFromTheGroupOfTheHdlLanguage) {
    OpenBuild build;
    Sources made;
    for (const auto& [name, library] : std::map<std::string, const char*>{{"/p/a.vhd", "one"},
                                                                          {"/p/b.vhd", "two"},
                                                                          {"/p/c.vhd", "one"},
                                                                          {"/p/t.v", "verilog"}}) {
        THdlSourceFile* source = made.Make(name);
        source->SetPrecompiledLibraryGroupName(library);
        build.AddSourceFile(source, false);
    }
    EXPECT_EQ(build.GetPrecompiledLibraryGroups(), (TNames{"one", "two", "verilog"}));
    build.SetHdlLanguage(LANGUAGE_VHDL);
    build.CompilePrecompiledLibraryGroup();
    EXPECT_EQ(build.GetPrecompiledLibraryGroups(), (TNames{"one", "two"}));
    build.SetHdlLanguage(LANGUAGE_SYSTEMC);
    build.CompilePrecompiledLibraryGroup();
    EXPECT_EQ(build.GetPrecompiledLibraryGroups(), TNames{});
    EXPECT_EQ(build.GetSourceFileLanguages(), (std::vector{LANGUAGE_VERILOG, LANGUAGE_VHDL}))
        << "looking at a language makes no group";
}

}  // namespace
