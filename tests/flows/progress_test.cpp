#include "flows/dependencycycles.h"
#include "flows/documentfindings.h"
#include "flows/listedsources.h"
#include "services/names/isfilename.h"
#include "tests/support/progressrecorder.h"
#include "tests/support/recorders.h"
#include "tests/support/temporaryfolder.h"
#include <gtest/gtest.h>

namespace {

/// A build of so many sources without files, each of which depends on the next one.
class FlowProgress : public testing::Test {
protected:
    const ISFileName* Write(int count) const {
        std::string text =
            "<HdlBuildFileList><HdlBuildFile HdlLanguage=\"VHDL\">"
            "<SourceFileGroup Language=\"VHDL\">";
        for (int i = 0; i < count; ++i)
            text += "<SourceFile>" + std::to_string(i) + "<Dependency>" + std::to_string(i + 1) +
                    "</Dependency></SourceFile>";
        text += "</SourceFileGroup></HdlBuildFile></HdlBuildFileList>";
        return ISFileName::NewISFileName(Folder.Write("b.xml", text).c_str());
    }
    TemporaryFolder Folder;
    RecordingMessageBox Box;
};

}  // namespace

TEST_F(FlowProgress, OfMissingSourcesCountsThoseLookedFor) {
    const THdlBuildFile build(Write(40));
    RecordingProgress observer;
    EXPECT_EQ(ListMissingSources(build).size(), 40u);
    EXPECT_EQ(observer.Take(),
              "check sources 0/40\ncheck sources 16/40\ncheck sources 32/40\ncheck sources 40/40\n"
              "check sources ended\n");
}

// The sources are put into a graph, without the last dependency, as that needs nothing, then
// searched.
TEST_F(FlowProgress, OfCyclesCountsTheSourcesTwice) {
    const THdlBuildFile build(Write(1100));
    std::vector<const IHdlSourceFile*> files;
    for (const TListedSource& source : ListSources(build)) files.push_back(source.File);
    RecordingProgress observer;
    EXPECT_TRUE(FindDependencyCycles(files).empty());
    EXPECT_EQ(observer.Take(),
              "check sources 0/1100\ncheck sources 1024/1100\ncheck sources 1100/1100\n"
              "check sources ended\n"
              "check sources 0/1100\ncheck sources 1024/1100\ncheck sources 1100/1100\n"
              "check sources ended\n");
}

// The first 64 KiB end in front of a tag. The read has met all files but the last dependency, which
// is too little to be told.
TEST_F(FlowProgress, OfADocumentCountsBytesAndNames) {
    const ISFileName* file = Write(1200);
    const THdlBuildFile build(file);
    RecordingProgress observer;
    EXPECT_TRUE(CheckDocument(file).Repeated.empty());
    EXPECT_EQ(observer.Take(),
              "check elements 0/67519\ncheck elements 65553/67519\ncheck elements 67519/67519\n"
              "check elements ended\n"
              "check names 0/2400\ncheck names 1024/2400\ncheck names 2048/2400\n"
              "check names 2400/2400\ncheck names ended\n");
}

// Each of the sources and the last dependency, when no read has met them.
TEST_F(FlowProgress, OfADocumentCountsFewFilesAtATime) {
    const ISFileName* file = Write(40);
    RecordingProgress observer;
    EXPECT_EQ(CheckDocument(file).Unlisted.size(), 1u);
    EXPECT_EQ(observer.Take(),
              "check sources 0/41\ncheck sources 16/41\ncheck sources 32/41\n"
              "check sources 41/41\ncheck sources ended\n");
}
