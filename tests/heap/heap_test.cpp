#include "tests/heap/heapclient.h"
#include "tests/heap/passages.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::IsEmpty;

TEST(Heap, IsOneForProgramAndLibrary) {
    EXPECT_THAT(FailedPassages(), IsEmpty());
}

TEST(Heap, IsOneForClientLibraryAndLibrary) {
    EXPECT_THAT(FailedPassagesOfClient(), IsEmpty());
}

TEST(Heap, IsOneForProgramAndClientLibrary) {
    const std::string text = MakeClientText();
    EXPECT_EQ(text, kLongText);
    EXPECT_TRUE(IsSharedHeap(text.data()));
    const std::unique_ptr<THdlProjectFile> made(MakeClientFile());
    EXPECT_TRUE(IsSharedHeap(made.get()));
    auto* given = new THdlProjectFile(ISFileName::NewISFileName("/a/program.txt"), nullptr, false);
    EXPECT_TRUE(IsHeapOfClient(given));
    DeleteInClient(given);
}

#ifndef HDLBUILDFILE_PLAIN_HEAP
TEST(Heap, IsToldFromTheOneBehindMalloc) {
    void* foreign = std::calloc(100, 1);
    EXPECT_FALSE(IsSharedHeap(foreign));
    EXPECT_FALSE(IsHeapOfClient(foreign));
    std::free(foreign);
}
#endif
