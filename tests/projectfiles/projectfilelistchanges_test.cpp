#include "tests/projectfiles/projectfilefakes.h"
#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string_view>
#include <vector>

// The changes that THdlProjectFileList takes over from std::list.

namespace {

using TList = THdlProjectFileList;
constexpr auto kFolder = TList::LIST_TYPE_FILE_INPUT;

bool ByName(const THdlProjectFile* a, const THdlProjectFile* b) {
    return std::string_view(a->ShortName(false)) < b->ShortName(false);
}

/// Files a.v to f.v; a second list holds them all, so that none is deleted before its time.
struct Files {
    Files() {
        for (const char* name : {"a.v", "b.v", "c.v", "d.v", "e.v", "f.v"})
            Holder.push_back(new MortalFile(name, Grave));
        All.assign(Holder.begin(), Holder.end());
    }
    THdlProjectFile* operator[](char letter) const {
        return All[static_cast<std::size_t>(letter - 'a')];
    }

    std::string Grave;
    TList Holder{kFolder, nullptr};
    std::vector<THdlProjectFile*> All;
};

struct TChange {
    const char* Label;
    void (*Apply)(TList& list, TList& other, const Files& files);
    const char* Names;       // of a list that held a.v b.v c.v
    const char* OtherNames;  // of a list that held d.v e.v
};

const TChange kChanges[] = {
    {"push_back", [](auto& list, auto&, auto& f) { list.push_back(f['f']); }, "a.v b.v c.v f.v ",
     "d.v e.v "},
    {"push_back null", [](auto& list, auto&, auto&) { list.push_back(nullptr); }, "a.v b.v c.v ",
     "d.v e.v "},
    {"push_back of a listed file", [](auto& list, auto&, auto& f) { list.push_back(f['a']); },
     "a.v b.v c.v a.v ", "d.v e.v "},
    {"push_front", [](auto& list, auto&, auto& f) { list.push_front(f['f']); }, "f.v a.v b.v c.v ",
     "d.v e.v "},
    {"emplace_back", [](auto& list, auto&, auto& f) { list.emplace_back(f['f']); },
     "a.v b.v c.v f.v ", "d.v e.v "},
    {"emplace_front", [](auto& list, auto&, auto& f) { list.emplace_front(f['f']); },
     "f.v a.v b.v c.v ", "d.v e.v "},
    {"pop_back", [](auto& list, auto&, auto&) { list.pop_back(); }, "a.v b.v ", "d.v e.v "},
    {"pop_front", [](auto& list, auto&, auto&) { list.pop_front(); }, "b.v c.v ", "d.v e.v "},
    {"insert",
     [](auto& list, auto&, auto& f) {
         EXPECT_EQ(*list.insert(std::next(list.begin()), f['f']), f['f']);
     },
     "a.v f.v b.v c.v ", "d.v e.v "},
    {"emplace",
     [](auto& list, auto&, auto& f) { EXPECT_EQ(*list.emplace(list.begin(), f['f']), f['f']); },
     "f.v a.v b.v c.v ", "d.v e.v "},
    {"insert several times",
     [](auto& list, auto&, auto& f) { list.insert(list.begin(), 2, f['f']); },
     "f.v f.v a.v b.v c.v ", "d.v e.v "},
    {"insert a range",
     [](auto& list, auto&, auto& f) {
         EXPECT_EQ(*list.insert(list.end(), f.All.begin() + 3, f.All.begin() + 5), f['d']);
     },
     "a.v b.v c.v d.v e.v ", "d.v e.v "},
    {"insert a list",
     [](auto& list, auto&, auto& f) {
         list.insert(list.begin(), {f['e'], f['f']});
     },
     "e.v f.v a.v b.v c.v ", "d.v e.v "},
    {"erase",
     [](auto& list, auto&, auto&) {
         THdlProjectFile* second = *std::next(list.begin());
         EXPECT_EQ(*list.erase(list.begin()), second);
     },
     "b.v c.v ", "d.v e.v "},
    {"erase a range",
     [](auto& list, auto&, auto& f) {
         EXPECT_EQ(*list.erase(list.begin(), std::next(list.begin(), 2)), f['c']);
     },
     "c.v ", "d.v e.v "},
    {"clear", [](auto& list, auto&, auto&) { list.clear(); }, "", "d.v e.v "},
    {"assign several times", [](auto& list, auto&, auto& f) { list.assign(2, f['a']); }, "a.v a.v ",
     "d.v e.v "},
    {"assign a range",
     [](auto& list, auto&, auto& f) { list.assign(f.All.begin() + 1, f.All.begin() + 4); },
     "b.v c.v d.v ", "d.v e.v "},
    {"assign a list",
     [](auto& list, auto&, auto& f) {
         list.assign({f['f'], f['a']});
     },
     "f.v a.v ", "d.v e.v "},
    {"operator= with a list",
     [](auto& list, auto&, auto& f) {
         list = {f['f'], f['a']};
     },
     "f.v a.v ", "d.v e.v "},
    {"resize down", [](auto& list, auto&, auto&) { list.resize(1); }, "a.v ", "d.v e.v "},
    {"resize up with a file", [](auto& list, auto&, auto& f) { list.resize(5, f['f']); },
     "a.v b.v c.v f.v f.v ", "d.v e.v "},
    {"resize up with nothing", [](auto& list, auto&, auto&) { list.resize(5); }, "a.v b.v c.v ",
     "d.v e.v "},
    {"remove",
     [](auto& list, auto&, auto& f) {
         list.push_back(f['a']);
         EXPECT_EQ(list.remove(f['a']), 2U);
     },
     "b.v c.v ", "d.v e.v "},
    {"remove_if",
     [](auto& list, auto&, auto& f) {
         const auto size = list.size();
         EXPECT_EQ(list.remove_if([&](auto* file) { return file != f['b']; }), size - 1);
     },
     "b.v ", "d.v e.v "},
    {"unique",
     [](auto& list, auto&, auto& f) {
         list.push_front(f['a']);
         list.push_back(f['a']);
         EXPECT_EQ(list.unique(), 1U);
     },
     "a.v b.v c.v a.v ", "d.v e.v "},
    {"unique by a rule",
     [](auto& list, auto&, auto&) {
         const auto size = list.size();
         EXPECT_EQ(list.unique([](auto*, auto*) { return true; }), size - 1);
     },
     "a.v ", "d.v e.v "},
    {"splice a list", [](auto& list, auto& other, auto&) { list.splice(list.begin(), other); },
     "d.v e.v a.v b.v c.v ", ""},
    {"splice a file",
     [](auto& list, auto& other, auto&) {
         list.splice(list.end(), other, std::next(other.begin()));
     },
     "a.v b.v c.v e.v ", "d.v "},
    {"splice a range",
     [](auto& list, auto& other, auto&) {
         list.splice(std::next(list.begin()), other, other.begin(), other.end());
     },
     "a.v d.v e.v b.v c.v ", ""},
    {"merge", [](auto& list, auto& other, auto&) { list.merge(other, ByName); },
     "a.v b.v c.v d.v e.v ", ""},
    {"sort",
     [](auto& list, auto&, auto&) { list.sort([](auto* a, auto* b) { return ByName(b, a); }); },
     "c.v b.v a.v ", "d.v e.v "},
    {"reverse", [](auto& list, auto&, auto&) { list.reverse(); }, "c.v b.v a.v ", "d.v e.v "},
    {"swap", [](auto& list, auto& other, auto&) { list.swap(other); }, "d.v e.v ", "a.v b.v c.v "},
    {"std::swap", [](auto& list, auto& other, auto&) { std::swap(list, other); }, "d.v e.v ",
     "a.v b.v c.v "},
};

void Fill(TList& list, const Files& files, const char* letters) {
    for (; *letters; ++letters) list.push_back(files[*letters]);
}

TEST(ProjectFileListChanges, ChangeTheListAsTheStandardListDoes) {
    for (const TChange& change : kChanges) {
        SCOPED_TRACE(change.Label);
        const Files files;
        TList list(kFolder, nullptr);
        TList other(kFolder, nullptr);
        Fill(list, files, "abc");
        Fill(other, files, "de");
        change.Apply(list, other, files);
        EXPECT_EQ(NamesOf(list), change.Names);
        EXPECT_EQ(NamesOf(other), change.OtherNames);
    }
}

TEST(ProjectFileListChanges, KeepCountOfTheListsThatHoldAFile) {
    for (const TChange& change : kChanges) {
        SCOPED_TRACE(change.Label);
        Files files;
        {
            TList list(kFolder, nullptr);
            TList other(kFolder, nullptr);
            Fill(list, files, "abc");
            Fill(other, files, "de");
            change.Apply(list, other, files);
        }
        EXPECT_EQ(files.Grave, "");
        files.Holder.Flush(true);
        EXPECT_EQ(files.Grave, "a.v b.v c.v d.v e.v f.v ");
    }
}

TEST(ProjectFileListChanges, KeepTheListSearchable) {
    for (const TChange& change : kChanges) {
        SCOPED_TRACE(change.Label);
        const Files files;
        TList list(kFolder, nullptr);
        TList other(kFolder, nullptr);
        Fill(list, files, "abc");
        Fill(other, files, "de");
        for (TList* filled : {&list, &other}) {
            AddManyFiles(*filled);
            EXPECT_FALSE(filled->Contains(Name("x.v")));
        }
        const TList holders[] = {list, other};
        change.Apply(list, other, files);
        for (TList* changed : {&list, &other}) {
            for (auto place = changed->begin(); place != changed->end(); ++place) {
                const auto first = std::find_if(changed->begin(), changed->end(), [&](auto* file) {
                    return file->GetFileName() == (*place)->GetFileName();
                });
                EXPECT_TRUE(changed->FindFromISFileName((*place)->GetFileName()) == first);
            }
            for (THdlProjectFile* file : files.All)
                EXPECT_EQ(changed->Contains(file),
                          std::find(changed->begin(), changed->end(), file) != changed->end())
                    << file->ShortName(false);
        }
    }
}

TEST(ProjectFileListChanges, TakeNothingFromAnEmptyList) {
    TList list(kFolder, nullptr);
    list.pop_back();
    list.pop_front();
    list.clear();
    EXPECT_EQ(NamesOf(list), "");
}

TEST(ProjectFileListChanges, LeaveFilesTakenOutToTheCaller) {
    std::string grave;
    TList list(kFolder, nullptr);
    const std::unique_ptr<THdlProjectFile> file(new MortalFile("a.v", grave));
    list.push_back(file.get());
    list.pop_back();
    EXPECT_EQ(grave, "");
}

TEST(ProjectFileListChanges, TellNobody) {
    FakeComponent owner;
    RecordingObserver observer;
    TList list(kFolder, &owner);
    list.AddObserver(&observer);
    auto* file = new THdlProjectFile(Name("a.v"), nullptr, false);
    list.push_back(file);
    list.clear();
    list.push_front(file);
    EXPECT_EQ(owner.Take() + observer.Take(), "");
    EXPECT_EQ(file->GetOwningProjectComponent(), nullptr);
}

}  // namespace
