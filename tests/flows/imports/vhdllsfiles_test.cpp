#include "tests/flows/imports/importedtext.h"
#include <gtest/gtest.h>

TEST(VhdlLsFiles, GiveLibrariesWithExpandedPatterns) {
    const ImportFolder folder;
    for (const char* const name :
         {"in/rtl/a.vhd", "in/rtl/b.vhd", "in/rtl/old/c.vhd", "in/rtl/d.v", "in/ip/x/e.vhdl"})
        folder.Write(name, "");
    EXPECT_EQ(folder.ReadText("vhdl-ls",
                              "standard = \"2008\"\n"
                              "[libraries]\n"
                              "sensor.files = ['rtl/**/*', 'gone.vhd']\n"
                              "sensor.exclude = ['rtl/old/*.vhd']\n"
                              "ip.files = [\n  'ip/**/*.vhdl',\n  'none/*.vhd',\n]\n"),
              "in/list:3:17 VHDL sensor in/rtl/a.vhd\n"
              "in/list:3:17 VHDL sensor in/rtl/b.vhd\n"
              "in/list:3:29 VHDL sensor in/gone.vhd\n"
              "in/list:6:3 VHDL ip in/ip/x/e.vhdl\n"
              "in/list:1:12 standard 2008\n"
              "in/list:7:3 HB701 a build has no words for the pattern none/*.vhd, which no file "
              "has\n");
}

TEST(VhdlLsFiles, FindTheFilesOfPatternsInAllFolders) {
    const ImportFolder folder;
    for (const char* const name :
         {"in/ip/k.vhd", "in/ip/build/g.vhd", "in/ip/x.cache/l.vhd", "in/ip/x.cache/m.vhd"})
        folder.Write(name, "");
    EXPECT_EQ(folder.ReadText("vhdl-ls",
                              "[libraries]\na.files = ['ip/**/*.vhd', 'n.vhd']\n"
                              "a.exclude = ['IP/x.cache/m.vhd', 'n.vhd']\n"),
              "in/list:2:12 VHDL a in/ip/k.vhd\n"
              "in/list:2:12 VHDL a in/ip/build/g.vhd\n"
              "in/list:2:12 VHDL a in/ip/x.cache/l.vhd\n");
}

TEST(VhdlLsFiles, TellOfPatternsThatFindNoVhdl) {
    const ImportFolder folder;
    folder.Write("in/r/a.v", "");
    EXPECT_EQ(folder.ReadText("vhdl-ls", "[libraries]\nl.files = ['r/*', 'x.vhd']\n"),
              "in/list:2:19 VHDL l in/x.vhd\n"
              "in/list:2:12 HB701 a build has no words for the pattern r/*, which no file has\n");
}

TEST(VhdlLsFiles, TellWhatABuildHasNoWordsForAndWhatIsWrong) {
    const ImportFolder folder;
    EXPECT_EQ(folder.ReadText("vhdl-ls",
                              "standard = \"77\"\n"
                              "[libraries]\n"
                              "a.files = [\"$HDLBUILD_NO_SUCH/a.vhd\", 1]\n"
                              "a.is_third_party = true\n"
                              "b = 1\n"
                              "[lint]\nunused = false\n"),
              "in/list:3:12 VHDL a in/$HDLBUILD_NO_SUCH/a.vhd\n"
              "in/list:6:2 HB713 left out, as nothing is built of it: \"lint\"\n"
              "in/list:1:12 HB708 not of the format: the standard 77\n"
              "in/list:4:3 HB713 left out, as nothing is built of it: \"is_third_party\"\n"
              "in/list:3:12 HB704 the variable HDLBUILD_NO_SUCH is not set\n"
              "in/list:3:39 HB708 not of the format: no text\n"
              "in/list:5:5 HB708 not of the format: no map\n");
    EXPECT_EQ(folder.ReadText("vhdl-ls", "a = [\n"),
              "in/list:1:7 HB708 not of the format: Error while parsing array: encountered "
              "end-of-file\n");
}
