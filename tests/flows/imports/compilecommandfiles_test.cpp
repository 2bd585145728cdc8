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
        "in/list:1:2 HB706 kept as a compile option: -DX=1\n");
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
