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

TEST(CompileCommandFiles, KeepTheFoldersOfOptions) {
    const ImportFolder folder;
    EXPECT_EQ(folder.ReadText("compile-commands",
                              "[{\"directory\": \"/q\", \"file\": \"a.cpp\", \"command\":\n"
                              "  \"g++ -isystem sys -include pre.h -iquoteq -x cuda a.cpp\"}]"),
              "in/list:1:2 C++  /q/a.cpp\n"
              "in/list:1:2 option -isystem /q/sys\n"
              "in/list:1:2 option -include /q/pre.h\n"
              "in/list:1:2 option -iquote /q/q\n"
              "in/list:1:2 option -x cuda\n"
              "in/list:1:2 HB706 kept as a compile option: -isystem /q/sys\n"
              "in/list:1:2 HB706 kept as a compile option: -include /q/pre.h\n"
              "in/list:1:2 HB706 kept as a compile option: -iquote /q/q\n"
              "in/list:1:2 HB706 kept as a compile option: -x cuda\n");
}

// Where a compiler or a directory is one of Windows, a backslash is the delimiter of a path.
TEST(CompileCommandFiles, ReadBackslashesAsTheSystemDoes) {
    const ImportFolder folder;
    const struct {
        const char* Directory;
        const char* Command;
        const char* Options;  // each behind a blank
    } rows[] = {
        {"/q", R"(g++ -DA=\"x\" '-DB=\(y' "-DC=\w\\z" -DD=a\ b)",
         R"( -DA="x" -DB=\(y -DC=\w\z -DD=a b)"},
        {"/q", R"(g++ -DP=x\y)", " -DP=xy"},
        {R"(C:\q)", R"(g++ -DP=m\@s\x -DQ=\"z\" -DR=it's "-DS=a b")",
         R"( -DP=m\@s\x -DQ="z" -DR=it's -DS=a b)"},
        {"/q", R"("C:\my t\g++.exe" -DP=\(x)", R"( -DP=\(x)"},
        {R"(\\srv\q)", R"(g++ -DP=\\srv\x)", R"( -DP=\\srv\x)"},
    };
    for (const auto& row : rows) {
        const auto json = [](std::string text) {
            for (std::size_t at = 0; (at = text.find_first_of("\\\"", at)) != std::string::npos;
                 at += 2)
                text.insert(at, "\\");
            return text;
        };
        folder.Write("in/list", "[{\"directory\": \"" + json(row.Directory) +
                                    "\", \"file\": \"a.cpp\", \"command\": \"" + json(row.Command) +
                                    " a.cpp\"}]");
        std::string options;
        for (const TDiagnostic& told : folder.Import("compile-commands", {"in/list"}).Diagnostics)
            if (told.Code == DIAGNOSTIC_IMPORTED_OPTION) options += " " + told.Names.front();
        EXPECT_EQ(options, row.Options) << row.Command;
    }
}

TEST(CompileCommandFiles, KeepNothingButOptionsOfTheLanguage) {
    const ImportFolder folder;
    const struct {
        const char* File;
        const char* Words;
        const char* Options;  // each behind a blank
    } rows[] = {
        {"c.cpp", "ccache -v g++ -MJ c.json -c -- c.cpp", ""},
        {"c.cpp", "g++ -x c -c c.cpp", " -x c"},
        {"c.c", "gcc -x c -c c.c", ""},
        {"c.c", "gcc -xc++ c.c", " -x c++"},
        {"c.cpp", "icpc -xHost -xc++ c.cpp", " -xHost"},
        {"t.sc", "g++ -x c++ t.sc", ""},
        {"c.cpp",
         "clang++ -Xclang -include-pch -Xclang p.pch -Xclang -include -Xclang pch.hxx -c c.cpp",
         " -Xclang -include-pch -Xclang p.pch -Xclang -include -Xclang pch.hxx"},
        {"c.cpp", "clang++ -target arm -arch x -mllvm -o -Xlinker -I --param p=1 c.cpp",
         " -target arm -arch x -mllvm -o -Xlinker -I --param p=1"},
    };
    for (const auto& row : rows) {
        folder.Write("in/list", std::string("[{\"directory\": \"/q\", \"file\": \"") + row.File +
                                    "\", \"command\": \"" + row.Words + "\"}]");
        std::string options;
        for (const TDiagnostic& told : folder.Import("compile-commands", {"in/list"}).Diagnostics)
            if (told.Code != DIAGNOSTIC_IMPORTED_FILE_MISSING) options += " " + told.Names.front();
        EXPECT_EQ(options, row.Options) << row.Words;
    }
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
