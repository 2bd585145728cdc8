#pragma once
#include "tests/cli/toolrun.h"
#include <gtest/gtest.h>
#include <string>
#include <vector>

/// Three sources: "top.vhd" needs "e.vhd" and the package of "p.vhd", "e.vhd" the package.
class ScannedBuild : public testing::Test {
protected:
    ScannedBuild() {
        Folder.Write("p.vhd", "package p is end;");
        Folder.Write("e.vhd", "library lib;\nentity e is port (x : lib.p.t); end;");
        Folder.Write("top.vhd",
                     "library lib; use lib.p.all;\nentity top is end;\n"
                     "architecture a of top is begin i: entity work.e; end;");
    }
    /// As an edit lays a source out.
    static std::string Source(const std::string& path,
                              const std::vector<std::string>& dependencies) {
        std::string text = "  <SourceFile>" + path;
        for (std::size_t i = 0; i < dependencies.size(); ++i)
            text +=
                (i > 0 ? "    <Dependency>" : "<Dependency>") + dependencies[i] + "</Dependency>\n";
        return text + (dependencies.empty() ? "</SourceFile>\n" : "  </SourceFile>\n");
    }
    /// The build with what each source depends on.
    static std::string Build(const std::vector<std::string>& ofTop,
                             const std::vector<std::string>& ofE, const std::string& front = "") {
        return BuildText(front + "<!-- ours -->\n<SourceFileGroup Language=\"VHDL\">\n" +
                         Source("top.vhd", ofTop) + Source("e.vhd", ofE) +
                         "  <SourceFile PrecompiledLibrary=\"lib\">p.vhd</SourceFile>\n"
                         "</SourceFileGroup>\n");
    }
    void Write(const std::vector<std::string>& ofTop, const std::vector<std::string>& ofE) const {
        Folder.Write("b.xml", Build(ofTop, ofE));
    }
    static std::string Scan(std::vector<std::string> options) {
        options.insert(options.begin(), {"scan", "b.xml"});
        return ResultOf(options);
    }
    WorkingFolder Folder;
};
