#include "tests/flows/formats/carriedfeatures.h"
#include <fstream>
#include <gtest/gtest.h>

TEST(CarriedFeatures, AreWhatThePageOfTheDocumentationSays) {
    std::ifstream stream(HDLBUILDFILE_SOURCE_DIR "/docs/flows.md", std::ios::binary);
    const std::string page{std::istreambuf_iterator<char>(stream), {}};
    const std::string table = MakeTableOfCarriedFeatures();
    EXPECT_NE(page.find("\n\n" + table + "\n"), std::string::npos) << table;
}
