#include "projectfiles/sourcenametable.h"
#include "projectfiles/ihdlsourcefile.h"
#include "tests/projectfiles/sourcefakes.h"
#include <array>
#include <gtest/gtest.h>
#include <map>
#include <string>

namespace {

/// Names whose hashes are chosen by the test, and places to tell them apart.
class NamesAndPlaces {
public:
    NamesAndPlaces() {
        for (std::size_t i = 0; i < Texts.size(); ++i) {
            Texts[i] = "name" + std::to_string(i);
            Places.push_back(nullptr);
        }
    }
    /// The lower hashes are few, so that names crowd and wrap around the end of the table.
    TSourceName Name(std::size_t i) const { return {Texts[i], (i % 5 == 0 ? 255 : i % 7)}; }
    TSourceNameTable::TPlace Place(std::size_t i) const {
        return std::next(Places.begin(), static_cast<std::ptrdiff_t>(i));
    }
    static constexpr std::size_t kCount = 64;

private:
    std::array<std::string, kCount> Texts;
    std::list<IHdlSourceFile*> Places;
};

TEST(SourceNameTable, FindsNothingWhenEmpty) {
    TSourceNameTable table;
    const NamesAndPlaces all;
    EXPECT_EQ(table.Find(all.Name(0)), nullptr);
    table.Remove(all.Name(0));
    table.Clear();
    EXPECT_EQ(table.Find(all.Name(0)), nullptr);
}

TEST(SourceNameTable, KeepsTheFirstPlaceOfAName) {
    TSourceNameTable table;
    const NamesAndPlaces all;
    EXPECT_TRUE(table.Add(all.Name(3), all.Place(3)));
    EXPECT_FALSE(table.Add(all.Name(3), all.Place(4)));
    ASSERT_NE(table.Find(all.Name(3)), nullptr);
    EXPECT_EQ(*table.Find(all.Name(3)), all.Place(3));
    const std::string copy(all.Name(3).Folded);
    EXPECT_NE(table.Find({copy, all.Name(3).Hash}), nullptr) << "the same text elsewhere";
    EXPECT_EQ(table.Find({copy, all.Name(3).Hash + 8}), nullptr) << "another hash";
}

TEST(SourceNameTable, FindsTheEmptyName) {
    TSourceNameTable table;
    const NamesAndPlaces all;
    TSourceName empty;
    ASSERT_TRUE(GetSourceName(Handle(""), &empty));
    EXPECT_TRUE(table.Add(empty, all.Place(0)));
    EXPECT_FALSE(table.Add(empty, all.Place(1)));
    EXPECT_NE(table.Find(empty), nullptr);
}

TEST(SourceNameTable, AgreesWithAMapThroughManyAddsAndRemovals) {
    TSourceNameTable table;
    const NamesAndPlaces all;
    std::map<std::size_t, TSourceNameTable::TPlace> model;
    unsigned random = 1;
    for (int step = 0; step < 5000; ++step) {
        random = random * 1664525u + 1013904223u;
        const std::size_t i = (random >> 16) % NamesAndPlaces::kCount;
        if ((random >> 28) % 2) {
            ASSERT_EQ(table.Add(all.Name(i), all.Place(i)), model.emplace(i, all.Place(i)).second);
        } else {
            table.Remove(all.Name(i));
            model.erase(i);
        }
        for (std::size_t n = 0; n < NamesAndPlaces::kCount; ++n) {
            const TSourceNameTable::TPlace* place = table.Find(all.Name(n));
            ASSERT_EQ(place != nullptr, model.count(n) == 1) << "step " << step << ", name " << n;
            if (!place) continue;
            ASSERT_EQ(*place, model.at(n)) << "step " << step << ", name " << n;
        }
    }
    std::map<std::string, TSourceNameTable::TPlace> listed;
    table.ForEach([&listed](const TSourceName& name, TSourceNameTable::TPlace place) {
        listed.emplace(name.Folded, place);
    });
    std::map<std::string, TSourceNameTable::TPlace> expected;
    for (const auto& [i, place] : model) expected.emplace(all.Name(i).Folded, place);
    EXPECT_EQ(listed, expected);
    EXPECT_FALSE(expected.empty());
}

}  // namespace
