#include "projectfiles/readsources.h"
#include "tests/projectfiles/sourcefakes.h"
#include <gtest/gtest.h>

namespace {

TEST(ReadSources, KeepTheListsOfSourcesThatCallersDelete) {
    TReadSources sources;
    THdlSourceFile* kept = sources.Make(Handle("/p/a.vhd"));
    THdlSourceFile* deleted = sources.Make(Handle("/p/b.vhd"));
    EXPECT_EQ(deleted->GetLanguage(), LANGUAGE_VHDL);
    const TIHdlSourceFileList* list = deleted->GetDependencyList();
    deleted->AddDependency(kept);
    delete deleted;
    EXPECT_EQ(NamesOf(*list), "a.vhd ");
    EXPECT_EQ(NameOf(kept), "a.vhd");
}

TEST(ReadSources, StayWhereTheyAreHoweverManyFollow) {
    TReadSources sources;
    std::vector<const THdlSourceFile*> made;
    for (int i = 0; i < 3000; ++i)
        made.push_back(sources.Make(Handle("/p/" + std::to_string(i) + ".vhd")));
    for (std::size_t i = 0; i < made.size(); ++i)
        ASSERT_EQ(NameOf(made[i]), std::to_string(i) + ".vhd");
}

TEST(ReadSources, MayBeInitialisedAnewAndAssigned) {
    TReadSources sources;
    THdlSourceFile* source = sources.Make(Handle("/p/a.vhd"));
    THdlSourceFile* other = sources.Make(Handle("/p/b.vhd"));
    TIHdlSourceFileList* former = source->GetDependencyList();
    source->AddDependency(other);
    source->Initialize();
    EXPECT_NE(source->GetDependencyList(), former);
    EXPECT_EQ(NamesOf(*source->GetDependencyList()), "");
    EXPECT_EQ(NamesOf(*former), "b.vhd ");
    other->AddDependency(source);
    *source = *static_cast<const THdlSourceFile*>(other);
    EXPECT_EQ(NameOf(source), "b.vhd");
    EXPECT_EQ(NamesOf(*source->GetDependencyList()), "b.vhd ");
}

}  // namespace
