#include "flows/scan/includeindex.h"
#include <gtest/gtest.h>

TEST(IncludeIndex, FindsTheFolderFromWhichANameLeadsToAFile) {
    const TIncludeIndex index({"/d/inc/axi/defs.vh", "/d/a/inc/defs.vh", "/d/b/inc/defs.vh",
                               "C:\\d\\inc\\axi\\win.vh", "/d/inc/xdefs.vh"});
    const struct {
        const char* Label;
        const char* Name;
        const char* From;
        const char* Folder;
    } rows[] = {
        {"the nearest", "defs.vh", "/d/b/rtl/", "/d/b/inc/"},
        {"of equally near ones the first", "defs.vh", "/e/", "/d/inc/axi/"},
        {"with a folder", "axi/defs.vh", "/d/b/rtl/", "/d/inc/"},
        {"with the working directory", "././inc/defs.vh", "/d/b/", "/d/b/"},
        {"the other delimiter", "axi/win.vh", "C:\\d\\src\\", "C:\\d\\inc\\"},
        {"a name that only ends like it", "efs.vh", "/d/", ""},
        {"another folder", "other/defs.vh", "/d/", ""},
        {"upwards", "../inc/defs.vh", "/d/b/rtl/", ""},
        {"a folder", "axi", "/d/", ""},
        {"nothing", "", "/d/", ""},
    };
    for (const auto& row : rows)
        EXPECT_EQ(index.FindFolder(row.Name, row.From), row.Folder) << row.Label;
}
