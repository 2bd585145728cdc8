#include "projectfiles/hdlprojectdiagramfile.h"
#include "projectfiles/hdlprojectstimulusresultsfile.h"
#include "projectfiles/hdlprojecttemplatefile.h"
#include "projectfiles/hdlprojectusersourcefile.h"
#include "tests/projectfiles/projectfilefakes.h"
#include <gtest/gtest.h>
#include <memory>
#include <vector>

namespace {

using TFilePointer = std::unique_ptr<THdlProjectFile>;

struct TKind {
    const char* Label;
    TFilePointer (*Make)(const ISFileName* name, IProjectComponent* owner);
    bool IsLibrary;
    const char* GroupName;
    bool IsTemplate;
    bool HasAssociatedFiles;
    int Language;  // of a file with extension ".vhd"
    int Type;
};

template <class T, class... More>
TFilePointer MakeKind(const ISFileName* name, IProjectComponent* owner, More... more) {
    auto file = std::make_unique<T>(name, owner, more...);
    if constexpr (std::is_base_of_v<THdlProjectSourceFile, T>)
        file->SetPrecompiledLibraryGroupName("ieee");
    return file;
}

const TKind kKinds[] = {
    {"project file",
     [](auto* name, auto* owner) { return MakeKind<THdlProjectFile>(name, owner, false); }, false,
     "", false, false, 9, 7},
    {"diagram",
     [](auto* name, auto* owner) { return MakeKind<THdlProjectDiagramFile>(name, owner); }, false,
     "", false, true, 9, 2},
    {"stimulus",
     [](auto* name, auto* owner) {
         return MakeKind<THdlProjectStimulusResultsFile>(name, owner, nullptr);
     },
     false, "", false, true, 9, 2},
    {"source",
     [](auto* name, auto* owner) { return MakeKind<THdlProjectSourceFile>(name, owner, false); },
     false, "ieee", false, false, 1, 1},
    {"library source",
     [](auto* name, auto* owner) { return MakeKind<THdlProjectSourceFile>(name, owner, true); },
     true, "ieee", false, false, 1, 1},
    {"user source",
     [](auto* name, auto* owner) {
         return MakeKind<THdlProjectUserSourceFile>(name, owner, false);
     },
     false, "ieee", false, true, 1, 1},
    {"library user source",
     [](auto* name, auto* owner) { return MakeKind<THdlProjectUserSourceFile>(name, owner, true); },
     true, "ieee", false, true, 1, 1},
    {"template",
     [](auto* name, auto* owner) { return MakeKind<THdlProjectTemplateFile>(name, owner); }, false,
     "ieee", true, true, 1, 1},
};

TEST(ProjectFileKinds, AnswerAsTheirKind) {
    for (const TKind& kind : kKinds) {
        SCOPED_TRACE(kind.Label);
        FakeComponent owner;
        const TFilePointer file = kind.Make(Name("a.vhd"), &owner);
        EXPECT_EQ(file->IsLibrary(), kind.IsLibrary);
        EXPECT_STREQ(file->GetPrecompiledLibraryGroupName(), kind.GroupName);
        EXPECT_EQ(file->IsTemplateFile(), kind.IsTemplate);
        hdb::IHDBBase& item = *file;
        EXPECT_EQ(item.GetLanguage(), kind.Language);
        EXPECT_EQ(item.GetHDBItemKind(), hdb::ITEM_KIND_FILE);
        EXPECT_EQ(file->GetProjectFileType(), kind.Type);
        EXPECT_EQ(file->GetOwningProjectComponent(), &owner);
        EXPECT_EQ(file->GetFileName(), Name("a.vhd"));
        EXPECT_EQ(file->GetAssociatedFileList() != nullptr, kind.HasAssociatedFiles);
        const THdlProjectFile& constant = *file;
        EXPECT_EQ(constant.GetAssociatedFileList(), file->GetAssociatedFileList());
    }
}

TEST(ProjectFileKinds, AddAssociatedFilesOnlyWhereTheyHaveSome) {
    for (const TKind& kind : kKinds) {
        SCOPED_TRACE(kind.Label);
        FakeComponent owner;
        const TFilePointer file = kind.Make(Name("a.vhd"), &owner);
        const bool adds = kind.HasAssociatedFiles;
        EXPECT_EQ(file->AddAssociatedFileAtTail(Name("b.v")), adds);
        EXPECT_EQ(file->AddAssociatedFileAtHead(Name("c.v")), adds);
        EXPECT_EQ(file->AddAssociatedFileAtTail(Name("d.v")), adds);
        EXPECT_FALSE(file->AddAssociatedFileAtTail(Name("B.V")));
        EXPECT_FALSE(file->AddAssociatedFileAtHead(Name("D.v")));
        if (!adds) continue;
        const THdlProjectFileList& list = *file->GetAssociatedFileList();
        EXPECT_EQ(NamesOf(list), "c.v b.v d.v ");
        EXPECT_EQ(list.GetListType(), 9);
        EXPECT_EQ(list.GetOwningProjectComponent(), &owner);
        for (const THdlProjectFile* associated : list) {
            EXPECT_NE(dynamic_cast<const THdlProjectSourceFile*>(associated), nullptr);
            EXPECT_FALSE(associated->IsLibrary());
            EXPECT_EQ(associated->GetOwningProjectComponent(), &owner);
        }
    }
}

TEST(ProjectFileKinds, MoveTheOwnerOfTheAssociatedListButNotOfItsFiles) {
    for (const TKind& kind : kKinds) {
        if (!kind.HasAssociatedFiles) continue;
        SCOPED_TRACE(kind.Label);
        FakeComponent first;
        FakeComponent second;
        const TFilePointer file = kind.Make(Name("a.vhd"), &first);
        file->AddAssociatedFileAtTail(Name("b.v"));
        file->SetOwningProjectComponent(&second);
        file->AddAssociatedFileAtTail(Name("c.v"));
        EXPECT_EQ(file->GetAssociatedFileList()->GetOwningProjectComponent(), &second);
        EXPECT_EQ(file->GetAssociatedFileList()->GetHead()->GetOwningProjectComponent(), &first);
        EXPECT_EQ(file->GetAssociatedFileList()->GetTail()->GetOwningProjectComponent(), &second);
    }
}

TEST(ProjectFileKinds, GetTheEmptyNameWhenMadeFromNull) {
    const int types[] = {0, 2, 2, 1, 1, 1, 1, 1};
    for (std::size_t index = 0; index < std::size(kKinds); ++index) {
        SCOPED_TRACE(kKinds[index].Label);
        const TFilePointer file = kKinds[index].Make(nullptr, nullptr);
        EXPECT_EQ(file->GetFileName(), Name(""));
        EXPECT_EQ(file->GetProjectFileType(), types[index]);
    }
}

template <class T>
void ExpectCopiesShareAssociatedFiles(T& original) {
    original.AddAssociatedFileAtTail(Name("b.v"));
    THdlProjectFile* associated = original.GetAssociatedFileList()->GetHead();
    T copy(original);
    EXPECT_EQ(copy.GetAssociatedFileList()->GetHead(), associated);
    copy.AddAssociatedFileAtTail(Name("c.v"));
    EXPECT_EQ(NamesOf(*original.GetAssociatedFileList()), "b.v ");
    EXPECT_EQ(NamesOf(*copy.GetAssociatedFileList()), "b.v c.v ");
    THdlProjectFile* added = copy.GetAssociatedFileList()->GetTail();
    original = copy;
    EXPECT_EQ(NamesOf(*original.GetAssociatedFileList()), "b.v c.v ");
    EXPECT_EQ(original.GetAssociatedFileList()->GetTail(), added);
    EXPECT_EQ(original.GetFileName(), copy.GetFileName());
}

TEST(ProjectFileKinds, ShareAssociatedFilesWithTheirCopies) {
    THdlProjectDiagramFile diagram(Name("a.tim"), nullptr);
    ExpectCopiesShareAssociatedFiles(diagram);
    THdlProjectStimulusResultsFile stimulus(Name("a.fp"), nullptr, nullptr);
    ExpectCopiesShareAssociatedFiles(stimulus);
    THdlProjectUserSourceFile user(Name("a.vhd"), nullptr, true);
    ExpectCopiesShareAssociatedFiles(user);
    THdlProjectTemplateFile templated(Name("a.vhd"), nullptr);
    ExpectCopiesShareAssociatedFiles(templated);
}

}  // namespace
