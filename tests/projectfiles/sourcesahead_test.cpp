#include "projectfiles/sourcesahead.h"
#include "tests/projectfiles/sourcefakes.h"
#include <gtest/gtest.h>

namespace {

/// Counts how often it is asked for its name.
class AskedSource : public THdlSourceFile {
public:
    using THdlSourceFile::GetFileName;
    using THdlSourceFile::THdlSourceFile;
    const ISFileName* GetFileName() override {
        ++Count;
        return THdlSourceFile::GetFileName();
    }
    int Count = 0;
};

TEST(SourcesAhead, AskEachSourceOnceForItsNameBeforeTheWalkComesToIt) {
    for (const int count : {0, 1, 7, 8, 9, 16, 17, 40}) {
        SCOPED_TRACE(count);
        std::deque<AskedSource> sources;
        TIHdlSourceFileList list;
        for (int i = 0; i < count; ++i) {
            sources.emplace_back(("/p/" + std::to_string(i) + ".vhd").c_str());
            list.AddSourceFile(&sources.back(), false);
        }
        for (AskedSource& source : sources) source.Count = 0;
        TSourcesAhead ahead(list);
        for (const AskedSource& source : sources) {
            ASSERT_EQ(source.Count, 1) << NameOf(&source);
            ahead.Step();
        }
        // A walk may go on in another list.
        for (int i = 0; i < 20; ++i) ahead.Step();
        for (const AskedSource& source : sources) EXPECT_EQ(source.Count, 1);
    }
}

TEST(SourcesAhead, PassOverSourcesWithoutAName) {
    Sources made;
    TIHdlSourceFileList list;
    list.AddSourceFile(made.MakeNameless(), false);
    list.AddSourceFile(made.Make("/p/a.vhd"), false);
    TSourcesAhead ahead(list);
    for (int i = 0; i < 3; ++i) ahead.Step();
    EXPECT_EQ(NamesOf(list), "<nameless> a.vhd ");
}

}  // namespace
