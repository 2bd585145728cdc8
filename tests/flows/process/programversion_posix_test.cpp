#include "flows/process/programversion.h"
#include "tests/support/temporaryfolder.h"
#include <gtest/gtest.h>
#include <unistd.h>

TEST(ProgramVersion, IsTheFirstNumberThatTheProgramPrints) {
    const TemporaryFolder folder;
    const struct {
        const char* Script;
        int Version;
    } rows[] = {
        {"test \"$*\" = --version && echo 'Verilator 5.006 2023-01-22 rev 7'", 5},
        {"echo 'LC_ALL = \"en_US.UTF-8\"' >&2; echo Verilator 4.228; echo Verilator 9", 4},
        {"echo Verilators 4.228", 0},
        {"echo My Verilator 4.228", 0},
        {"echo none", 0},
        {"echo Verilator 99999999999999999999", 0},
        {"exit 1", 0},
    };
    for (const auto& row : rows) {
        const std::string program =
            folder.Write("a b/tool", std::string("#!/bin/sh\n") + row.Script + "\n");
        std::filesystem::permissions(program, std::filesystem::perms::owner_all);
        EXPECT_EQ(AskMajorVersion(program, "Verilator "), row.Version) << row.Script;
    }
    EXPECT_EQ(AskMajorVersion(folder.Path("none"), "Verilator "), 0);
}

TEST(ProgramVersion, IsUnknownWhenThisProcessIsToEnd) {
    const TemporaryFolder folder;
    const std::string program =
        folder.Write("tool", "#!/bin/sh\nkill -INT " + std::to_string(getpid()) + "\nsleep 30\n");
    std::filesystem::permissions(program, std::filesystem::perms::owner_all);
    EXPECT_EQ(AskMajorVersion(program, "Verilator "), std::nullopt);
}
