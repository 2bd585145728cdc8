#include "flows/process/programversion.h"
#include "tests/support/temporaryfolder.h"
#include <gtest/gtest.h>

TEST(ProgramVersion, IsTheFirstNumberThatTheProgramPrints) {
    const TemporaryFolder folder;
    const struct {
        const char* Script;
        int Version;
    } rows[] = {
        {"test \"$*\" = --version && echo 'Verilator 5.006 2023-01-22 rev 7'", 5},
        {"echo Warning; echo v4.228 >&2; echo 9", 4},
        {"echo none", 0},
        {"echo 99999999999999999999", 0},
        {"exit 1", 0},
    };
    for (const auto& row : rows) {
        const std::string program =
            folder.Write("a b/tool", std::string("#!/bin/sh\n") + row.Script + "\n");
        std::filesystem::permissions(program, std::filesystem::perms::owner_all);
        EXPECT_EQ(AskMajorVersion(program), row.Version) << row.Script;
    }
    EXPECT_EQ(AskMajorVersion(folder.Path("none")), 0);
}
