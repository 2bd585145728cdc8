#include "tests/support/temporaryfolder.h"
#include "tests/torture/savecases.h"
#include "tests/torture/tally.h"
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>

// Every save on a file system that is full.

namespace {

// $1 is the folder of the save, $2 another one; the save follows.
constexpr const char* kScript =
    "#!/bin/sh\n"
    "folder=$1 out=$2; shift 2\n"
    "cp -R \"$folder\" \"$out/before\" && mount -t tmpfs -o size=512k none \"$folder\" || exit 99\n"
    "cp -R \"$out/before/.\" \"$folder\" && cd \"$folder\" || exit 99\n"
    "cat /dev/zero >filling 2>/dev/null\n"
    "\"$@\"; status=$?\n"
    "rm filling; cp -R . \"$out/full\"\n"
    "\"$@\" 2>/dev/null; echo $? >\"$out/status\"\n"
    "cp -R . \"$out/again\"\n"
    "exit $status\n";

}  // namespace

TEST(FullDisk, KeepsEveryFile) {
    if (std::system("unshare -rm mount -t tmpfs none /tmp >/dev/null 2>&1") != 0)
        GTEST_SKIP() << "no file system may be mounted here";
    TTally tally("save: full disk");
    std::vector<TSaveCase> cases = SaveCases();
    if (WhyNoRun().empty()) cases.push_back(ReportCase());
    for (const TSaveCase& save : cases) {
        TSavePlace place(save);
        ASSERT_TRUE(place.Saves()) << save.Label;
        place.Restore();
        const TemporaryFolder out;
        const std::string script = out.Write("script", kScript);
        const int status = place.Run("unshare -rm sh '" + script + "' '" + place.Path() + "' '" +
                                     out.Path() + "'");
        // What is empty takes no room.
        const bool isDone = place.New().empty();
        const bool isTold = isDone || place.Errors().ends_with(": No space left on device\n") ||
                            save.Label == std::string("INI file of the library");
        EXPECT_EQ(status, isDone ? 0 : 3) << save.Label;
        EXPECT_TRUE(isTold) << save.Label << place.Errors();
        const auto read = [&](const char* folder) {
            return WithoutTimes(out.Read(folder + ("/" + save.Target)));
        };
        const std::string expected = isDone ? place.New() : place.Old();
        EXPECT_EQ(read("full"), expected) << save.Label;
        EXPECT_EQ(out.Read("status"), "0\n") << save.Label;
        EXPECT_EQ(read("again"), place.New()) << save.Label;
        std::string left;
        for (const auto& entry : std::filesystem::directory_iterator(out.Path("full")))
            if (entry.path().filename().string().starts_with(".")) left += entry.path();
        EXPECT_EQ(left, "") << save.Label;
        tally.Count(isTold && read("full") == expected && read("again") == place.New() &&
                    out.Read("status") == "0\n" && left.empty());
    }
}
