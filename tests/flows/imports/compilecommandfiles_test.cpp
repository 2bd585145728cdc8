#include "tests/flows/imports/importedtext.h"
#include <gtest/gtest.h>

TEST(CompileCommandFiles, GiveSourcesAndTheirOptions) {
    const ImportFolder folder;
    EXPECT_EQ(
        folder.ReadText("compile-commands",
                        "[{\"directory\": \"/q\", \"file\": \"src/a b.cpp\", \"output\": \"a.o\",\n"
                        "  \"arguments\": [\"c++\", \"-Iinc\", \"-I\", \"/r\", \"-DX=1\", \"-o\", "
                        "\"a.o\", \"-c\", \"src/a b.cpp\"]},\n"
                        " {\"directory\": \"/q\", \"file\": \"b.c\",\n"
                        "  \"command\": \"cc -I'inc' -D\\\"X=1\\\" -c b.c\"},\n"
                        " {\"directory\": \".\", \"file\": \"t.sc\",\n"
                        "  \"arguments\": [\"c++\", \"-x\", \"c++\", \"-c\", \"t.sc\"]}]"),
        "in/list:1:2 C++  /q/src/a b.cpp\n"
        "in/list:3:2 C++  /q/b.c\n"
        "in/list:5:2 SystemC  in/t.sc\n"
        "in/list:1:2 include /q/inc\n"
        "in/list:1:2 include /r\n"
        "in/list:1:2 option -DX=1\n"
        "in/list:1:2 HB706 kept as a compile option: -DX=1\n"
        "in/list:3:2 HB712 taken for all sources: include directories of b.c\n");
}

TEST(CompileCommandFiles, TellOfOptionsThatOneSourceHasAlone) {
    const ImportFolder folder;
    EXPECT_EQ(folder.ReadText(
                  "compile-commands",
                  "[{\"directory\": \"/q\", \"file\": \"a.cpp\", \"command\": \"c++ a.cpp\"},\n"
                  " {\"directory\": \"/q\", \"file\": \"b.cpp\", \"command\": \"c++ -O2 "
                  "b.cpp\"},\n"
                  " {\"directory\": \"/q\"}]"),
              "in/list:1:2 C++  /q/a.cpp\n"
              "in/list:2:2 C++  /q/b.cpp\n"
              "in/list:2:2 HB701 a build has no words for options of b.cpp alone\n"
              "in/list:3:2 HB708 not of the format: an entry without a file\n");
}

TEST(CompileCommandFiles, KnowTheSourceInEverySpelling) {
    const ImportFolder folder;
    EXPECT_EQ(
        folder.ReadText("compile-commands",
                        "[{\"directory\": \"/q\", \"file\": \"a.cpp\",\n"
                        "  \"command\": \"c++ -c ./a.cpp\"},\n"
                        " {\"directory\": \"/q\", \"file\": \"/q/b.cpp\",\n"
                        "  \"command\": \"ccache c++ -x c++ b.cpp -MD -MF b.d\"},\n"
                        " {\"directory\": \"/q\", \"file\": \"s\\\\c.cpp\",\n"
                        "  \"command\": \"C:\\\\t\\\\g++.exe -o o\\\\c.o -c s\\\\c.cpp\"}]"),
        "in/list:1:2 C++  /q/a.cpp\nin/list:3:2 C++  /q/b.cpp\nin/list:5:2 C++  /q/s/c.cpp\n");
}

TEST(CompileCommandFiles, KeepBackslashesAndTheFoldersOfOptions) {
    const ImportFolder folder;
    EXPECT_EQ(
        folder.ReadText("compile-commands",
                        "[{\"directory\": \"/q\", \"file\": \"a.cpp\", \"command\":\n"
                        "  \"g++ -Is\\\\inc -DP=x\\\\y -DQ=\\\\(z\\\\) -isystem sys -include pre.h "
                        "-iquoteq -x cuda a.cpp\"}]"),
        "in/list:1:2 C++  /q/a.cpp\n"
        "in/list:1:2 include /q/s/inc\n"
        "in/list:1:2 option -DP=x/y\n"
        "in/list:1:2 option -DQ=(z)\n"
        "in/list:1:2 option -isystem /q/sys\n"
        "in/list:1:2 option -include /q/pre.h\n"
        "in/list:1:2 option -iquote /q/q\n"
        "in/list:1:2 option -x cuda\n"
        "in/list:1:2 HB706 kept as a compile option: -DP=x\\y\n"
        "in/list:1:2 HB706 kept as a compile option: -DQ=(z)\n"
        "in/list:1:2 HB706 kept as a compile option: -isystem /q/sys\n"
        "in/list:1:2 HB706 kept as a compile option: -include /q/pre.h\n"
        "in/list:1:2 HB706 kept as a compile option: -iquote /q/q\n"
        "in/list:1:2 HB706 kept as a compile option: -x cuda\n");
}

TEST(CompileCommandFiles, TellOfDirectoriesThatOneSourceHasAlone) {
    const ImportFolder folder;
    EXPECT_EQ(
        folder.ReadText("compile-commands",
                        "[{\"directory\": \"/q\", \"file\": \"a.cpp\", \"command\": \"c++ -Ii "
                        "a.cpp\"},\n"
                        " {\"directory\": \"/q\", \"file\": \"b.cpp\", \"command\": \"c++ -Ij "
                        "b.cpp\"},\n"
                        " {\"directory\": \"/q\", \"file\": \"c.cpp\", \"command\": \"c++ "
                        "c.cpp\"}]"),
        "in/list:1:2 C++  /q/a.cpp\n"
        "in/list:2:2 C++  /q/b.cpp\n"
        "in/list:3:2 C++  /q/c.cpp\n"
        "in/list:1:2 include /q/i\n"
        "in/list:2:2 include /q/j\n"
        "in/list:2:2 HB712 taken for all sources: include directories of b.cpp\n");
}
