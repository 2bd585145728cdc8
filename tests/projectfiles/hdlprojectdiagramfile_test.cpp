#include "projectfiles/hdlprojectdiagramfile.h"
#include "tests/projectfiles/projectfilefakes.h"
#include <gtest/gtest.h>

namespace {

TEST(HdlProjectDiagramFile, IsAStimulusDiagramByItsExtensionInAnyCase) {
    struct {
        const char* FileName;
        int Type;
    } const rows[] = {{"x.fp", 3},  {"x.FP", 3}, {"x.Fp", 3}, {"x.tim", 2},
                      {"x.hpj", 2}, {"x", 2},    {"", 2}};
    for (const auto& row : rows)
        EXPECT_EQ(THdlProjectDiagramFile(Name(row.FileName), nullptr).GetProjectFileType(),
                  row.Type)
            << row.FileName;
    EXPECT_EQ(THdlProjectDiagramFile(nullptr, nullptr).GetProjectFileType(), 2);
    EXPECT_EQ(THdlProjectDiagramFile(&HandlelessName(), nullptr).GetProjectFileType(), 2);
}

}  // namespace
