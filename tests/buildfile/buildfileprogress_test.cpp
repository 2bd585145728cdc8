#include "buildfile/hdlbuildfile.h"
#include "projectfiles/ihdlsourcefilelist.h"
#include "services/names/isfilename.h"
#include "tests/support/progressrecorder.h"
#include "tests/support/recorders.h"
#include "tests/support/temporaryfolder.h"
#include <functional>
#include <gtest/gtest.h>
#include <thread>

namespace {

std::string SourceName(int number) {
    return "s" + std::to_string(number) + ".vhd";
}

/// A group of so many sources, each of which depends on the next one.
std::string GroupText(int count, const std::string& firstPart = {}) {
    std::string text = "<SourceFileGroup Language=\"VHDL\">\n" + firstPart;
    for (int i = 0; i < count; ++i)
        text += "<SourceFile>" + SourceName(i) + "<Dependency>" + SourceName(i + 1) +
                "</Dependency></SourceFile>\n";
    return text + "</SourceFileGroup>\n";
}

std::string DocumentText(const std::string& sections) {
    return "<!DOCTYPE HdlBuildFileList SYSTEM \"hdl-buildfile.dtd\">\n<HdlBuildFileList>\n"
           "<HdlBuildFile TopLevelLanguage=\"VHDL\" HdlLanguage=\"VHDL\">\n" +
           sections + "</HdlBuildFile>\n</HdlBuildFileList>\n";
}

/// A message box that does something the first time.
class ActingBox : public IMessageBox {
public:
    explicit ActingBox(std::function<void()> act)
        : Act(std::move(act)), Former(Fileservices::SetMessageBox(this)) {}
    ~ActingBox() override { Fileservices::SetMessageBox(Former); }
    void ShowMessage(const char*, const char*, int) override {
        if (const auto act = std::exchange(Act, {})) act();
    }

private:
    std::function<void()> Act;
    IMessageBox* Former;
};

class BuildFileProgress : public testing::Test {
protected:
    const ISFileName* Write(const std::string& name, const std::string& sections) const {
        return ISFileName::NewISFileName(Folder.Write(name, DocumentText(sections)).c_str());
    }
    TemporaryFolder Folder;
    RecordingMessageBox Box;
};

}  // namespace

TEST_F(BuildFileProgress, OfAReadCountsTheListedSources) {
    const ISFileName* file = Write("b.xml", GroupText(40));
    RecordingProgress observer;
    const THdlBuildFile build(file);
    EXPECT_EQ(observer.Take(), "read 0/40\nread 16/40\nread 32/40\nread 40/40\nread ended\n");
}

TEST_F(BuildFileProgress, OfAReadGoesOverAllGroups) {
    const ISFileName* file = Write("b.xml", GroupText(10) + GroupText(20));
    RecordingProgress observer;
    const THdlBuildFile build(file);
    EXPECT_EQ(observer.Take(), "read 0/30\nread 16/30\nread 30/30\nread ended\n");
}

// The name of the first source is missing, so that it is passed over.
TEST_F(BuildFileProgress, OfAReadLeavesOutWhatIsPassedOver) {
    const ISFileName* file =
        Write("b.xml", GroupText(20, "<SourceFile><SourceFile>x.vhd</SourceFile></SourceFile>\n"));
    RecordingProgress observer;
    const THdlBuildFile build(file);
    EXPECT_EQ(observer.Take(), "read 0/22\nread 16/22\nread ended\n");
}

TEST_F(BuildFileProgress, OfAReadIsSilentWithoutAnObserverAndForAFewSources) {
    const ISFileName* few = Write("few.xml", GroupText(16));
    const ISFileName* many = Write("many.xml", GroupText(17));
    RecordingProgress observer;
    const THdlBuildFile build(few);
    EXPECT_EQ(observer.Take(), "");
    SetProgressObserver(nullptr);
    const THdlBuildFile unseen(many);
    EXPECT_EQ(observer.Take(), "");
    SetProgressObserver(&observer);
    const THdlBuildFile seen(many);
    EXPECT_EQ(observer.Take(), "read 0/17\nread 16/17\nread 17/17\nread ended\n");
}

TEST_F(BuildFileProgress, OfAReadInsideAnotherLiesBetweenItsReports) {
    const ISFileName* outer = Write("outer.xml", GroupText(18));
    const ISFileName* inner = Write("inner.xml", GroupText(17));
    RecordingProgress observer;
    const ActingBox box([inner] { const THdlBuildFile build(inner); });
    const THdlBuildFile build(outer);
    EXPECT_EQ(observer.Take(),
              "read 0/18\n"
              "read 0/17\nread 16/17\nread 17/17\nread ended\n"
              "read 16/18\nread 18/18\nread ended\n");
}

TEST_F(BuildFileProgress, OfOrderingCountsWhatWasOrdered) {
    THdlBuildFile build(Write("b.xml", GroupText(2500)));
    RecordingProgress observer;
    build.OrderFilesForCompile(LANGUAGE_VHDL);
    // One more than the group lists: the last one's dependency.
    EXPECT_EQ(observer.Take(),
              "order 0/2500\norder 1024/2500\norder 2048/2500\norder 2500/2500\norder ended\n");
    EXPECT_EQ(build.GetFilesToCompile(LANGUAGE_VHDL)->size(), 2501u);
}

TEST_F(BuildFileProgress, OfAWriteCountsTheSourcesOfEachGroup) {
    THdlBuildFile build(Write("b.xml", GroupText(1100)));
    RecordingProgress observer;
    ASSERT_TRUE(build.WriteToFile());
    EXPECT_EQ(observer.Take(), "write 0/1100\nwrite 1024/1100\nwrite 1100/1100\nwrite ended\n");
}

TEST_F(BuildFileProgress, OfTwoThreadsIsToldToTheObserverOfEach) {
    const ISFileName* files[] = {Write("a.xml", GroupText(17)), Write("b.xml", GroupText(33))};
    std::string reports[2];
    std::thread threads[2];
    RecordingProgress observer;
    for (int i = 0; i < 2; ++i)
        threads[i] = std::thread([&reports, &files, i] {
            RecordingProgress own;
            const THdlBuildFile build(files[i]);
            reports[i] = own.Take();
        });
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(reports[0], "read 0/17\nread 16/17\nread 17/17\nread ended\n");
    EXPECT_EQ(reports[1], "read 0/33\nread 16/33\nread 32/33\nread 33/33\nread ended\n");
    EXPECT_EQ(observer.Take(), "");
}
