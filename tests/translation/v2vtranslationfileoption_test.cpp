#include "services/names/isfilename.h"
#include "tests/support/elementtext.h"
#include "tests/support/recorders.h"
#include "tests/support/slots.h"
#include "tests/support/temporaryfolder.h"
#include "translation/v2vtranslationoptions.h"
#include <gtest/gtest.h>

namespace {

// Names with a drive have one form on every system.
constexpr const char* kPackage = "C:\\proj\\src\\pack.v";
constexpr const char* kSpaced = "C:\\proj\\my packs\\p.v";
constexpr const char* kOtherDrive = "D:\\lib\\q.v";

class Component : public TProjectComponent {
public:
    explicit Component(const ISFileName* file) : File(file) {}
    TProjectSimLanguageConfig* GetProjectLanguageConfig(THdlLanguage) override { return nullptr; }
    TProjectSimGeneralConfig* GetGeneralConfiguration() const override { return nullptr; }
    const ISFileName* GetFileName() const override { return File; }

private:
    const ISFileName* File;
};

// A list with the option "-p" holding the three files; the list owns the option.
TV2VTranslationFileOption* AddPackages(TV2VTranslationOptionsList* list) {
    auto* option = new TV2VTranslationFileOption("-p", "-Package {HDL files}", "Loads", true);
    EXPECT_TRUE(list->AddOptionNoDup(option));
    for (const char* name : {kPackage, kSpaced, kOtherDrive}) option->AddFileNoDup(name);
    return option;
}

constexpr const char* kRelativeElements =
    "START v2v-p Enabled=true\n"
    "START AdditionalOptions\n"
    "TEXT src/pack.v\n"
    "END AdditionalOptions\n"
    "START AdditionalOptions\n"
    "TEXT my packs/p.v\n"
    "END AdditionalOptions\n"
    "START AdditionalOptions\n"
    "TEXT D:\\lib\\q.v\n"
    "END AdditionalOptions\n"
    "END v2v-p\n";

constexpr const char* kCanonicalElements =
    "START v2v-p Enabled=true\n"
    "START AdditionalOptions\n"
    "TEXT C:\\proj\\src\\pack.v\n"
    "END AdditionalOptions\n"
    "START AdditionalOptions\n"
    "TEXT C:\\proj\\my packs\\p.v\n"
    "END AdditionalOptions\n"
    "START AdditionalOptions\n"
    "TEXT D:\\lib\\q.v\n"
    "END AdditionalOptions\n"
    "END v2v-p\n";

std::string ElementsOf(TV2VTranslationFileOption* option) {
    return ElementsWrittenBy([&](TXMLList* list) { option->WriteToFile(list); });
}

}  // namespace

TEST(TranslationFileOption, IsBuiltWithoutFiles) {
    TV2VTranslationFileOption option("-l", "-Log {file}", "Logs", false);
    EXPECT_TRUE(option.HasStringOption());
    EXPECT_STREQ(option.GetDashOption(), "-l");
    EXPECT_STREQ(option.GetOptionString(), "-Log {file}");
    EXPECT_STREQ(option.GetDescription(), "Logs");
    EXPECT_FALSE(option.IsEnabled());
    EXPECT_STREQ(option.GetListString(), "");
    EXPECT_STREQ(option.GetListDisplayString(), "");
}

TEST(TranslationFileOption, AddsAFileAgainAlthoughItIsThere) {
    TV2VTranslationFileOption option("-l", "", "", true);
    const ISFileName* file = ISFileName::NewISFileName(kPackage);
    option.AddFileNoDup(kPackage);
    option.AddFileNoDup(file);
    option.AddAnOption("C:/proj/src/pack.v");
    EXPECT_FALSE(option.FindFile(file));
    EXPECT_FALSE(option.FindFile(nullptr));
    EXPECT_EQ(option.GetCommandLineOption(),
              "-l C:\\proj\\src\\pack.v C:\\proj\\src\\pack.v C:\\proj\\src\\pack.v");
    option.ClearList();
    EXPECT_EQ(option.GetCommandLineOption(), "-l ");
}

TEST(TranslationFileOption, DoesNotAddNamesThatAreBlank) {
    TV2VTranslationFileOption option("-l", "", "", true);
    option.AddFileNoDup(nullptr);
    option.AddFileNoDup("");
    option.AddFileNoDup(static_cast<const char*>(nullptr));
    option.AddFileNoDup(static_cast<const ISFileName*>(nullptr));
    option.AddFileNoDup(ISFileName::BlankFileName);
    option.AddAnOption("");
    EXPECT_EQ(ElementsOf(&option), "START v2v-l Enabled=true\nEND v2v-l\n");
}

TEST(TranslationFileOption, KeepsTheResultsOfTheTwoListTextsApart) {
    TV2VTranslationFileOption first("-p", "", "", true);
    TV2VTranslationFileOption second("-l", "", "", true);
    first.AddFileNoDup(kPackage);
    second.AddFileNoDup(kOtherDrive);
    const char* display = first.GetListDisplayString();
    EXPECT_STREQ(second.GetListString(), kOtherDrive);
    EXPECT_STREQ(display, kPackage);
    EXPECT_STREQ(second.GetListDisplayString(), kOtherDrive);
    EXPECT_STREQ(display, kOtherDrive);
}

TEST(TranslationFileOption, ShowsAndWritesCanonicalNamesWithoutAList) {
    TV2VTranslationFileOption option("-p", "", "", true);
    for (const char* name : {kPackage, kSpaced, kOtherDrive}) option.AddFileNoDup(name);
    const std::string shown = "C:\\proj\\src\\pack.v \"C:\\proj\\my packs\\p.v\" D:\\lib\\q.v";
    EXPECT_EQ(option.GetListDisplayString(), shown);
    EXPECT_EQ(option.GetListString(), shown);
    EXPECT_EQ(ElementsOf(&option), kCanonicalElements);
}

TEST(TranslationFileOption, WritesNamesRelativeToTheDirectoryOfTheListsComponent) {
    Component component(ISFileName::NewISFileName("C:\\proj\\design.hpj"));
    TV2VTranslationOptionsList list(&component, "Tag");
    TV2VTranslationFileOption* option = AddPackages(&list);
    EXPECT_STREQ(option->GetListDisplayString(),
                 "C:\\proj\\src\\pack.v \"C:\\proj\\my packs\\p.v\" D:\\lib\\q.v");
    EXPECT_STREQ(option->GetListString(), "src/pack.v \"my packs/p.v\" D:\\lib\\q.v");
    EXPECT_EQ(ElementsOf(option), kRelativeElements);
    list.Flush();
}

TEST(TranslationFileOption, WritesCanonicalNamesForAComponentWithoutAFile) {
    Component without(nullptr);
    Component blank(ISFileName::BlankFileName);
    for (TProjectComponent* component :
         {static_cast<TProjectComponent*>(nullptr), static_cast<TProjectComponent*>(&without),
          static_cast<TProjectComponent*>(&blank)}) {
        TV2VTranslationOptionsList list(component, "Tag");
        TV2VTranslationFileOption* option = AddPackages(&list);
        EXPECT_EQ(ElementsOf(option), kCanonicalElements);
        list.Flush();
    }
}

TEST(TranslationFileOption, WritesCanonicalNamesWhenItsListIsGone) {
    Component component(ISFileName::NewISFileName("C:\\proj\\design.hpj"));
    TV2VTranslationFileOption* option = nullptr;
    {
        TV2VTranslationOptionsList list(&component, "Tag");
        option = AddPackages(&list);
        EXPECT_EQ(ElementsOf(option), kRelativeElements);
    }
    EXPECT_EQ(ElementsOf(option), kCanonicalElements);
    TV2VTranslationOptionsList heir(nullptr, "Tag");
    heir.AddOptionNoDup(option);
    heir.Flush();
}

TEST(TranslationFileOption, CopiesItsFiles) {
    TV2VTranslationFileOption source("-l", "", "", true);
    source.AddFileNoDup(kPackage);
    TV2VTranslationFileOption copy(source);
    TV2VTranslationFileOption assigned("-p", "", "", false);
    assigned = source;
    source.ClearList();
    EXPECT_EQ(copy.GetCommandLineOption(), "-l C:\\proj\\src\\pack.v");
    EXPECT_EQ(assigned.GetCommandLineOption(), "-l C:\\proj\\src\\pack.v");
}

TEST(TranslationFileOption, AddsTheFilesOfItsElement) {
    TXMLList list;
    PushElements(&list, kCanonicalElements);
    DListIterator<TElement*> position(list);
    TV2VTranslationFileOption option("-p", "", "", false);
    EXPECT_TRUE(option.ReadFromFile(position));
    EXPECT_EQ(ElementAt(position), "END v2v-p");
    EXPECT_EQ(ElementsOf(&option), kCanonicalElements);
    position = DListIterator<TElement*>(list);
    EXPECT_TRUE(option.ReadFromFile(position));
    EXPECT_STREQ(option.GetListString(),
                 "C:\\proj\\src\\pack.v \"C:\\proj\\my packs\\p.v\" D:\\lib\\q.v "
                 "C:\\proj\\src\\pack.v \"C:\\proj\\my packs\\p.v\" D:\\lib\\q.v");
}

TEST(TranslationFileOption, ReadsRelativeNamesAgainstTheWorkingDirectory) {
    TXMLList list;
    PushElements(
        &list,
        "START v2v-p Enabled=true\nSTART AdditionalOptions\nTEXT pack.v\n"
        "END AdditionalOptions\nSTART AdditionalOptions\nEND AdditionalOptions\nEND v2v-p\n");
    Component component(ISFileName::NewISFileName("C:\\proj\\design.hpj"));
    TV2VTranslationOptionsList owner(&component, "Tag");
    auto* option = new TV2VTranslationFileOption("-p", "", "", false);
    ASSERT_TRUE(owner.AddOptionNoDup(option));
    DListIterator<TElement*> position(list);
    EXPECT_TRUE(option->ReadFromFile(position));
    const auto expected = (std::filesystem::current_path() / "pack.v").make_preferred().u8string();
    const std::string native(expected.begin(), expected.end());
    EXPECT_EQ(option->GetListDisplayString(),
              native.find(' ') == std::string::npos ? native : "\"" + native + "\"");
    owner.Flush();
}

TEST(TranslationFileOption, ReadsTheElementOfAnotherSwitchAfterAFailedCheck) {
    RecordingLog log;
    TXMLList list;
    PushElements(&list,
                 "START v2v-l Enabled=true\nSTART AdditionalOptions\nTEXT D:\\lib\\q.v\n"
                 "END AdditionalOptions\nEND v2v-l\n");
    DListIterator<TElement*> position(list);
    TV2VTranslationFileOption option("-p", "", "", false);
    EXPECT_TRUE(option.ReadFromFile(position));
    EXPECT_EQ(option.GetCommandLineOption(), "-p D:\\lib\\q.v");
    EXPECT_EQ(log.Take(),
              "v2vtranslationoptions(266): Check failed: "
              "\"elemI.Current()->Name == optionTag.c_str()\"\n");
}

TEST(TranslationFileOption, AddsItsOperationsAfterThoseOfItsBase) {
    EXPECT_EQ(TableEntryOf(&TV2VTranslationFileOption::HasStringOption), 0);
    EXPECT_EQ(TableEntryOf(&TV2VTranslationFileOption::GetListString), 4);
    EXPECT_EQ(TableEntryOf(&TV2VTranslationFileOption::AddAnOption), 5);
    EXPECT_EQ(TableEntryOf(&TV2VTranslationFileOption::ClearList), 6);
}
