#include "services/names/isfilename.h"
#include "tests/support/elementtext.h"
#include "tests/support/keptobjects.h"
#include "tests/support/recorders.h"
#include "translation/v2vtranslationoptions.h"
#include <gtest/gtest.h>

namespace {

constexpr const char* kTag = "Verilog2VhdlTranslationOptions";

// A list with four switches, flushed at the end.
class TranslationOptionsList : public testing::Test {
protected:
    TranslationOptionsList() {
        List.AddOptionNoDup("-r", "-Replace, -r", "Replace", false);
        List.AddOptionNoDup("-ncc", "-No_Component_Check, -ncc", "No check", true);
        List.AddOptionNoDup(File = new TV2VTranslationFileOption("-l", "-Log", "Logs", false));
        List.AddOptionNoDup(String = new TV2VTranslationStringOption("-e", "-Env", "Env", false));
    }
    ~TranslationOptionsList() override { List.Flush(); }

    // Reads `elements` from their first one on; the place reached and the command line that
    // results.
    std::string ReadInside(const std::string& elements) {
        TXMLList document;
        PushElements(&document, elements);
        DListIterator<TElement*> position(document);
        EXPECT_TRUE(List.ReadFromFile(position));
        return ElementAt(position) + "|" + List.GetCommandLineOptions();
    }

    std::string Elements() const {
        return ElementsWrittenBy([&](TXMLList* document) { List.WriteToFile(document); });
    }

    TV2VTranslationOptionsList List{nullptr, kTag};
    TV2VTranslationFileOption* File = nullptr;
    TV2VTranslationStringOption* String = nullptr;
};

/// The switches in their order, with a star behind each that is enabled.
std::string SwitchesOf(const TV2VTranslationOptionsList& list) {
    std::string switches;
    for (const TV2VTranslationOption* option : list)
        switches += std::string(option->GetDashOption()) + (option->IsEnabled() ? "* " : " ");
    return switches;
}

std::string Argument(const std::string& text) {
    return "START AdditionalOptions\nTEXT " + text + "\nEND AdditionalOptions\n";
}

std::string Option(const std::string& dash, const std::string& children = {}) {
    return "START v2v" + dash + " Enabled=true\n" + children + "END v2v" + dash + "\n";
}

const std::string kEnd = std::string("END ") + kTag + "\n";
const std::string kAtEnd = std::string("END ") + kTag + "|";

class Component : public TProjectComponent {
    TProjectSimLanguageConfig* GetProjectLanguageConfig(THdlLanguage) override { return nullptr; }
    TProjectSimGeneralConfig* GetGeneralConfiguration() const override { return nullptr; }
    const ISFileName* GetFileName() const override { return nullptr; }
};

}  // namespace

TEST_F(TranslationOptionsList, KeepsComponentAndTag) {
    Component component;
    const TV2VTranslationOptionsList list(&component, "Vhdl2VerilogTranslationOptions");
    EXPECT_EQ(list.GetComponent(), &component);
    EXPECT_STREQ(list.GetTag(), "Vhdl2VerilogTranslationOptions");
    EXPECT_EQ(List.GetComponent(), nullptr);
    EXPECT_STREQ(TV2VTranslationOptionsList(nullptr, nullptr).GetTag(), "");
}

TEST_F(TranslationOptionsList, RefusesASwitchThatIsListed) {
    TV2VTranslationStringOption duplicate("-ncc", "", "", false);
    EXPECT_FALSE(List.AddOptionNoDup(&duplicate));
    EXPECT_EQ(duplicate.GetOwningList(), nullptr);
    EXPECT_FALSE(List.AddOptionNoDup("-ncc", "", "", false));
    EXPECT_FALSE(List.AddOptionNoDup(nullptr));
    EXPECT_EQ(SwitchesOf(List), "-r -ncc* -l -e ");

    EXPECT_TRUE(List.AddOptionNoDup("-NCC", "-No, -NCC", "Other", true));
    ASSERT_EQ(SwitchesOf(List), "-r -ncc* -l -e -NCC* ");
    const TV2VTranslationOption* added = *(List.end() - 1);
    EXPECT_STREQ(added->GetDashOption(), "-NCC");
    EXPECT_STREQ(added->GetOptionString(), "-No, -NCC");
    EXPECT_STREQ(added->GetDescription(), "Other");
    EXPECT_TRUE(added->IsEnabled());
    EXPECT_EQ(added->GetOwningList(), &List);
}

TEST_F(TranslationOptionsList, FindsOptionsByTheirExactSwitch) {
    EXPECT_EQ(List.FindOption("-l"), File);
    EXPECT_EQ(List.FindOption("-e"), String);
    for (const char* other : {"-L", "-", "l", "", static_cast<const char*>(nullptr)}) {
        EXPECT_EQ(List.FindOption(other), nullptr) << (other ? other : "null");
        EXPECT_FALSE(List.IsOptionEnabled(other)) << (other ? other : "null");
    }
    EXPECT_TRUE(List.IsOptionEnabled("-ncc"));
    EXPECT_FALSE(List.IsOptionEnabled("-r"));
}

TEST_F(TranslationOptionsList, JoinsCommandLineTextsAndKeepsTheBlanksOfDisabledOptions) {
    EXPECT_STREQ(List.GetCommandLineOptions(), " -ncc   ");
    File->SetEnabled(true);
    File->AddFileNoDup("C:\\log\\v2v.log");
    EXPECT_STREQ(List.GetCommandLineOptions(), " -ncc  -l C:\\log\\v2v.log ");
    String->SetEnabled(true);
    String->AddAnOption("m");
    String->AddAnOption("s");
    List.FindOption("-r")->SetEnabled(true);
    EXPECT_STREQ(List.GetCommandLineOptions(), "-r  -ncc  -l C:\\log\\v2v.log -e m s");
}

TEST_F(TranslationOptionsList, IsAllSeparatorsWhenEveryOptionIsDisabled) {
    List.FindOption("-ncc")->SetEnabled(false);
    EXPECT_STREQ(List.GetCommandLineOptions(), "   ");
    EXPECT_EQ(Elements(),
              "START Verilog2VhdlTranslationOptions\n"
              "END Verilog2VhdlTranslationOptions\n");
}

TEST(EmptyTranslationOptionsList, HasAnEmptyCommandLine) {
    TV2VTranslationOptionsList list(nullptr, kTag);
    EXPECT_STREQ(list.GetCommandLineOptions(), "");
    list.Flush();
    EXPECT_EQ(list.size(), 0U);
}

TEST_F(TranslationOptionsList, KeepsItsCommandLineUntilTheNextCallForAnyList) {
    TV2VTranslationOptionsList other(nullptr, "Other");
    other.AddOptionNoDup("-s", "", "", true);
    const char* text = List.GetCommandLineOptions();
    EXPECT_STREQ(text, " -ncc   ");
    EXPECT_STREQ(other.GetCommandLineOptions(), "-s ");
    EXPECT_STREQ(text, "-s ");
    other.Flush();
}

TEST_F(TranslationOptionsList, WritesEnabledOptionsOnly) {
    String->SetEnabled(true);
    String->AddAnOption("m & s");
    File->SetEnabled(true);
    File->AddFileNoDup("C:\\log\\v2v.log");
    EXPECT_EQ(Elements(),
              "START Verilog2VhdlTranslationOptions\n"
              "START v2v-ncc Enabled=true\n"
              "END v2v-ncc\n"
              "START v2v-l Enabled=true\n"
              "START AdditionalOptions\n"
              "TEXT C:\\log\\v2v.log\n"
              "END AdditionalOptions\n"
              "END v2v-l\n"
              "START v2v-e Enabled=true\n"
              "START AdditionalOptions\n"
              "TEXT m & s\n"
              "END AdditionalOptions\n"
              "END v2v-e\n"
              "END Verilog2VhdlTranslationOptions\n");
    List.WriteToFile(nullptr);
}

TEST_F(TranslationOptionsList, ReadsBackWhatItWrites) {
    String->SetEnabled(true);
    String->AddAnOption(" <m> & ");
    String->AddAnOption("");
    File->SetEnabled(true);
    File->AddFileNoDup("C:\\log\\v2v.log");
    TXMLList written;
    written.SetDocumentType("<!DOCTYPE Root SYSTEM \"root.dtd\">");
    List.WriteToFile(&written);
    std::string text;
    ASSERT_TRUE(written.WriteToText(&text, nullptr));

    TXMLList document;
    document.SetDocumentType("<!DOCTYPE Root SYSTEM \"root.dtd\">");
    ASSERT_TRUE(document.ReadFromText(text, nullptr));
    TV2VTranslationOptionsList other(nullptr, kTag);
    other.AddOptionNoDup("-r", "", "", false);
    other.AddOptionNoDup("-ncc", "", "", false);
    other.AddOptionNoDup(new TV2VTranslationFileOption("-l", "", "", false));
    other.AddOptionNoDup(new TV2VTranslationStringOption("-e", "", "", false));
    EXPECT_TRUE(other.ReadFromFile(&document));
    EXPECT_EQ(ElementsWrittenBy([&](TXMLList* list) { other.WriteToFile(list); }), Elements());
    EXPECT_STREQ(other.GetCommandLineOptions(), " -ncc  -l C:\\log\\v2v.log -e  <m> &  ");
    other.Flush();
}

TEST_F(TranslationOptionsList, ReadsOptionsUpToItsEnd) {
    // Each row goes on from what the one before it left.
    struct {
        const char* Label;
        std::string Elements;
        std::string Result;
    } const rows[] = {
        {"nothing at all", "", "TAIL| -ncc   "},
        {"nothing inside", kEnd, kAtEnd + " -ncc   "},
        {"all kinds",
         Option("-r") + Option("-l", Argument("C:\\a.log")) + Option("-e", Argument("m")) + kEnd,
         kAtEnd + "-r  -ncc  -l C:\\a.log -e m"},
        {"a disabled option", "START v2v-ncc Enabled=false\nEND v2v-ncc\n" + kEnd,
         kAtEnd + "-r   -l C:\\a.log -e m"},
        {"an option without its state", "START v2v-r\nEND v2v-r\n" + kEnd,
         kAtEnd + "  -l C:\\a.log -e m"},
        {"more arguments for the same options",
         Option("-e", Argument("s")) + Option("-r") + Option("-ncc") + kEnd,
         kAtEnd + "-r  -ncc  -l C:\\a.log -e m s"},
    };
    for (const auto& row : rows) EXPECT_EQ(ReadInside(row.Elements), row.Result) << row.Label;
}

TEST_F(TranslationOptionsList, SkipsWhatIsNoOptionOfItsOwn) {
    struct {
        const char* Label;
        std::string Elements;
    } const rows[] = {
        {"an unknown switch", Option("-x") + Option("-r") + kEnd},
        {"an unknown switch with arguments",
         Option("-x", Argument("a") + Argument("b")) + Option("-r") + kEnd},
        {"a known switch inside an unknown one", Option("-x", Option("-e")) + Option("-r") + kEnd},
        {"two unknown switches", Option("-x") + Option("-y") + Option("-r") + kEnd},
        {"an element without a dash", "START Other\nTEXT t\nEND Other\n" + Option("-r") + kEnd},
        {"text between options", "TEXT t\n" + Option("-r") + "TEXT t\n" + kEnd},
        {"arguments of a switch that takes none", Option("-r", Argument("a")) + kEnd},
        {"an element inside an option", Option("-r", "START X\nTEXT t\nEND X\n") + kEnd},
        {"text inside an option", Option("-r", "TEXT t\n") + kEnd},
    };
    for (const auto& row : rows) {
        RecordingLog log;
        List.FindOption("-r")->SetEnabled(false);
        EXPECT_EQ(ReadInside(row.Elements), kAtEnd + "-r  -ncc   ") << row.Label;
        EXPECT_EQ(log.Take(), "") << row.Label;
    }
}

TEST_F(TranslationOptionsList, ReadsNoElementForAnEmptySwitch) {
    List.AddOptionNoDup("", "", "", true);
    EXPECT_EQ(ReadInside("TEXT t\nSTART Other\nEND Other\nSTART v2v\nEND v2v\n" + kEnd),
              kAtEnd + " -ncc     ");
}

TEST_F(TranslationOptionsList, FindsTheSwitchFromTheFirstDashOfAnElementOn) {
    RecordingLog log;
    EXPECT_EQ(ReadInside("START other-r Enabled=true\nEND other-r\n" + kEnd),
              kAtEnd + "-r  -ncc   ");
    EXPECT_EQ(log.Take(),
              "v2vtranslationoptions(44): Check failed: "
              "\"elemI.Current()->Name == optionTag.c_str()\"\n");
}

TEST_F(TranslationOptionsList, StopsAtTheEndOfAnotherListsSection) {
    EXPECT_EQ(ReadInside(Option("-r") + Option("-x", Argument("a")) +
                         "END Vhdl2VerilogTranslationOptions\n"
                         "START SourceFileGroup\nEND SourceFileGroup\n" +
                         Option("-e")),
              "END Vhdl2VerilogTranslationOptions|-r  -ncc   ");
}

TEST_F(TranslationOptionsList, StopsWhereADocumentIsCutShort) {
    // Each row goes on from what the one before it left.
    struct {
        const char* Label;
        std::string Elements;
        std::string Result;
    } const rows[] = {
        {"in an option", "START v2v-r Enabled=true\n", "TAIL|-r  -ncc   "},
        {"in an argument", "START v2v-e Enabled=true\nSTART AdditionalOptions\nTEXT m\n",
         "TAIL|-r  -ncc   -e m"},
        {"in an unknown option", "START v2v-x\nSTART AdditionalOptions\n", "TAIL|-r  -ncc   -e m"},
        {"after an option", Option("-l"), "TAIL|-r  -ncc  -l  -e m"},
        {"an option that never ends", "START v2v-ncc\n" + kEnd + Option("-x"),
         kAtEnd + "-r   -l  -e m"},
    };
    for (const auto& row : rows) EXPECT_EQ(ReadInside(row.Elements), row.Result) << row.Label;
}

TEST_F(TranslationOptionsList, TurnsOffNothingThatHasNoElement) {
    List.FindOption("-ncc")->SetEnabled(false);
    TXMLList document;
    List.WriteToFile(&document);
    List.FindOption("-ncc")->SetEnabled(true);
    EXPECT_TRUE(List.ReadFromFile(&document));
    EXPECT_TRUE(List.IsOptionEnabled("-ncc"));
}

TEST_F(TranslationOptionsList, SearchesItsElementInADocument) {
    // Each row goes on from what the one before it left.
    struct {
        const char* Label;
        std::string Elements;
        const char* CommandLine;
    } const rows[] = {
        {"none", "START SimulationProject\nEND SimulationProject\n", " -ncc   "},
        {"after the project's end",
         "START SimulationProject\nEND SimulationProject\nSTART " + std::string(kTag) + "\n" +
             Option("-r") + kEnd,
         " -ncc   "},
        {"inside the project",
         "START SimulationProject\nSTART Other\nEND Other\nSTART " + std::string(kTag) + "\n" +
             Option("-r") + kEnd + Option("-e") + "END SimulationProject\n",
         "-r  -ncc   "},
        {"as the first element", "START " + std::string(kTag) + "\n" + Option("-l") + kEnd,
         "-r  -ncc  -l  "},
    };
    for (const auto& row : rows) {
        TXMLList document;
        PushElements(&document, row.Elements);
        EXPECT_TRUE(List.ReadFromFile(&document)) << row.Label;
        EXPECT_STREQ(List.GetCommandLineOptions(), row.CommandLine) << row.Label;
    }
    EXPECT_TRUE(List.ReadFromFile(static_cast<TXMLList*>(nullptr)));
}

TEST_F(TranslationOptionsList, SharesItsOptionsWithCopies) {
    TV2VTranslationOptionsList assigned(nullptr, "Other");
    assigned.AddOptionNoDup("-s", "", "", true);
    TV2VTranslationOption* dropped = assigned.FindOption("-s");
    assigned = List;
    const TV2VTranslationOptionsList copy(List);
    for (const TV2VTranslationOptionsList* other : {&copy, &std::as_const(assigned)}) {
        EXPECT_EQ(other->FindOption("-l"), File);
        EXPECT_EQ(SwitchesOf(*other), "-r -ncc* -l -e ");
        EXPECT_STREQ(other->GetTag(), kTag);
    }
    EXPECT_EQ(File->GetOwningList(), &List);
    assigned = *&assigned;
    EXPECT_EQ(SwitchesOf(assigned), "-r -ncc* -l -e ");
    EXPECT_EQ(dropped->GetCommandLineOption(), "-s ");
}

TEST(TranslationOptionsListCopies, HaveTheComponent) {
    Component component;
    const TV2VTranslationOptionsList list(&component, kTag);
    const TV2VTranslationOptionsList copy(list);
    TV2VTranslationOptionsList assigned(nullptr, "Other");
    assigned = list;
    EXPECT_EQ(copy.GetComponent(), &component);
    EXPECT_EQ(assigned.GetComponent(), &component);
}

TEST(TranslationOptionsListLifetime, LeavesItsOptionsToWhomeverKnowsThem) {
    auto* option = new TV2VTranslationStringOption("-e", "", "", true);
    option->AddAnOption("an argument too long to be kept inside the text object itself");
    {
        TV2VTranslationOptionsList list(nullptr, kTag);
        list.AddOptionNoDup(option);
        EXPECT_TRUE(TV2VTranslationOptionsList::IsAlive(option->GetOwningList()));
    }
    EXPECT_FALSE(TV2VTranslationOptionsList::IsAlive(option->GetOwningList()));
    EXPECT_EQ(option->GetCommandLineOption(),
              "-e an argument too long to be kept inside the text object itself");
    TV2VTranslationOptionsList heir(nullptr, "Tag");
    heir.AddOptionNoDup(option);
    heir.Flush();
}

TEST(TranslationOptionsListLifetime, OutlivesTheListThatItIsACopyOf) {
    const auto make = [] {
        TV2VTranslationOptionsList list(nullptr, kTag);
        auto* option = new TV2VTranslationFileOption("-l", "", "", true);
        option->AddFileNoDup("C:\\log\\v2v.log");
        list.AddOptionNoDup(option);
        return TV2VTranslationOptionsList(list);
    };
    TV2VTranslationOptionsList copy = make();
    EXPECT_TRUE(TV2VTranslationOptionsList::IsAlive(&copy));
    EXPECT_EQ(ElementsWrittenBy([&](TXMLList* document) { copy.WriteToFile(document); }),
              "START Verilog2VhdlTranslationOptions\n"
              "START v2v-l Enabled=true\n"
              "START AdditionalOptions\n"
              "TEXT C:\\log\\v2v.log\n"
              "END AdditionalOptions\n"
              "END v2v-l\n"
              "END Verilog2VhdlTranslationOptions\n");
    copy.clear();
    EXPECT_EQ(copy.size(), 0U);
}

TEST(TranslationOptionsListLifetime, FlushDeletesTheOptionsWhichAreForgotten) {
    TV2VTranslationOptionsList list(nullptr, kTag);
    TKeeper keeper;
    for (const char* dash : {"-r", "-s"}) {
        auto* option = new TV2VTranslationOption(dash, "", "", false);
        list.AddOptionNoDup(option);
        keeper.Keep(option, [](const void*) {});
    }
    list.Flush();
    EXPECT_TRUE(keeper.IsEmpty());
}

TEST(TranslationOptionsListLifetime, IsForgottenWhenDeleted) {
    EXPECT_TRUE(IsForgottenWhenDeleted(new TV2VTranslationOptionsList(nullptr, kTag)));
}
