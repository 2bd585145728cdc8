#include "services/files/process.h"
#include "tests/services/names/hostform.h"
#include <cstdio>
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

TEST(Process, KnowsItsProgramStartedByARelativePath) {
    const auto program = std::filesystem::read_symlink("/proc/self/exe");
    const std::string command = "cd '" + program.parent_path().string() + "' && ./" +
                                program.filename().string() +
                                " --gtest_color=no --gtest_filter=Process.KnowsItsProgram 2>&1";
    std::FILE* const pipe = popen(command.c_str(), "r");
    ASSERT_NE(pipe, nullptr);
    std::string output;
    for (int c = 0; (c = std::fgetc(pipe)) != EOF;) output += static_cast<char>(c);
    EXPECT_EQ(pclose(pipe), 0) << output;
    EXPECT_TRUE(output.ends_with("[  PASSED  ] 1 test.\n")) << output;
}
#endif
