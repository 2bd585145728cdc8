#include "flows/linking/unitindex.h"
#include "tests/flows/linking/designtext.h"
#include <gtest/gtest.h>

namespace {

std::string Found(const TDesignFiles& files, const std::optional<TUnitPlace>& place) {
    return place ? TextOf(files, *place) : "none";
}

}  // namespace

TEST(UnitIndex, FindsUnitsByTheirFoldedNames) {
    const TDesignFiles files = Design({
        {"L", "entity E is end; architecture A of E is begin end;"},
        {"M", "package P is end; package body P is end;"},
        {"l", "configuration C of e is for a end for; end; context X is end;"},
    });
    const TUnitIndex index(files);
    EXPECT_EQ(Found(files, index.FindPrimary("l", "e", 1)), "entity E in a");
    EXPECT_EQ(Found(files, index.FindPrimary("m", "e", 1)), "none");
    EXPECT_EQ(Found(files, index.FindPrimary("m", "p", 0)), "package P in b");
    EXPECT_EQ(Found(files, index.FindPrimary("l", "a", 0)), "none");
    EXPECT_EQ(Found(files, index.FindPrimary("l", "c", 0)), "configuration C in c");
    EXPECT_EQ(Found(files, index.FindPrimary("l", "x", 0)), "context X in c");
    EXPECT_EQ(Found(files, index.FindArchitecture("l", "e", "a", 2)), "architecture A in a");
    EXPECT_EQ(Found(files, index.FindArchitecture("l", "e", "b", 0)), "none");
    EXPECT_EQ(Found(files, index.FindPackageBody("m", "p", 0)), "package body P in b");
    EXPECT_EQ(Found(files, index.FindPackageBody("l", "p", 0)), "none");
    EXPECT_EQ(index.LibraryOf(0), "l");
    EXPECT_TRUE(index.HasLibrary("m"));
    EXPECT_FALSE(index.HasLibrary("M"));
}

TEST(UnitIndex, FindsUnitsOfOneNameInAllLibraries) {
    const TDesignFiles files = Design({
        {"m", "entity e is end; architecture e of e is begin end;"},
        {"l", "package e is end; package body e is end;"},
    });
    const TUnitIndex index(files);
    std::string found;
    for (const TUnitPlace place : index.FindInAllLibraries("e"))
        found += TextOf(files, place) + "\n";
    EXPECT_EQ(found, "entity e in a\npackage e in b\n");
    EXPECT_TRUE(index.FindInAllLibraries("f").empty());
}

TEST(UnitIndex, PrefersTheUnitOfTheAskingFile) {
    const TDesignFiles files = Design({{"l", "entity e is end; entity e is end;"},
                                       {"l", "entity f is end; entity e is end;"},
                                       {"l", "entity e is end;"}});
    const TUnitIndex index(files);
    EXPECT_EQ(index.FindPrimary("l", "e", 0), (TUnitPlace{0, 0}));
    EXPECT_EQ(index.FindPrimary("l", "e", 1), (TUnitPlace{1, 1}));
    EXPECT_EQ(index.FindPrimary("l", "e", 2), (TUnitPlace{2, 0}));
    EXPECT_EQ(index.FindPrimary("l", "e", 3), (TUnitPlace{0, 0}));
}
