#pragma once
#include "tests/cli/toolrun.h"
#include "tests/support/replaced.h"
#include <gtest/gtest.h>

/// A build of three sources of one language and one of another, with its comments. All but old.vhd
/// are on the disk, and n.vhd that it does not list.
class FixedBuild : public testing::Test {
protected:
    FixedBuild() {
        for (const char* name : {"rtl/pkg.vhd", "rtl/top.vhd", "tb/tb.v", "n.vhd"})
            Folder.Write(name, "");
        Folder.Write("b.xml", kText);
    }
    /// What `command` of b.xml prints.
    static std::string Run(const char* command, std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), {command, "b.xml"});
        return ResultOf(arguments);
    }
    std::string Text() const { return Folder.Read("b.xml"); }

    static constexpr const char* kText =
        "<HdlBuildFile TopLevelLanguage='VHDL'>\n"
        "  <GeneralConfiguration CompileVHDLFiles='true' CompileVerilogFiles='true'/>\n"
        "  <SourceFileGroup Language='VHDL'>\n"
        "    <!-- first -->\n"
        "    <SourceFile PrecompiledLibrary='work'>rtl/pkg.vhd</SourceFile>\n"
        "    <SourceFile>old.vhd</SourceFile>\n"
        "    <SourceFile>rtl/top.vhd\n"
        "      <Dependency>rtl/pkg.vhd</Dependency>\n"
        "      <Dependency>old.vhd</Dependency>\n"
        "    </SourceFile>\n"
        "  </SourceFileGroup>\n"
        "  <SourceFileGroup Language='Verilog'>\n"
        "    <SourceFile>tb/tb.v</SourceFile>\n"
        "  </SourceFileGroup>\n"
        "</HdlBuildFile>\n";
    WorkingFolder Folder;
};
