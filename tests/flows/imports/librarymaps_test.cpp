#include "tests/flows/imports/importedtext.h"
#include <filesystem>
#include <gtest/gtest.h>

TEST(LibraryMaps, NameTheFilesOfLibraries) {
    const ImportFolder folder;
    EXPECT_EQ(folder.ReadText("libmap",
                              "// libraries\nlibrary main rtl/a.v, \"my b.v\",\n"
                              "  c.vhd -incdir inc, inc2; /* x */;\n"
                              "library ip ip/x -incdir inc,inc2;\n"),
              "in/list:2:14 Verilog main in/rtl/a.v\n"
              "in/list:2:23 Verilog main in/my b.v\n"
              "in/list:3:3 VHDL main in/c.vhd\n"
              "in/list:4:12 Verilog ip in/ip/x\n"
              "in/list:3:17 include in/inc\n"
              "in/list:3:22 include in/inc2\n"
              "in/list:4:25 include in/inc\n"
              "in/list:4:29 include in/inc2\n");
}

TEST(LibraryMaps, FindTheFilesOfPatterns) {
    const ImportFolder folder;
    for (const char* const name :
         {"in/rtl/a.v", "in/rtl/b.sv", "in/rtl/x.txt", "in/rtl/sub/c.v", "in/lib/d.v"})
        folder.Write(name, "");
    EXPECT_EQ(
        folder.ReadText("libmap",
                        "library one rtl/?.v, lib/;\nlibrary two rtl/.../*.v;\n"
                        "library three none/*.v;\n"),
        "in/list:1:13 Verilog one in/rtl/a.v\n"
        "in/list:1:22 Verilog one in/lib/d.v\n"
        "in/list:2:13 Verilog two in/rtl/sub/c.v\n"
        "in/list:3:15 HB701 a build has no words for the pattern none/*.v, which no file has\n"
        "in/list:2:13 HB702 named again in another way: in/rtl/a.v (first: in/list:1:13)\n");
}

// Folders in which tools make files may hold sources that are made.
TEST(LibraryMaps, FindTheFilesOfPatternsInAllFolders) {
    const ImportFolder folder;
    for (const char* const name : {"in/ip/k.v", "in/ip/build/g.v", "in/ip/x.cache/l.v"})
        folder.Write(name, "");
    EXPECT_EQ(folder.ReadText("libmap", "library one ip/.../*.v;\n"),
              "in/list:1:13 Verilog one in/ip/k.v\n"
              "in/list:1:13 Verilog one in/ip/build/g.v\n"
              "in/list:1:13 Verilog one in/ip/x.cache/l.v\n");
}

#ifndef _WIN32
TEST(LibraryMaps, TellOfFoldersThatPatternsDoNotReach) {
    const ImportFolder folder;
    folder.Write("in/ip/k.v", "");
    folder.Write("in/other/m.v", "");
    std::filesystem::create_directory_symlink("../other", folder.Path("in/ip/link"));
    EXPECT_EQ(folder.ReadText("libmap", "library one ip/.../*.v;\nlibrary two ip/k.v/*.v;"),
              "in/list:1:13 Verilog one in/ip/k.v\n"
              "in/list:1:13 HB701 a build has no words for the folder in/ip/link, which is a link\n"
              "in/list:2:13 HB709 ip/k.v/*.v: " +
                  folder.Path("in/ip/k.v/") + ": Not a directory\n");
}
#endif

TEST(LibraryMaps, IncludeMaps) {
    const ImportFolder folder;
    folder.Write("in/ip/lib.map", "library ip x.v;\ninclude ../list;\n");
    EXPECT_EQ(folder.ReadText("libmap", "include ip/lib.map;\nlibrary main a.v;\ninclude no;"),
              "in/ip/lib.map:1:12 Verilog ip in/ip/x.v\n"
              "in/list:2:14 Verilog main in/a.v\n"
              "in/ip/lib.map:2:9 HB710 files that name each other: in/list:1:9 -> "
              "in/ip/lib.map:2:9 -> in/list\n"
              "in/list:3:9 HB709 in/no: the file does not exist\n");
}

TEST(LibraryMaps, TellWhatABuildDoesNotHold) {
    const ImportFolder folder;
    EXPECT_EQ(folder.ReadText("libmap",
                              "library a a.v -incdir inc;\nlibrary b b.v;\n"
                              "config c;\n  design a.x;\nendconfig\nfoo bar;\nlibrary c c.v\n"),
              "in/list:1:11 Verilog a in/a.v\n"
              "in/list:2:11 Verilog b in/b.v\n"
              "in/list:7:11 Verilog c in/c.v\n"
              "in/list:1:23 include in/inc\n"
              "in/list:2:9 HB712 taken for all sources: include directories of the library b\n"
              "in/list:3:1 HB701 a build has no words for a configuration\n"
              "in/list:6:1 HB708 not of the format: 'foo' instead of a statement\n"
              "in/list:7:9 HB708 not of the format: a library without a semicolon\n");
    EXPECT_EQ(folder.ReadText("libmap", "library a \"b"),
              "in/list:1:11 Verilog a in/b\n"
              "in/list:1:11 HB708 not of the format: a quote that does not end\n"
              "in/list:1:9 HB708 not of the format: a library without a semicolon\n");
}

TEST(LibraryMaps, TellWhatIsCutShort) {
    const ImportFolder folder;
    folder.Write("in/z.map", "library z z.v;\n");
    const struct {
        const char* Text;
        const char* Read;
    } rows[] = {
        {"library a a.v; /* oops\nlibrary b b.v;",
         "in/list:1:11 Verilog a in/a.v\n"
         "in/list:1:16 HB708 not of the format: a comment that does not end\n"},
        {"include z.map\nlibrary a a.v;\nlibrary b b.v;",
         "in/list:3:11 Verilog b in/b.v\n"
         "in/list:2:1 HB708 not of the format: 'library' instead of a semicolon\n"},
        {"include z.map y.map;\nlibrary b b.v;",
         "in/list:2:11 Verilog b in/b.v\n"
         "in/list:1:15 HB708 not of the format: 'y.map' instead of a semicolon\n"},
        {"include z.map", "in/list:1:9 HB708 not of the format: an include without a semicolon\n"},
        {"include ;", "in/list:1:9 HB708 not of the format: an include without a name\n"},
        {"library ;\nlibrary a a.v;",
         "in/list:2:11 Verilog a in/a.v\n"
         "in/list:1:9 HB708 not of the format: a library without a name\n"},
        {"library , c.v;\nlibrary a a.v;",
         "in/list:2:11 Verilog a in/a.v\n"
         "in/list:1:9 HB708 not of the format: a library without a name\n"},
        {"config c;\nlibrary a a.v;",
         "in/list:1:1 HB701 a build has no words for a configuration\n"
         "in/list:1:1 HB708 not of the format: a configuration without an end\n"},
        {"library a ;\nlibrary b b.v;",
         "in/list:2:11 Verilog b in/b.v\n"
         "in/list:1:11 HB708 not of the format: ';' instead of a name\n"},
        {"library a a.v -incdir ;\nlibrary b b.v;",
         "in/list:1:11 Verilog a in/a.v\n"
         "in/list:2:11 Verilog b in/b.v\n"
         "in/list:1:23 HB708 not of the format: ';' instead of a name\n"},
        {"library a a.v b.v,, \"c.v\", -incdir i j;",
         "in/list:1:11 Verilog a in/a.v\n"
         "in/list:1:15 Verilog a in/b.v\n"
         "in/list:1:21 Verilog a in/c.v\n"
         "in/list:1:36 include in/i\n"
         "in/list:1:38 include in/j\n"
         "in/list:1:15 HB708 not of the format: 'b.v' instead of a comma\n"
         "in/list:1:19 HB708 not of the format: ',' instead of a name\n"
         "in/list:1:28 HB708 not of the format: '-incdir' instead of a name\n"
         "in/list:1:38 HB708 not of the format: 'j' instead of a comma\n"},
        {"library", "in/list:1:1 HB708 not of the format: a library without a name\n"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(folder.ReadText("libmap", row.Text), row.Read) << row.Text;
}
