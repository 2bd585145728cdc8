#include "projectfiles/relativepaths.h"
#include "filenames/hdbsfilename.h"
#include "tests/projectfiles/sourcefakes.h"
#include "tests/services/names/hostform.h"
#include <gtest/gtest.h>

namespace {

TEST(RelativePaths, AreTakenAgainstTheDirectoryOfTheFile) {
    const THdbSFileName build(Handle("/p/q/build.xml"));
    for (const ISFileName* file :
         {Handle("/p/q/build.xml"), static_cast<const ISFileName*>(&build)}) {
        TRelativePaths paths(file);
        EXPECT_EQ(paths.Of(Handle("/p/q/r/a.vhd")), "r/a.vhd");
        EXPECT_EQ(paths.Of(Handle("/p/a.vhd")), "../a.vhd");
        const THdbSFileName tracked(Handle("/p/q/s/b.vhd"));
        EXPECT_EQ(paths.Of(&tracked), "s/b.vhd");
        EXPECT_EQ(paths.Of(nullptr), "");
        EXPECT_EQ(paths.Of(Handle("/p/q/c.vhd")), "c.vhd");
    }
}

TEST(RelativePaths, AreFullWithoutAFile) {
    TRelativePaths paths(nullptr);
    EXPECT_EQ(paths.Of(Handle("/p/a.vhd")), HostForm("/p/a.vhd"));
    EXPECT_EQ(paths.Of(nullptr), "");
}

}  // namespace
