#include "cli/frame/progressline.h"
#include "services/base/progress.h"
#include "tests/cli/toolrun.h"
#include <gtest/gtest.h>

namespace {

using std::chrono::milliseconds;

/// A line on a terminal that records its bytes, with a clock that the test sets.
class ProgressLine : public testing::Test {
protected:
    /// The bytes since the last call, with every '\r' in a line of its own.
    std::string Taken() {
        std::string text;
        for (const char byte : Stream.str()) text += byte == '\r' ? "\n" : std::string(1, byte);
        Stream.str("");
        return text;
    }
    void Report(std::size_t done, TProgressWork work = PROGRESS_READ_SOURCES) {
        Line.WorkProgressed(work, done, 36000);
    }
    /// What is drawn of a work on a fresh line in a terminal of that width.
    std::string DrawnIn(std::size_t width, const std::string& file) {
        Width = width;
        Line.SetFile(file);
        Line.WorkEnded(PROGRESS_READ_SOURCES);
        Taken();
        Now += std::chrono::seconds(1);
        Report(12345);
        return Taken();
    }

    std::ostringstream Stream;
    std::size_t Width = 80;
    TProgressScreen::TTime Now;
    TProgressLine Line{{Stream, [this] { return Width; }, [this] { return Now; }},
                       std::chrono::seconds(1)};
};

}  // namespace

TEST_F(ProgressLine, AppearsAfterASecond) {
    Report(0);
    Now += milliseconds(999);
    Report(11000);
    EXPECT_EQ(Taken(), "");
    Now += milliseconds(1);
    Report(12345);
    EXPECT_EQ(Taken(), "\nreading: 34 % (12,345 of 36,000 sources)");
}

TEST_F(ProgressLine, IsDrawnTenTimesASecond) {
    Now += std::chrono::seconds(1);
    Report(0);
    Now += milliseconds(99);
    Report(1);
    Now += milliseconds(1);
    Report(2);
    Report(3);
    Now += milliseconds(150);
    Report(4);
    EXPECT_EQ(Taken(),
              "\nreading: 0 % (0 of 36,000 sources)"
              "\nreading: 0 % (2 of 36,000 sources)"
              "\nreading: 0 % (4 of 36,000 sources)");
}

TEST_F(ProgressLine, BlanksWhatALongerOneLeft) {
    Now += std::chrono::seconds(1);
    Line.WorkProgressed(PROGRESS_READ_DOCUMENT, 1234567, 3600000);
    Now += milliseconds(100);
    Line.WorkProgressed(PROGRESS_READ_SOURCES, 1, 2);
    EXPECT_EQ(Taken(),
              "\nreading: 34 % (1,234,567 of 3,600,000 bytes)"
              "\nreading: 50 % (1 of 2 sources)              ");
}

TEST_F(ProgressLine, IsErasedWhenAWorkEnds) {
    Line.WorkEnded(PROGRESS_READ_SOURCES);
    EXPECT_EQ(Taken(), "");
    Now += std::chrono::seconds(1);
    Line.WorkProgressed(PROGRESS_CHECK_NAMES, 1, 2);
    Line.WorkEnded(PROGRESS_CHECK_NAMES);
    Line.WorkEnded(PROGRESS_CHECK_NAMES);
    EXPECT_EQ(Taken(),
              "\nchecking: 50 % (1 of 2 names)"
              "\n                             \n");
    Now += milliseconds(100);
    Line.WorkProgressed(PROGRESS_CHECK_NAMES, 2, 2);
    EXPECT_EQ(Taken(), "\nchecking: 100 % (2 of 2 names)");
}

TEST_F(ProgressLine, IsErasedAtItsEnd) {
    {
        TProgressLine line({Stream, [] { return 0; }, [this] { return Now; }}, milliseconds(0));
        line.WorkProgressed(PROGRESS_ORDER_SOURCES, 999, 1000);
        EXPECT_EQ(Taken(), "\nordering: 99 % (999 of 1,000 sources)");
    }
    EXPECT_EQ(Taken(), "\n" + std::string(37, ' ') + "\n");
}

TEST_F(ProgressLine, NamesEveryWork) {
    std::string lines;
    for (int work = PROGRESS_READ_DOCUMENT; work <= PROGRESS_SCAN_SOURCES; ++work) {
        Now += std::chrono::seconds(1);
        Line.WorkEnded(PROGRESS_READ_DOCUMENT);
        Taken();
        Report(9000, static_cast<TProgressWork>(work));
        lines += Taken();
    }
    EXPECT_EQ(lines,
              "\nreading: 25 % (9,000 of 36,000 bytes)"
              "\nreading: 25 % (9,000 of 36,000 sources)"
              "\nordering: 25 % (9,000 of 36,000 sources)"
              "\nwriting: 25 % (9,000 of 36,000 sources)"
              "\nchecking: 25 % (9,000 of 36,000 sources)"
              "\nchecking: 25 % (9,000 of 36,000 names)"
              "\nchecking: 25 % (9,000 of 36,000 bytes)"
              "\nscanning: 25 % (9,000 of 36,000 sources)");
}

// One column stays free. "\xC3\xA4" takes one column, "\xE6\xBC\xA2" two, a stray byte one.
TEST_F(ProgressLine, FitsIntoTheTerminal) {
    const std::string numbers = ": 34 % (12,345 of 36,000 sources)";
    const struct {
        std::size_t Width;
        std::string File;
        std::string Line;
    } rows[] = {
        {0, "a/b.xml", "reading a/b.xml" + numbers},
        {80, "a/b.xml", "reading a/b.xml" + numbers},
        {49, "a/b.xml", "reading a/b.xml" + numbers},
        {48, "a/b.xml", "reading ...xml" + numbers},
        {46, "a/b.xml", "reading ...l" + numbers},
        {45, "a/b.xml", "reading" + numbers},
        {41, "a/b.xml", "reading" + numbers},
        {40, "a/b.xml", "reading: 34 % (12,345 of 36,000 sources"},
        {14, "a/b.xml", "reading: 34 %"},
        {1, "a/b.xml", ""},
        {49, "\xC3\xA4/\xC3\xA4.xml", "reading \xC3\xA4/\xC3\xA4.xml" + numbers},
        {48, "a/\xC3\xA4\xC3\xA4\xC3\xA4\xC3\xA4\xC3\xA4",
         "reading ...\xC3\xA4\xC3\xA4\xC3\xA4" + numbers},
        {50,
         "a\xE6\xBC\xA2\xE6\xBC\xA2\xE6\xBC\xA2"
         "b",
         "reading a\xE6\xBC\xA2\xE6\xBC\xA2\xE6\xBC\xA2"
         "b" +
             numbers},
        {49,
         "a\xE6\xBC\xA2\xE6\xBC\xA2\xE6\xBC\xA2"
         "b",
         "reading ...\xE6\xBC\xA2"
         "b" +
             numbers},
        {48,
         "a\xE6\xBC\xA2\xE6\xBC\xA2\xE6\xBC\xA2"
         "b",
         "reading ...\xE6\xBC\xA2"
         "b" +
             numbers},
        {49, "\xF0\x9F\x98\x80\xBC.xml", "reading \xF0\x9F\x98\x80\xBC.xml" + numbers},
        {49, "aaaaa\xC3.xm", "reading ...\xC3.xm" + numbers},
        {80, "a\nb\x1B.xml", "reading a\\nb\\x1B.xml" + numbers},
    };
    for (const auto& row : rows)
        EXPECT_EQ(DrawnIn(row.Width, row.File), "\n" + row.Line) << row.Width << " " << row.File;
}

TEST_F(ProgressLine, StaysInATerminalThatBecameNarrower) {
    Now += std::chrono::seconds(1);
    Line.WorkProgressed(PROGRESS_READ_SOURCES, 1, 2);
    Width = 11;
    Now += std::chrono::seconds(1);
    Line.WorkProgressed(PROGRESS_READ_SOURCES, 2, 2);
    Line.WorkEnded(PROGRESS_READ_SOURCES);
    EXPECT_EQ(Taken(), "\nreading: 50 % (1 of 2 sources)\nreading: 1\n          \n");
}

namespace {

/// Runs the tool on a terminal whose clock goes on by half a second each time that it is read.
class ToolProgress : public testing::Test {
protected:
    ToolProgress() {
        std::string group = "<SourceFileGroup Language=\"VHDL\">\n";
        for (int i = 0; i < 40; ++i) group += SourceText("s" + std::to_string(i) + ".vhd");
        Folder.Write("b.xml", BuildText(group + "</SourceFileGroup>\n"));
        for (int i = 0; i < 40; ++i) Folder.Write("s" + std::to_string(i) + ".vhd", "");
    }
    /// What is written, with every '\r' in a line of its own.
    std::string WrittenBy(const std::vector<std::string>& arguments, bool isShown = true) {
        std::ostringstream stream;
        TProgressScreen::TTime now;
        const auto clock = [&now] { return now += milliseconds(500); };
        TProgressLine line({stream, [] { return 80; }, clock}, std::chrono::seconds(1));
        const int status = RunTool(arguments, {stream, stream, false, isShown ? &line : nullptr});
        std::string text = std::to_string(status) + " ";
        for (const char byte : stream.str()) text += byte == '\r' ? "\\r\n" : std::string(1, byte);
        return text;
    }
    WorkingFolder Folder;
};

}  // namespace

TEST_F(ToolProgress, IsShownAndGoneBeforeTheResult) {
    EXPECT_EQ(WrittenBy({"check", "b.xml"}),
              "0 \\r\n"
              "reading b.xml: 40 % (16 of 40 sources)\\r\n"
              "reading b.xml: 80 % (32 of 40 sources)\\r\n"
              "reading b.xml: 100 % (40 of 40 sources)\\r\n"
              "                                       \\r\n"
              "b.xml: no problems\n");
    EXPECT_EQ(GetProgressObserver(), nullptr);
}

TEST_F(ToolProgress, NamesTheBuildOfATranslator) {
    EXPECT_EQ(WrittenBy({"translator", "b.xml", "v2vhdl", "command-line"}),
              "0 \\r\n"
              "reading b.xml: 40 % (16 of 40 sources)\\r\n"
              "reading b.xml: 80 % (32 of 40 sources)\\r\n"
              "reading b.xml: 100 % (40 of 40 sources)\\r\n"
              "                                       \\r\n"
              "        -ncc             \n");
}

TEST_F(ToolProgress, IsNotShownWhenQuietOrWithoutATerminal) {
    const std::string silent = "0 b.xml: no problems\n";
    EXPECT_EQ(WrittenBy({"--quiet", "check", "b.xml"}), silent);
    EXPECT_EQ(WrittenBy({"check", "--quiet", "b.xml"}), silent);
    EXPECT_EQ(WrittenBy({"check", "b.xml", "--quiet"}), silent);
    EXPECT_EQ(WrittenBy({"check", "b.xml"}, false), silent);
}

TEST_F(ToolProgress, IsGoneBeforeAnError) {
    // The whole document is blank but for three tags, with which the reports come.
    const std::string blanks(70000, ' ');
    Folder.Write("b.xml", BuildText("<x/>\n" + blanks + "<x/>\n" + blanks + "<x/>\n<"));
    EXPECT_EQ(WrittenBy({"order", "b.xml"}),
              "3 \\r\n"
              "reading b.xml: 50 % (70,182 of 140,229 bytes)\\r\n"
              "reading b.xml: 99 % (140,187 of 140,229 bytes)\\r\n"
              "                                              \\r\n"
              "hdlbuild: error: b.xml:7:2: not well-formed (invalid token)\n");
}
