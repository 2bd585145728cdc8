#include "services/names/ifilename.h"
#include "tests/services/names/hostform.h"
#include "tests/support/slots.h"
#include <gtest/gtest.h>

namespace {

std::string Relative(const char* base, const char* path) {
    std::string out = "unset";
    IFileName::CreateRelativeFileName(base, path, &out, false, false);
    return out;
}

std::string Nice(const char* base, const char* path) {
    std::string out = "unset";
    IFileName::CreateNiceFileNameForUI(base, path, &out);
    return out;
}

TEST(IFileName, MakesRelativeNames) {
    const struct {
        const char* Label;
        const char* Base;
        const char* Path;
        std::string Expected;
    } rows[] = {
        {"in the directory", "/p/q", "/p/q/a.v", "a.v"},
        {"base with delimiter", "/p/q/", "/p/q/a.v", "a.v"},
        {"base with backslash", "/p/q\\", "/p/q/a.v", "a.v"},
        {"below", "/p/q", "/p/q/r/s/a.v", "r/s/a.v"},
        {"beside", "/p/q", "/p/r/a.v", "../r/a.v"},
        {"longer name", "/p/q", "/p/qq/a.v", "../qq/a.v"},
        {"above", "/p/q/r", "/p/a.v", "../../a.v"},
        {"the directory itself", "/p/q", "/p/q", "."},
        {"the directory itself with delimiters", "/p/q/", "/p/q/", "."},
        {"the directory above", "/p/q", "/p", ".."},
        {"the root", "/p/q", "/", "../../"},
        {"from the root", "/", "/p/a.v", "p/a.v"},
        {"directory below", "/p", "/p/lib/", "lib/"},
        {"to be resolved", "/p/x/..", "/p/./q/../a.v", "a.v"},
        {"directory with final backslash", "/p", "/p/lib\\", "lib/"},
        {"drive", "C:\\p", "C:\\p\\r\\a.v", "r/a.v"},
        {"drive above", "C:\\p\\q\\", "C:\\r\\a.v", "../../r/a.v"},
        {"drive root", "C:", "C:\\a.v", "a.v"},
        {"another drive", "C:\\p", "D:\\p\\a.v", "D:\\p\\a.v"},
        {"another drive with slashes", "C:/p", "D:/p/a.v", "D:\\p\\a.v"},
        {"host", "\\\\h\\s\\p\\", "\\\\h\\s\\a.v", "../a.v"},
        {"another host", "\\\\h\\s\\", "\\\\i\\s\\a.v", "\\\\i\\s\\a.v"},
        {"drive and host", "C:\\p", "\\\\h\\s\\a.v", "\\\\h\\s\\a.v"},
        {"drive and rooted", "C:\\p", "/p/a.v", HostForm("/p/a.v")},
        {"case", "/P/q", "/p/q/a.v", kOnWindows ? "a.v" : "../../p/q/a.v"},
        {"relative path", "/p/q", "lib", "lib"},
        {"relative path as written", "/p/q", "./x/..\\y", "./x/..\\y"},
        {"empty path", "/p/q", "", ""},
        {"null path", "/p/q", nullptr, ""},
        {"empty base", "", "/p/./a.v", HostForm("/p/a.v")},
        {"null base", nullptr, "/p/a.v", HostForm("/p/a.v")},
    };
    for (const auto& row : rows) EXPECT_EQ(Relative(row.Base, row.Path), row.Expected) << row.Label;
}

TEST(IFileName, NeverMakesARelativeNameThatReadsAsADrive) {
    if (kOnWindows) GTEST_SKIP() << "no folder has such a name there";
    EXPECT_EQ(Relative("/p", "/p/C:/a.v"), "/p/C:/a.v");
    EXPECT_EQ(Relative("/p/q", "/p/C:/a.v"), "../C:/a.v");
}

TEST(IFileName, ShowsNamesRelativeOnlyFromTheirDirectoryDown) {
    const struct {
        const char* Label;
        const char* Base;
        const char* Path;
        std::string Expected;
    } rows[] = {
        {"in the directory", "/p/q/", "/p/q/a.v", "a.v"},
        {"below", "/p/q/", "/p/q/r/a.v", "r/a.v"},
        {"the directory itself", "/p/q/", "/p/q", "."},
        {"beside", "/p/q/", "/p/r/a.v", HostForm("/p/r/a.v")},
        {"above", "/p/q/", "/p", HostForm("/p")},
        {"name that begins with dots", "/p/", "/p/..a/b.v", "..a/b.v"},
        {"another drive", "C:\\p", "D:/a.v", "D:\\a.v"},
        {"drive beside", "C:\\p", "C:/a.v", "C:\\a.v"},
        {"drive below", "C:\\p", "C:/p/a.v", "a.v"},
        {"relative", "/p", "../a.v", "../a.v"},
        {"log name", "/p", "simulation.log", "simulation.log"},
        {"empty", "/p", "", ""},
        {"null", "/p", nullptr, ""},
        {"no base", nullptr, "/p/a.v", HostForm("/p/a.v")},
    };
    for (const auto& row : rows) EXPECT_EQ(Nice(row.Base, row.Path), row.Expected) << row.Label;
}

TEST(IFileName, MayWriteTheResultOverItsArguments) {
    std::string text = "/p/q/a.v";
    IFileName::CreateRelativeFileName("/p", text.c_str(), &text, false, false);
    EXPECT_EQ(text, "q/a.v");
    text = "/p";
    IFileName::CreateNiceFileNameForUI(text.c_str(), "/p/q/a.v", &text);
    EXPECT_EQ(text, "q/a.v");
    IFileName::CreateRelativeFileName("/p", "/p/q", nullptr, false, false);
    IFileName::CreateNiceFileNameForUI("/p", "/p/q", nullptr);
    EXPECT_EQ(text, "q/a.v");
}

TEST(IFileName, HasItsOperationsInTheirSlots) {
    const std::ptrdiff_t slots[] = {
        SlotOf(&IFileName::Release),
        SlotOf(&IFileName::CloneFileName),
        SlotOf(&IFileName::CanonicalWithExpandedLinks),
        SlotOf(&IFileName::FormCanonicalName),
        SlotOf(&IFileName::Canonical),
        SlotOf(&IFileName::CanonicalWithoutFinalSlash),
        SlotOf(&IFileName::ShortName),
        SlotOf(&IFileName::OsFriendlyCanonical),
        SlotOf(&IFileName::Squeezed),
        SlotOf(&IFileName::GetParts),
        SlotOf(&IFileName::HasParts),
        SlotOf(&IFileName::SetPart),
        SlotOf(&IFileName::StripParts),
        SlotOf(&IFileName::IsValid),
        SlotOf(&IFileName::IsUNC),
        SlotOf(&IFileName::Exists),
        SlotOf(&IFileName::IsReadable),
        SlotOf(&IFileName::IsWritable),
        SlotOf(&IFileName::IsAutoSaveTempFile),
        SlotOf(&IFileName::Remove),
        SlotOf(&IFileName::ChangeDir),
        SlotOf(&IFileName::CreateDir),
        SlotOf(&IFileName::GetRelativeFileNameString),
        SlotOf(&IFileName::GetFileNameRelativeTo),
        SlotOf(&IFileName::GetDisplayFileName),
        SlotOf(&IFileName::Pop),
        SlotOf(&IFileName::PushFileName),
        SlotOf(&IFileName::PushDirectory),
        SlotOf(&IFileName::SetAsVirtualFile),
        SlotOf(&IFileName::IsVirtualFile),
        SlotOf(&IFileName::ConvertVirtualFileToTempFile),
        SlotOf(&IFileName::StripVirtualState),
        SlotOf(&IFileName::GetNameNoExt),
        SlotOf(&IFileName::GetNameAndExt),
        SlotOf(&IFileName::GetFullFileName),
        SlotOf(&IFileName::GetFullFileNameNoExt),
        SlotOf(&IFileName::GetPathOnly),
        SlotOf(&IFileName::GetExtOnly),
        SlotOf(&IFileName::GetNameOnly),
    };
    std::ptrdiff_t expected = 0;
    for (const std::ptrdiff_t slot : slots) EXPECT_EQ(slot, ++expected);
    EXPECT_EQ(expected, 39);
}

}  // namespace
