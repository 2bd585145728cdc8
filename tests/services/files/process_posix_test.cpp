#include "services/files/process.h"
#include "tests/services/names/hostform.h"
#include <filesystem>
#include <gtest/gtest.h>

TEST(Process, HasTheEnvironmentsTexts) {
    const EnvironmentValue set("HDLBUILDFILE_TEST", "gr\xC3\xBC\xC3\x9F");
    EXPECT_EQ(GetEnvironmentText("HDLBUILDFILE_TEST"), "gr\xC3\xBC\xC3\x9F");
    const EnvironmentValue unset("HDLBUILDFILE_TEST", nullptr);
    EXPECT_EQ(GetEnvironmentText("HDLBUILDFILE_TEST"), "");
}

TEST(Process, FindsTheUsersConfigurationFolder) {
    const EnvironmentValue home("HOME", "/users/me");
    {
        const EnvironmentValue folder("XDG_CONFIG_HOME", "/config");
        EXPECT_EQ(GetConfigurationFolder(), "/config");
    }
    const EnvironmentValue folder("XDG_CONFIG_HOME", "relative");
    EXPECT_EQ(GetConfigurationFolder(), "/users/me/.config");
}

#ifdef __linux__
TEST(Process, KnowsItsProgram) {
    EXPECT_EQ(GetModuleFile(), std::filesystem::read_symlink("/proc/self/exe").string());
}
#endif
