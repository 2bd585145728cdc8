#include "projectfiles/hdlprojectstimulusresultsfile.h"
#include "projectfiles/isimulationresults.h"
#include "tests/projectfiles/projectfilefakes.h"
#include <gtest/gtest.h>

namespace {

class FakeResults : public ISimulationResults {
public:
    explicit FakeResults(bool isArchive) : Archive(isArchive) {}
    bool IsArchive() const override { return Archive; }

private:
    bool Archive;
};

TEST(HdlProjectStimulusResultsFile, AsksItsResultsWhetherTheyAreAnArchive) {
    FakeResults archive(true);
    FakeResults live(false);
    THdlProjectStimulusResultsFile file(Name("x.fp"), nullptr, &archive);
    EXPECT_EQ(file.GetOwnerResults(), &archive);
    EXPECT_TRUE(file.IsArchive());
    file.SetOwnerResults(&live);
    EXPECT_EQ(file.GetOwnerResults(), &live);
    EXPECT_FALSE(file.IsArchive());
    file.SetOwnerResults(nullptr);
    EXPECT_FALSE(file.IsArchive());
}

TEST(HdlProjectStimulusResultsFile, CopiesBelongToTheSameResults) {
    FakeResults results(true);
    const THdlProjectStimulusResultsFile file(Name("x.fp"), nullptr, &results);
    const THdlProjectStimulusResultsFile copy(file);
    EXPECT_EQ(copy.GetOwnerResults(), &results);
    EXPECT_EQ(copy.GetProjectFileType(), 3);
    THdlProjectStimulusResultsFile assigned(Name("y.tim"), nullptr, nullptr);
    assigned = file;
    EXPECT_EQ(assigned.GetOwnerResults(), &results);
    EXPECT_EQ(assigned.GetProjectFileType(), 3);
}

TEST(HdlProjectStimulusResultsFile, HasTheTypesOfADiagram) {
    EXPECT_EQ(THdlProjectStimulusResultsFile(Name("x.FP"), nullptr, nullptr).GetProjectFileType(),
              3);
    EXPECT_EQ(THdlProjectStimulusResultsFile(Name("x.vcd"), nullptr, nullptr).GetProjectFileType(),
              2);
}

}  // namespace
