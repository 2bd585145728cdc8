// Where the texts of options and lists come from: the component, the virtual operations, the list.
#include "services/names/isfilename.h"
#include "tests/support/elementtext.h"
#include "translation/v2vtranslationoptions.h"
#include <gtest/gtest.h>

#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"  // as the options

namespace {

class Component : public TProjectComponent {
public:
    explicit Component(const char* file) : File(ISFileName::NewISFileName(file)) {}
    TProjectSimLanguageConfig* GetProjectLanguageConfig(THdlLanguage) override { return nullptr; }
    TProjectSimGeneralConfig* GetGeneralConfiguration() const override { return nullptr; }
    const ISFileName* GetFileName() const override { return File; }

private:
    const ISFileName* File;
};

/// An option that shows a text of its own.
template <class TOption>
class Shown : public TOption {
public:
    Shown() : TOption("-o", "-Option, -o", "Opts", true) {}
    const char* GetListDisplayString() override { return "shown"; }
};

/// An option with a list text of its own.
template <class TOption>
class Listed : public TOption {
public:
    Listed() : TOption("-o", "-Option, -o", "Opts", true) {}
    const char* GetListString() override { return "listed"; }
};

/// The display text, the list text and the command line of an option, one a line.
std::string TextsOf(TV2VTranslationOption& option) {
    std::string texts = option.GetListDisplayString();
    texts += std::string("\n") + option.GetListString();
    return texts + "\n" + option.GetCommandLineOption();
}

/// The same with the argument C:\proj\a.v.
template <class TOption>
std::string TextsWithArgument() {
    TOption option;
    option.AddAnOption("C:\\proj\\a.v");
    return TextsOf(option);
}

using TPopulate = void (*)(TV2VTranslationOptionsList*);
constexpr TPopulate kCatalogues[] = {
    &TV2VTranslationOptionsList::PopulateWithDefaultVerilog2VhdlOptions,
    &TV2VTranslationOptionsList::PopulateWithDefaultVhdl2VerilogOptions};

std::string ElementsOf(const TV2VTranslationOptionsList& list) {
    return ElementsWrittenBy([&](TXMLList* document) { list.WriteToFile(document); });
}

}  // namespace

TEST(TranslationOptionRules, AFileOptionsTextStartsFromTheComponentOfItsOwnList) {
    Component upper("C:\\proj\\design.hpj");
    Component lower("C:\\proj\\sub dir\\other.hpj");
    TV2VTranslationOptionsList list(&upper, "Tag");
    TV2VTranslationOptionsList heir(&lower, "Heir");
    auto* option = new TV2VTranslationFileOption("-p", "-Package", "Loads", true);
    ASSERT_TRUE(list.AddOptionNoDup(option));
    for (const char* name : {"C:\\proj\\a.v", "C:\\proj\\sub dir\\b.v", "C:\\c.v", "D:\\d.v"})
        option->AddFileNoDup(name);
    const std::string shown = "C:\\proj\\a.v \"C:\\proj\\sub dir\\b.v\" C:\\c.v D:\\d.v";
    EXPECT_EQ(TextsOf(*option), shown + "\na.v \"sub dir/b.v\" ../c.v D:\\d.v\n-p " + shown);
    EXPECT_EQ(list.GetCommandLineOptions(), "-p " + shown);

    // A copy shares the option, which stays with the list that it was added to.
    TV2VTranslationOptionsList copy(nullptr, "Copy");
    copy = list;
    EXPECT_EQ(TextsOf(**copy.begin()), shown + "\na.v \"sub dir/b.v\" ../c.v D:\\d.v\n-p " + shown);

    ASSERT_TRUE(heir.AddOptionNoDup(option));
    EXPECT_EQ(TextsOf(*option), shown + "\n../a.v b.v ../../c.v D:\\d.v\n-p " + shown);
    EXPECT_EQ(ElementsOf(heir),
              "START Heir\nSTART v2v-p Enabled=true\n"
              "START AdditionalOptions\nTEXT ../a.v\nEND AdditionalOptions\n"
              "START AdditionalOptions\nTEXT b.v\nEND AdditionalOptions\n"
              "START AdditionalOptions\nTEXT ../../c.v\nEND AdditionalOptions\n"
              "START AdditionalOptions\nTEXT D:\\d.v\nEND AdditionalOptions\n"
              "END v2v-p\nEND Heir\n");
    heir.Flush();
}

TEST(TranslationOptionRules, CommandLinesShowTheTextOfTheVirtualOperation) {
    Shown<TV2VTranslationOption> plain;
    EXPECT_EQ(TextsOf(plain), "shown\n\n-o shown");
    EXPECT_EQ(TextsWithArgument<Shown<TV2VTranslationStringOption>>(),
              "shown\nC:\\proj\\a.v\n-o shown");
    EXPECT_EQ(TextsWithArgument<Shown<TV2VTranslationFileOption>>(),
              "shown\nC:\\proj\\a.v\n-o shown");

    TV2VTranslationOptionsList list(nullptr, "Tag");
    list.AddOptionNoDup(new Shown<TV2VTranslationStringOption>);
    list.AddOptionNoDup("-x", "", "", true);
    EXPECT_STREQ(list.GetCommandLineOptions(), "-o shown -x ");
    list.Flush();
}

TEST(TranslationOptionRules, OnlyAStringOptionShowsTheListTextOfTheVirtualOperation) {
    Listed<TV2VTranslationOption> plain;
    EXPECT_EQ(TextsOf(plain), "\nlisted\n-o ");
    EXPECT_EQ(TextsWithArgument<Listed<TV2VTranslationStringOption>>(),
              "listed\nlisted\n-o listed");
    EXPECT_EQ(TextsWithArgument<Listed<TV2VTranslationFileOption>>(),
              "C:\\proj\\a.v\nlisted\n-o C:\\proj\\a.v");
}

TEST(TranslationOptionRules, FillingAListKeepsItsTagAndComponent) {
    for (const char* tag : {"Verilog2VhdlTranslationOptions", "Vhdl2VerilogTranslationOptions"})
        for (const TPopulate first : kCatalogues)
            for (const TPopulate second : kCatalogues) {
                Component component("C:\\proj\\design.hpj");
                TV2VTranslationOptionsList list(&component, tag);
                for (const TPopulate populate : {first, second}) {
                    populate(&list);
                    EXPECT_STREQ(list.GetTag(), tag);
                    EXPECT_EQ(list.GetComponent(), &component);
                    EXPECT_EQ(ElementsOf(list), std::string("START ") + tag +
                                                    "\nSTART v2v-ncc Enabled=true\n"
                                                    "END v2v-ncc\nEND " +
                                                    tag + "\n");
                }
                // Names of files still start from the component.
                auto* log = dynamic_cast<TV2VTranslationFileOption*>(list.FindOption("-l"));
                ASSERT_NE(log, nullptr);
                log->AddFileNoDup("C:\\proj\\v2v.log");
                EXPECT_EQ(TextsOf(*log), "C:\\proj\\v2v.log\nv2v.log\n");
                list.Flush();
            }
}

TEST(TranslationOptionRules, FillingAListFromATableKeepsItsTagAndComponent) {
    constexpr TV2VCommandLineOption kTable[] = {{"-a", "-Ay", "A", V2V_PLAIN_OPTION, true}};
    Component component("C:\\proj\\design.hpj");
    for (const int count : {1, 0}) {
        TV2VTranslationOptionsList list(&component, "Tag");
        list.AddOptionNoDup("-own", "", "", true);
        TV2VTranslationOptionsList::PopulateWithDefaultOptions(&list, kTable, count);
        EXPECT_EQ(list.GetComponent(), &component) << count;
        EXPECT_EQ(ElementsOf(list),
                  count ? "START Tag\nSTART v2v-a Enabled=true\nEND v2v-a\nEND Tag\n"
                        : "START Tag\nEND Tag\n");
        list.Flush();
    }
}
