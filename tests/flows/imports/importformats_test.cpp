#include "flows/imports/importformats.h"
#include <algorithm>
#include <gtest/gtest.h>

TEST(ImportFormats, AreFoundByTheirNamesInOrder) {
    const auto& formats = GetImportFormats();
    ASSERT_FALSE(formats.empty());
    for (const TImportFormat& format : formats) {
        EXPECT_EQ(FindImportFormat(format.Name), &format);
        EXPECT_TRUE(format.Read) << format.Name;
    }
    EXPECT_TRUE(std::is_sorted(formats.begin(), formats.end(),
                               [](const TImportFormat& one, const TImportFormat& other) {
                                   return std::string_view(one.Name) < other.Name;
                               }));
    EXPECT_EQ(FindImportFormat("file"), nullptr);
}
