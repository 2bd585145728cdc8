#include "tests/flows/imports/carriedimports.h"
#include <fstream>
#include <gtest/gtest.h>

TEST(CarriedImports, AreWhatThePageOfTheDocumentationSays) {
    std::ifstream stream(HDLBUILDFILE_SOURCE_DIR "/docs/flows.md", std::ios::binary);
    const std::string page{std::istreambuf_iterator<char>(stream), {}};
    const std::string table = MakeTableOfCarriedImports();
    EXPECT_NE(page.find("\n\n" + table + "\n"), std::string::npos) << table;
}

TEST(CarriedImports, PassNothingOverInSilence) {
    const std::string table = MakeTableOfCarriedImports();
    EXPECT_EQ(table.find("passed over in silence"), std::string::npos) << table;
}
