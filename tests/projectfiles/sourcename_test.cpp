#include "projectfiles/sourcename.h"
#include "filenames/hdbsfilename.h"
#include "projectfiles/hdlsourcefile.h"
#include <filesystem>
#include <gtest/gtest.h>

namespace {

const ISFileName* Handle(const char* name) {
    return ISFileName::NewISFileName(name);
}

TEST(SourceName, IsEqualForNamesThatDifferInLetterCaseAlone) {
    const THdbSFileName tracked(Handle("/p/A.VHD"));
    const THdbSFileName nested(&tracked);
    TSourceName lower;
    TSourceName upper;
    TSourceName inner;
    TSourceName other;
    ASSERT_TRUE(GetSourceName(Handle("/p/a.vhd"), &lower));
    ASSERT_TRUE(GetSourceName(&tracked, &upper));
    ASSERT_TRUE(GetSourceName(&nested, &inner));
    ASSERT_TRUE(GetSourceName(Handle("/p/b.vhd"), &other));
    EXPECT_TRUE(lower == upper);
    EXPECT_TRUE(lower == inner);
    EXPECT_FALSE(lower == other);
    EXPECT_EQ(TSourceNameHash()(lower), TSourceNameHash()(upper));
}

TEST(SourceName, IsMissingWithoutAHandle) {
    const ISFileName* const none = nullptr;
    const THdbSFileName handleless(none);
    const THdlSourceFile nameless(none);
    TSourceName name;
    EXPECT_FALSE(GetSourceName(none, &name));
    EXPECT_FALSE(GetSourceName(&handleless, &name));
    EXPECT_FALSE(GetSourceName(&nameless, &name));
}

TEST(SourceName, IsWrittenRelativeToTheDirectoryOfAFile) {
    const THdlSourceFile source("/p/q/a.vhd");
    const ISFileName* name = source.GetFileName();
    EXPECT_EQ(RelativePath(name, Handle("/p/build.xml")), "q/a.vhd");
    EXPECT_EQ(RelativePath(name, Handle("/p/q/r/build.xml")), "../a.vhd");
    EXPECT_EQ(RelativePath(name, nullptr), name->Canonical(false));
    EXPECT_EQ(RelativePath(nullptr, Handle("/p/build.xml")), "");
}

}  // namespace
