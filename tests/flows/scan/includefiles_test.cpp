#include "flows/scan/includefiles.h"
#include <atomic>
#include <gtest/gtest.h>
#include <thread>

namespace {

/// Finds what is in `texts`, and notes each path that it is asked for.
struct TFolder {
    std::map<std::string, std::string> Texts;
    std::string Asked;

    std::optional<std::string> Read(const std::string& path) {
        Asked += path + "\n";
        const auto found = Texts.find(path);
        if (found == Texts.end()) return std::nullopt;
        return found->second;
    }
};

}  // namespace

TEST(IncludeFiles, AreEachReadOnce) {
    TFolder folder{{{"a.vh", "text"}}, ""};
    TIncludeFiles files([&](const std::string& path) { return folder.Read(path); });
    const std::string* text = files.Read("a.vh");
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(*text, "text");
    EXPECT_EQ(files.Read("a.vh"), text);
    EXPECT_EQ(files.Read("b.vh"), nullptr);
    EXPECT_EQ(files.Read("b.vh"), nullptr);
    EXPECT_EQ(folder.Asked, "a.vh\nb.vh\n");
}

TEST(IncludeFiles, AreEachReadOnceByAllThreads) {
    std::atomic<int> reads = 0;
    TIncludeFiles files([&](const std::string& path) {
        ++reads;
        return std::optional<std::string>(path);
    });
    std::atomic<int> faults = 0;
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back([&] {
            for (int number = 0; number < 500; ++number) {
                const std::string path = std::to_string(number);
                const std::string* text = files.Read(path);
                if (!text || *text != path) ++faults;
            }
        });
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(faults, 0);
    EXPECT_EQ(reads, 500);
}

TEST(IncludeFiles, AreLookedForInFoldersInTheirOrder) {
    const struct {
        const char* Name;
        const char* Path;
        const char* Asked;
    } rows[] = {
        {"x.vh", "one/x.vh", "one/x.vh\n"},
        {"y.vh", "two/y.vh", "one/y.vh\ntwo/y.vh\n"},
        {".//./y.vh", "two/y.vh", "one/y.vh\ntwo/y.vh\n"},
        {"sub/../y.vh", "", "one/sub/../y.vh\ntwo/sub/../y.vh\nsub/../y.vh\n"},
        {"here.vh", "here.vh", "one/here.vh\ntwo/here.vh\nhere.vh\n"},
        {"/abs/z.vh", "/abs/z.vh", "/abs/z.vh\n"},
        {"C:\\z.vh", "C:\\z.vh", "C:\\z.vh\n"},
        {"", "", ""},
    };
    for (const auto& row : rows) {
        TFolder folder{{{"one/x.vh", ""},
                        {"two/x.vh", ""},
                        {"two/y.vh", ""},
                        {"here.vh", ""},
                        {"/abs/z.vh", ""},
                        {"C:\\z.vh", ""}},
                       ""};
        TIncludeFiles files([&](const std::string& path) { return folder.Read(path); });
        std::string path;
        const std::string* text = FindIncludeFile(&files, row.Name, {"one", "two/", ""}, &path);
        EXPECT_EQ(path, row.Path) << row.Name;
        EXPECT_EQ(text == nullptr, path.empty()) << row.Name;
        EXPECT_EQ(folder.Asked, row.Asked) << row.Name;
    }
    std::string path;
    EXPECT_EQ(FindIncludeFile(nullptr, "x.vh", {"one"}, &path), nullptr);
}

TEST(IncludeFiles, LieInTheFolderOfTheirPath) {
    EXPECT_EQ(FolderOfPath("a/b/c.v"), "a/b/");
    EXPECT_EQ(FolderOfPath("a\\c.v"), "a\\");
    EXPECT_EQ(FolderOfPath("/c.v"), "/");
    EXPECT_EQ(FolderOfPath("c.v"), "");
}
