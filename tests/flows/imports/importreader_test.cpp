#include "flows/imports/importreader.h"
#include "tests/flows/imports/importedtext.h"
#include <gtest/gtest.h>

namespace {

/// A list that names the next one, `depth` files in all.
void WriteChain(const ImportFolder& folder, std::size_t depth) {
    for (std::size_t at = 1; at < depth; ++at)
        folder.Write("l" + std::to_string(at), "-f l" + std::to_string(at + 1) + "\n");
    folder.Write("l" + std::to_string(depth), "a.v\n");
    folder.Write("a.v", "");
}

}  // namespace

TEST(ImportReader, GoesAsDeepAsTheLimit) {
    const ImportFolder folder;
    WriteChain(folder, kDeepestImport);
    EXPECT_EQ(folder.TextOf(folder.Import("filelist", {"l1"})), "l64:1:1 Verilog  a.v\n");
    WriteChain(folder, kDeepestImport + 1);
    EXPECT_EQ(folder.TextOf(folder.Import("filelist", {"l1"})),
              "l64:1:1 HB711 more than 64 files, each named by the one before\n");
}

TEST(ImportReader, TellsTheChainOfACycle) {
    const ImportFolder folder;
    folder.Write("a", "x.v\n-f b\n");
    folder.Write("b", "\n y.v -F c\n");
    folder.Write("c", "-f b z.v\n");
    for (const char* const source : {"x.v", "y.v", "z.v"}) folder.Write(source, "");
    EXPECT_EQ(folder.TextOf(folder.Import("filelist", {"a"})),
              "a:1:1 Verilog  x.v\n"
              "b:2:2 Verilog  y.v\n"
              "c:1:6 Verilog  z.v\n"
              "c:1:1 HB710 files that name each other: b:2:6 -> c:1:1 -> b\n");
    folder.Write("a", "-f a\n");
    EXPECT_EQ(folder.TextOf(folder.Import("filelist", {"a"})),
              "a:1:1 HB710 files that name each other: a:1:1 -> a\n");
}

// Each names the next one twice: read again and again they would take for ever.
TEST(ImportReader, ReadsAFileOnce) {
    const ImportFolder folder;
    for (std::size_t at = 1; at < kDeepestImport; ++at) {
        const std::string next = "-f l" + std::to_string(at + 1) + "\n";
        folder.Write("l" + std::to_string(at), next + next);
    }
    folder.Write("l64", "a.v\n");
    folder.Write("a.v", "");
    EXPECT_EQ(folder.TextOf(folder.Import("filelist", {"l1", "l1"})), "l64:1:1 Verilog  a.v\n");
}

TEST(ImportReader, TellsWhatItCannotRead) {
    const ImportFolder folder;
    folder.Write("a", "-f none\nx.v\n");
    folder.Write("x.v", "");
    EXPECT_EQ(folder.TextOf(folder.Import("filelist", {"missing", "a"})),
              "a:2:1 Verilog  x.v\n"
              " HB709 missing: the file does not exist\n"
              "a:1:1 HB709 none: the file does not exist\n");
}

TEST(ImportReader, RefusesWhatIsNoText) {
    const ImportFolder folder;
    const struct {
        std::string Text;
        const char* Told;
    } rows[] = {
        {std::string("a.v\n\nb.v\0c.v\n", 13), "in/list:3 HB708 not of the format: a byte 0\n"},
        {std::string("\xFF\xFE"
                     "a\0.\0v\0",
                     8),
         "in/list:1 HB708 not of the format: UTF-16\n"},
        {std::string("\xFE\xFF\0a", 4), "in/list:1 HB708 not of the format: UTF-16\n"},
    };
    for (const auto& row : rows) EXPECT_EQ(folder.ReadText("filelist", row.Text), row.Told);
    // Only names count.
    EXPECT_EQ(folder.ReadText("filelist", "// M\xFCller\na.v\n"), "in/list:2:1 Verilog  in/a.v\n");
}

TEST(ImportReader, TakesPathsAgainstTheFolderOfTheFileOrAnotherOne) {
    const ImportFolder folder;
    folder.Write("in/a", "\xEF\xBB\xBFx.v\n+incdir+../inc\n");
    folder.Write("in/x.v", "");
    folder.Write("x.v", "");
    folder.Write("inc/i.vh", "");
    EXPECT_EQ(folder.TextOf(folder.Import("filelist", {"in/a"})),
              "in/a:1:1 Verilog  in/x.v\nin/a:2:1 include inc\n");
    EXPECT_EQ(folder.TextOf(folder.Import("filelist", {"in/a"}, folder.Path("inc") + "/")),
              "in/a:1:1 Verilog  inc/x.v\n"
              "in/a:2:1 include inc\n"
              "in/a:1:1 HB707 does not exist: inc/x.v\n");
}

TEST(ImportReader, SplitsLines) {
    const std::vector<std::string_view> expected = {"a", "", "b"};
    EXPECT_EQ(LinesOfImport("a\r\n\nb"), expected);
    EXPECT_EQ(LinesOfImport("a\n\nb\n"), expected);
    EXPECT_EQ(LinesOfImport(""), std::vector<std::string_view>());
    EXPECT_EQ(TrimmedImport(" \ta b\t"), "a b");
    EXPECT_EQ(TrimmedImport(" \t"), "");
}
