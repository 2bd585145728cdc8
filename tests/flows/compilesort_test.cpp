#include "flows/compilesort.h"
#include "projectfiles/hdlsourcefile.h"
#include "projectfiles/ihdlsourcefilelist.h"
#include "services/names/isfilename.h"
#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <sstream>

namespace {

/// A group of sources named by words, of which "a>b" makes a depend on b, listed or not.
class Group {
public:
    Group(const std::string& listed, const std::string& edges) {
        std::istringstream names(listed);
        for (std::string name; names >> name;) List.AddSourceFile(&File(name), false);
        std::istringstream words(edges);
        for (std::string word; words >> word;)
            File(word.substr(0, word.find('>')))
                .AddDependency(&File(word.substr(word.find('>') + 1)));
    }

    /// The order, then what is late with the source that needs it.
    std::string Sort() const {
        const TCompileSort sort = SortForCompile(List);
        std::string text;
        for (const IHdlSourceFile* source : sort.Order) text += NameOf(source) + " ";
        for (const TLateSource& late : sort.Late)
            text += "| " + NameOf(late.Source) + " for " + NameOf(late.User) + " ";
        return text;
    }
    TIHdlSourceFileList List;

private:
    THdlSourceFile& File(const std::string& name) {
        std::unique_ptr<THdlSourceFile>& file = Files[name];
        if (!file) file = std::make_unique<THdlSourceFile>(("/" + name + ".v").c_str());
        return *file;
    }
    static std::string NameOf(const IHdlSourceFile* file) {
        return file->GetFileName()->GetNameNoExt();
    }
    std::map<std::string, std::unique_ptr<THdlSourceFile>> Files;
};

}  // namespace

TEST(CompileSort, MovesWhatOthersNeedInFrontOfTheFirstOfThem) {
    const struct {
        const char* Listed;
        const char* Edges;
        const char* Sorted;
    } rows[] = {
        {"", "", ""},
        {"c a b", "", "c a b "},
        {"p a b", "a>p b>p", "p a b "},
        {"a b p c", "b>p c>p", "a p b c | p for b "},
        {"a b p q", "a>q q>p b>p", "p q a b | p for a | q for a "},
        {"a q p", "a>p a>q", "p q a | p for a | q for a "},
        {"a p", "a>x x>p", "a p "},
        {"a a2 b", "a>a a>b b>a", "a a2 b "},
        {"u a b", "u>b a>b b>a", "b u a | b for u "},
    };
    for (const auto& row : rows) {
        const Group group(row.Listed, row.Edges);
        EXPECT_EQ(group.Sort(), row.Sorted) << row.Listed << ": " << row.Edges;
    }
}

TEST(CompileSort, LeavesWhatIsSortedAlone) {
    for (const char* edges : {"u>b a>b b>a", "u>d d>c c>b a>c", "b>a a>b d>b"}) {
        const Group group("u a b c d", edges);
        const TCompileSort sort = SortForCompile(group.List);
        TIHdlSourceFileList sorted;
        for (IHdlSourceFile* source : sort.Order) sorted.AddSourceFile(source, false);
        const TCompileSort again = SortForCompile(sorted);
        EXPECT_EQ(again.Order, sort.Order) << edges;
        EXPECT_EQ(again.Late.size(), 0u) << edges;
    }
}

TEST(CompileSort, WalksLongChains) {
    std::string listed;
    std::string edges;
    for (int i = 0; i < 3000; ++i) {
        listed += "f" + std::to_string(i) + " ";
        edges += "f" + std::to_string(i) + ">f" + std::to_string(i + 1) + " ";
    }
    const Group group(listed, edges);
    const TCompileSort sort = SortForCompile(group.List);
    ASSERT_EQ(sort.Order.size(), 3000u);
    EXPECT_EQ(std::string(sort.Order.front()->GetFileName()->GetNameNoExt()), "f2999");
    EXPECT_EQ(std::string(sort.Order.back()->GetFileName()->GetNameNoExt()), "f0");
    EXPECT_EQ(sort.Late.size(), 2999u);
}
