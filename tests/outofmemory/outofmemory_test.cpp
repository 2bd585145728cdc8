#include "services/names/isfilename.h"
#include "services/xml/expatrun.h"
#include "tests/outofmemory/failingheap.h"
#include "tests/outofmemory/tries.h"
#include <gtest/gtest.h>
#include <new>
#include <string>
#include <vector>

namespace {

/// Of what reads documents.
void TryWorksWithDocuments(const std::vector<TWorkRow>& works) {
    SetExpatMemory(&FailingHeap::GetExpatMemory());
    TryWorks(works);
}

}  // namespace

TEST(OutOfMemory, LosesNothingOfDocuments) {
    TryWorksWithDocuments(MakeXmlWorks());
}

TEST(OutOfMemory, LosesNothingOfBuilds) {
    TryWorksWithDocuments(MakeBuildWorks());
}

TEST(OutOfMemory, ChangesBuildsWholeOrNotAtAll) {
    TryWorksWithDocuments(MakeEditWorks());
}

TEST(OutOfMemory, ChangesProjectFileListsWholeOrNotAtAll) {
    TryWorksWithDocuments(MakeProjectFileWorks());
}

TEST(OutOfMemory, LosesNothingOfSettings) {
    TryWorksWithDocuments(MakeSettingsWorks());
}

// A table of names that cannot grow must not fill up: a search in it would not end.
TEST(OutOfMemory, FindsEveryNameWhenNoTableOfNamesCanGrow) {
    constexpr int kNames = 4000;
    constexpr int kNamesWithoutMemory = 300;
    const auto make = [](int i) {
        return ISFileName::NewISFileName(("/f/" + std::to_string(i)).c_str());
    };
    std::vector<const ISFileName*> names(kNames, nullptr);
    for (int i = 0; i < kNames; ++i) {
        // Names lie in blocks of memory, which are taken with memory.
        if (i % kNamesWithoutMemory == 0) make(-i - 1);
        FailingHeap::FailAt(1, true);
        try {
            names[static_cast<std::size_t>(i)] = make(i);
        } catch (const std::bad_alloc&) {
        }
        FailingHeap::Stop();
    }
    int found = 0;
    for (int i = 0; i < kNames; ++i) {
        const ISFileName* const name = names[static_cast<std::size_t>(i)];
        if (!name) continue;
        EXPECT_EQ(make(i), name);
        ++found;
    }
    EXPECT_GT(found, kNamesWithoutMemory);
}
