#include "flows/verilogoptions.h"
#include <gtest/gtest.h>

namespace {

std::string TextOf(std::string_view text) {
    TVerilogOptions options;
    AddVerilogOptions(text, &options);
    std::string found;
    for (const TScanDefine& define : options.Defines)
        found += "define " + define.Name + "=" + define.Value + "\n";
    for (const std::string& folder : options.IncludeFolders) found += "include " + folder + "\n";
    for (const std::string& folder : options.LibraryFolders) found += "library " + folder + "\n";
    for (const std::string& extension : options.LibraryExtensions)
        found += "ext " + extension + "\n";
    for (const std::string& file : options.LibraryFiles) found += "file " + file + "\n";
    for (const std::string& word : options.Others) found += "other " + word + "\n";
    return found;
}

}  // namespace

TEST(VerilogOptions, AreKnownInTheSpellingsOfSimulators) {
    const struct {
        const char* Text;
        const char* Found;
    } rows[] = {
        {"", ""},
        {"+define+A", "define A=\n"},
        {"+define+A=1+B=x=y+", "define A=1\ndefine B=x=y\n"},
        {"-define A=1\t-D B -DC=2", "define A=1\ndefine B=\ndefine C=2\n"},
        {"\"+define+A=b c\" +define+D=\"e f\"", "define A=b c\ndefine D=e f\n"},
        {"+incdir+a+b -incdir c -I d -Ie",
         "include a\ninclude b\ninclude c\ninclude d\ninclude e\n"},
        {"-y lib +libext+.v+.sv -v c.v -v", "library lib\next .v\next .sv\nfile c.v\nother -v\n"},
        {"+notimingchecks -w a.v -defineX",
         "other +notimingchecks\nother -w\nother a.v\nother -defineX\n"},
        {"-D", "other -D\n"},
        {"-define", "other -define\n"},
        {"+define++", ""},
    };
    for (const auto& row : rows) EXPECT_EQ(TextOf(row.Text), row.Found) << row.Text;
}
