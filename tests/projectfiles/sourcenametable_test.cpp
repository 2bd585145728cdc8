#include "projectfiles/sourcenametable.h"
#include "projectfiles/ihdlsourcefile.h"
#include "tests/projectfiles/sourcefakes.h"
#include <gtest/gtest.h>
#include <map>
#include <string>
#include <vector>

namespace {

/// Names some of which have numbers side by side and others far apart.
std::vector<TSourceName> MakeNames() {
    std::vector<TSourceName> names;
    for (int i = 0; i < 64; ++i) {
        names.push_back(GetFileIdentity(Handle("/table/" + std::to_string(i))));
        for (int k = 0; k < (i % 4 == 0 ? 50 : 0); ++k)
            Handle("/table/" + std::to_string(i) + "/" + std::to_string(k));
    }
    return names;
}

TEST(SourceNameTable, FindsNothingWhenEmpty) {
    TSourceNameTable<int> table;
    const TSourceName name = MakeNames()[0];
    EXPECT_EQ(table.Find(name), nullptr);
    table.Remove(name);
    table.Clear();
    EXPECT_EQ(table.Find(name), nullptr);
}

TEST(SourceNameTable, KeepsTheFirstValueOfAName) {
    TSourceNameTable<int> table;
    const auto names = MakeNames();
    EXPECT_EQ(table.Add(names[3], 30).second, true);
    const auto [value, isNew] = table.Add(names[3], 40);
    EXPECT_FALSE(isNew);
    EXPECT_EQ(*value, 30);
    *value = 50;
    EXPECT_EQ(*table.Find(names[3]), 50);
    EXPECT_EQ(table.Find(names[4]), nullptr);
    table.Clear();
    EXPECT_EQ(table.Find(names[3]), nullptr);
}

TEST(SourceNameTable, FindsTheEmptyName) {
    TSourceNameTable<int> table;
    TSourceName empty;
    ASSERT_TRUE(GetSourceName(Handle(""), &empty));
    EXPECT_TRUE(table.Add(empty, 1).second);
    EXPECT_FALSE(table.Add(empty, 2).second);
    EXPECT_NE(table.Find(empty), nullptr);
}

TEST(SourceNameTable, AgreesWithAMapThroughManyAddsAndRemovals) {
    TSourceNameTable<unsigned> table;
    const auto names = MakeNames();
    std::map<std::size_t, unsigned> model;
    unsigned random = 1;
    for (int step = 0; step < 5000; ++step) {
        random = random * 1664525u + 1013904223u;
        const std::size_t i = (random >> 16) % names.size();
        if ((random >> 28) % 2) {
            ASSERT_EQ(table.Add(names[i], random).second, model.emplace(i, random).second);
        } else {
            table.Remove(names[i]);
            model.erase(i);
        }
        for (std::size_t n = 0; n < names.size(); ++n) {
            const unsigned* value = table.Find(names[n]);
            ASSERT_EQ(value != nullptr, model.count(n) == 1) << "step " << step << ", name " << n;
            if (!value) continue;
            ASSERT_EQ(*value, model.at(n)) << "step " << step << ", name " << n;
        }
    }
    EXPECT_FALSE(model.empty());
}

}  // namespace
