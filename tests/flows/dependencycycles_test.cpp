#include "flows/dependencycycles.h"
#include "projectfiles/hdlsourcefile.h"
#include "services/names/isfilename.h"
#include <gtest/gtest.h>
#include <memory>
#include <sstream>

namespace {

/// Sources named by small letters; edges as "a>b" words: a depends on b.
class Graph {
public:
    explicit Graph(const std::string& edges) {
        std::istringstream words(edges);
        for (std::string word; words >> word;) {
            THdlSourceFile* from = File(word.substr(0, word.find('>')));
            if (word.find('>') != std::string::npos)
                from->AddDependency(File(word.substr(word.find('>') + 1)));
        }
    }

    /// A line for each cycle: its files, then the shortest cycle.
    std::string Cycles() const {
        std::string lines;
        std::vector<const IHdlSourceFile*> roots;
        for (const auto& file : Files) roots.push_back(file.get());
        for (const TDependencyCycle& cycle : FindDependencyCycles(roots))
            lines += Names(cycle.Files) + ": " + Names(cycle.Shortest) + "\n";
        return lines;
    }

    THdlSourceFile* File(const std::string& name) {
        for (const auto& file : Files)
            if (NameOf(file.get()) == name) return file.get();
        Files.push_back(std::make_unique<THdlSourceFile>(("/" + name + ".vhd").c_str()));
        return Files.back().get();
    }

private:
    static std::string NameOf(const IHdlSourceFile* file) {
        return file->GetFileName()->GetNameNoExt();
    }
    static std::string Names(const std::vector<const IHdlSourceFile*>& files) {
        std::string names;
        for (const IHdlSourceFile* file : files) names += (names.empty() ? "" : " ") + NameOf(file);
        return names;
    }
    std::vector<std::unique_ptr<THdlSourceFile>> Files;
};

}  // namespace

TEST(DependencyCycles, FindsEachConnectedSetWithAShortestCycle) {
    const struct {
        const char* Label;
        const char* Edges;
        const char* Cycles;
    } rows[] = {
        {"no file", "", ""},
        {"no cycle", "a>b b>c a>c", ""},
        {"diamond", "a>b a>c b>d c>d", ""},
        {"itself", "a>a", "a: a\n"},
        {"pair", "a>b b>a", "a b: a b\n"},
        {"ring", "a>b b>c c>d d>a", "a b c d: a b c d\n"},
        {"ring behind a tail", "x>a a>b b>a", "a b: a b\n"},
        {"two sets joined one way", "a>b b>a b>c c>d d>c", "a b: a b\nc d: c d\n"},
        {"short cycle away from the first file", "a>b b>c c>d d>a c>e e>c", "a b c d e: c e\n"},
        {"itself inside a ring", "a>b b>c c>a c>c", "a b c: c\n"},
        {"chord", "a>b b>c c>d d>a b>a", "a b c d: a b\n"},
    };
    for (const auto& row : rows) EXPECT_EQ(Graph(row.Edges).Cycles(), row.Cycles) << row.Label;
}

TEST(DependencyCycles, WalksALongRingWithoutDeepRecursion) {
    constexpr int kCount = 200000;
    std::vector<std::unique_ptr<THdlSourceFile>> files;
    std::vector<const IHdlSourceFile*> roots;
    for (int i = 0; i < kCount; ++i) {
        files.push_back(std::make_unique<THdlSourceFile>(("/r/" + std::to_string(i)).c_str()));
        roots.push_back(files.back().get());
        if (i > 0)
            files[static_cast<std::size_t>(i)]->AddDependency(
                files[static_cast<std::size_t>(i - 1)].get());
    }
    EXPECT_EQ(FindDependencyCycles(roots).size(), 0u);
    files.front()->AddDependency(files.back().get());
    const auto cycles = FindDependencyCycles(roots);
    ASSERT_EQ(cycles.size(), 1u);
    EXPECT_EQ(cycles.front().Files.size(), static_cast<std::size_t>(kCount));
    EXPECT_EQ(cycles.front().Shortest.size(), static_cast<std::size_t>(kCount));
}

TEST(DependencyCycles, TakesTheShortestWayAroundALargeRingWithChords) {
    constexpr std::size_t kCount = 70000;
    std::vector<std::unique_ptr<THdlSourceFile>> files;
    std::vector<const IHdlSourceFile*> roots;
    for (std::size_t i = 0; i < kCount; ++i) {
        files.push_back(std::make_unique<THdlSourceFile>(("/c/" + std::to_string(i)).c_str()));
        roots.push_back(files.back().get());
    }
    for (std::size_t i = 0; i < kCount; ++i)
        for (const std::size_t step : {1U, 7U})
            files[i]->AddDependency(files[(i + step) % kCount].get());
    const auto cycles = FindDependencyCycles(roots);
    ASSERT_EQ(cycles.size(), 1u);
    const auto& shortest = cycles.front().Shortest;
    ASSERT_EQ(shortest.size(), kCount / 7);
    for (std::size_t i = 0; i < shortest.size(); ++i) {
        const IHdlSourceFile* next = shortest[(i + 1) % shortest.size()];
        ASSERT_EQ(shortest[i]->GetDependency(next->GetFileName()), next);
    }
}
