#include "flows/sourcesearch.h"
#include "services/names/utilfilename.h"
#include "tests/support/temporaryfolder.h"
#include <gtest/gtest.h>

namespace {

/// A folder of sources, and what is found in it.
class SearchedFolder {
public:
    SearchedFolder() {
        for (const char* name :
             {"a.vhd", "B.VHD", "c.v", "notes.txt", ".hidden.vhd", "rtl/d.sv", "rtl/e.vh",
              "rtl/deep/f.vhd", "rtl/deep/build/g.vhd", ".git/h.vhd", "obj_dir/i.v", "p.runs/j.v",
              "sim/build/k.vhd", "sim/main.cpp", "sim/main.h"})
            Folder.Write(name, "");
    }

    /// The paths relative to the folder, each with its language, or the complaint.
    std::string Find(const std::vector<std::string>& names, TSourceSearch search = {}) const {
        std::vector<std::string> paths;
        for (const std::string& name : names) paths.push_back(Folder.Path() + "/" + name);
        for (std::string& pattern : search.Excluded)
            if (pattern.find('/') != std::string::npos) pattern = Folder.Path() + "/" + pattern;
        const TFoundSources found = FindSources(paths, search);
        std::string text;
        for (const TFoundSource& source : found.Sources)
            text += Shown(source.Path) + " " + GetStringFromHdlLanguage(source.Language) + "\n";
        if (!found.Complaint.empty())
            text += (found.IsFileFault ? "file: " : "usage: ") + Shown(found.Complaint) + "\n";
        return text;
    }

private:
    std::string Shown(std::string text) const {
        const std::string front = TUtilFileName(Folder.Path().c_str()).Canonical();
        for (const std::string& part : {Folder.Path(), front})
            for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part))
                text.erase(at, part.size() + 1);
        for (char& c : text)
            if (c == '\\') c = '/';
        return text;
    }
    TemporaryFolder Folder;
};

}  // namespace

TEST(SourceSearch, TakesFilesWithTheLanguageOfTheirExtension) {
    const SearchedFolder folder;
    EXPECT_EQ(folder.Find({"c.v", "a.vhd", "rtl/../a.vhd", "rtl/e.vh", ".hidden.vhd"}),
              "c.v Verilog\na.vhd VHDL\nrtl/e.vh Verilog\n.hidden.vhd VHDL\n");
    EXPECT_EQ(folder.Find({"notes.txt"}, {.Language = LANGUAGE_VHDL}), "notes.txt VHDL\n");
}

TEST(SourceSearch, KeepsTheOtherFilesOfFoldersWhenAsked) {
    const TemporaryFolder folder;
    for (const char* name : {"a.vhd", "b.txt", "rtl/c.vh", "rtl/d.v", "rtl/build/e.vh"})
        folder.Write(name, "");
    const std::vector<std::string> paths = {folder.Path("rtl"), folder.Path(),
                                            folder.Path("b.txt")};
    const TSourceSearch plain{.EntersFolders = true, .Language = LANGUAGE_VHDL};
    TSourceSearch keeping = plain;
    keeping.KeepsRest = true;
    EXPECT_EQ(FindSources(paths, plain).Rest, std::vector<std::string>());
    EXPECT_EQ(FindSources(paths, keeping).Rest,
              (std::vector<std::string>{folder.Path("rtl/c.vh"), folder.Path("rtl/d.v"),
                                        folder.Path("b.txt")}));
}

TEST(SourceSearch, EntersFoldersButNotHiddenOnesNorOutputs) {
    const SearchedFolder folder;
    const TSourceSearch search{.EntersFolders = true};
    EXPECT_EQ(folder.Find({"."}, search),
              "B.VHD VHDL\na.vhd VHDL\nc.v Verilog\nrtl/d.sv Verilog\nrtl/deep/f.vhd VHDL\n"
              "sim/main.cpp C++\n");
    EXPECT_EQ(folder.Find({"obj_dir", ".git/"}, search), "obj_dir/i.v Verilog\n.git/h.vhd VHDL\n");
    EXPECT_EQ(folder.Find({"."}, {.EntersFolders = true, .Language = LANGUAGE_VERILOG}),
              "c.v Verilog\nrtl/d.sv Verilog\n");
}

TEST(SourceSearch, ExpandsPatterns) {
    const SearchedFolder folder;
    const struct {
        const char* Pattern;
        const char* Expected;
    } rows[] = {
        {"*.vhd", "B.VHD VHDL\na.vhd VHDL\n"},
        {"*", "B.VHD VHDL\na.vhd VHDL\nc.v Verilog\n"},
        {".*.vhd", ".hidden.vhd VHDL\n"},
        {"**/*.vhd", "B.VHD VHDL\na.vhd VHDL\nrtl/deep/f.vhd VHDL\n"},
        {"**/?.*v", "c.v Verilog\nrtl/d.sv Verilog\n"},
        {"r*/*.vh", "rtl/e.vh Verilog\n"},
        {"rtl/**", "rtl/d.sv Verilog\nrtl/e.vh Verilog\nrtl/deep/f.vhd VHDL\n"},
        {"**/deep/**/*.vhd", "rtl/deep/f.vhd VHDL\n"},
        {"**/build/*", "rtl/deep/build/g.vhd VHDL\nsim/build/k.vhd VHDL\n"},
        {"sim/bu*/*", "sim/build/k.vhd VHDL\n"},
        {"obj_dir/*.v", "obj_dir/i.v Verilog\n"},
        {"none/*.v", "file: none/"},
        {"*.txt", "usage: no source matches '*.txt'\n"},
        {"rt?", "usage: no source matches 'rt?'\n"},
    };
    for (const auto& row : rows) {
        const std::string found = folder.Find({row.Pattern});
        EXPECT_EQ(found.substr(0, found.find(": No such file")), row.Expected) << row.Pattern;
    }
    EXPECT_EQ(folder.Find({"rt?"}, {.EntersFolders = true}),
              "rtl/d.sv Verilog\nrtl/deep/f.vhd VHDL\n");
    EXPECT_EQ(folder.Find({"*.txt"}, {.Language = LANGUAGE_VHDL}), "notes.txt VHDL\n");
}

TEST(SourceSearch, PassesOverWhatIsExcluded) {
    const SearchedFolder folder;
    const auto without = [&](const std::string& pattern) {
        return folder.Find({"."}, {.EntersFolders = true, .Excluded = {pattern}});
    };
    const std::string vhdl = "B.VHD VHDL\na.vhd VHDL\n";
    const std::string verilog = "c.v Verilog\nrtl/d.sv Verilog\n";
    EXPECT_EQ(without("*.vhd"), verilog + "sim/main.cpp C++\n");
    EXPECT_EQ(without("rtl"), vhdl + "c.v Verilog\nsim/main.cpp C++\n");
    EXPECT_EQ(without("rtl/**/f*"), vhdl + verilog + "sim/main.cpp C++\n");
    EXPECT_EQ(without("sim/"), vhdl + verilog + "rtl/deep/f.vhd VHDL\n");
    // A path that is named is taken.
    EXPECT_EQ(folder.Find({"a.vhd"}, {.Excluded = {"a.vhd"}}), "a.vhd VHDL\n");
}

TEST(SourceSearch, TellsWhyThereAreNoSources) {
    const SearchedFolder folder;
    EXPECT_EQ(folder.Find({"a.vhd", "none.vhd"}), "file: none.vhd: the file does not exist\n");
    EXPECT_EQ(folder.Find({"rtl"}), "usage: 'rtl' is a folder: give -r for the sources in it\n");
    EXPECT_EQ(folder.Find({"notes.txt"}),
              "usage: no language has the extension of 'notes.txt': give one with --language\n");
    EXPECT_EQ(folder.Find({".git"}, {.EntersFolders = true, .Language = LANGUAGE_VERILOG}), "");
}
