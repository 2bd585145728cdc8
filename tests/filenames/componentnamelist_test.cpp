#include "filenames/componentnamelist.h"

#include "filenames/componentname.h"
#include "tests/filenames/destroyednames.h"
#include "tests/support/elementtext.h"
#include "tests/support/recorders.h"
#include <chrono>
#include <gtest/gtest.h>
#include <memory>
#include <string>

namespace {

std::string ElementsOf(const TComponentNameList& names) {
    return ElementsWrittenBy([&](TXMLList* document) { names.WriteToFile(document); });
}

const char* const kTwoNames =
    "START Component Library=work Architecture=rtl\n"
    "TEXT counter\n"
    "END Component\n"
    "START Component Library=lib Architecture=behave\n"
    "TEXT top\n"
    "END Component\n";

}  // namespace

TEST(ComponentNameList, KeepsItsLanguage) {
    EXPECT_EQ(TComponentNameList(LANGUAGE_VERILOG).GetLanguage(), LANGUAGE_VERILOG);
    EXPECT_EQ(TComponentNameList(LANGUAGE_TESTBUILDER).GetLanguage(), LANGUAGE_TESTBUILDER);
}

TEST(ComponentNameList, AddsNamesAtItsEnd) {
    TComponentNameList names(LANGUAGE_VHDL);
    EXPECT_TRUE(names.AddComponentName("counter", "rtl", "work"));
    EXPECT_TRUE(names.AddComponentName(TTBIdentifier("top", LANGUAGE_VHDL),
                                       TTBIdentifier("behave", LANGUAGE_VHDL), "lib"));
    EXPECT_EQ(ElementsOf(names), kTwoNames);
}

TEST(ComponentNameList, RejectsOnlyWhatItsLanguageHoldsForEqual) {
    struct {
        const char* Label;
        THdlLanguage Language;
        const char* Entity;
        const char* Architecture;
        const char* Library;
        bool Added;
    } const rows[] = {
        {"the same", LANGUAGE_VHDL, "counter", "rtl", "work", false},
        {"another library", LANGUAGE_VHDL, "counter", "rtl", "lib", true},
        {"library in another case", LANGUAGE_VHDL, "counter", "rtl", "WORK", true},
        {"another architecture", LANGUAGE_VHDL, "counter", "behave", "work", true},
        {"no architecture", LANGUAGE_VHDL, "counter", "", "work", true},
        {"another entity", LANGUAGE_VHDL, "counter2", "rtl", "work", true},
        {"VHDL ignores case", LANGUAGE_VHDL, "Counter", "RTL", "work", false},
        {"VHDL extended is not basic", LANGUAGE_VHDL, "\\counter\\", "rtl", "work", true},
        {"Verilog regards case", LANGUAGE_VERILOG, "Counter", "rtl", "work", true},
        {"Verilog escaped is the same", LANGUAGE_VERILOG, "\\counter ", "rtl", "work", false},
        {"C++ regards case", LANGUAGE_CPLUSPLUS, "Counter", "rtl", "work", true},
        {"C++ the same", LANGUAGE_CPLUSPLUS, "counter", "rtl", "work", false},
    };
    for (const auto& row : rows) {
        TComponentNameList names(row.Language);
        ASSERT_TRUE(names.AddComponentName("counter", "rtl", "work")) << row.Label;
        EXPECT_EQ(names.IsNameInList(TTBIdentifier(row.Entity, row.Language),
                                     TTBIdentifier(row.Architecture, row.Language), row.Library),
                  !row.Added)
            << row.Label;
        EXPECT_EQ(names.AddComponentName(row.Entity, row.Architecture, row.Library), row.Added)
            << row.Label;
        EXPECT_EQ(names.size(), row.Added ? 2U : 1U) << row.Label;
    }
}

TEST(ComponentNameList, TakesNullTextsAsEmpty) {
    TComponentNameList names(LANGUAGE_VERILOG);
    EXPECT_TRUE(names.AddComponentName(static_cast<const char*>(nullptr), nullptr, nullptr));
    EXPECT_FALSE(names.AddComponentName("", "", ""));
    EXPECT_TRUE(names.IsNameInList(TTBIdentifier("", LANGUAGE_VERILOG),
                                   TTBIdentifier("", LANGUAGE_VERILOG), nullptr));
    EXPECT_EQ(ElementsOf(names), "START Component Library= Architecture=\nTEXT \nEND Component\n");
}

TEST(ComponentNameList, FindsNothingWhileEmpty) {
    const TComponentNameList names(LANGUAGE_VHDL);
    EXPECT_FALSE(names.IsNameInList(TTBIdentifier("top", LANGUAGE_VHDL),
                                    TTBIdentifier("rtl", LANGUAGE_VHDL), "work"));
}

// VHDL ignores case within the language, while identifiers of two languages compare byte for byte.
TEST(ComponentNameList, ComparesIdentifiersOfOtherLanguagesByteForByte) {
    TComponentNameList names(LANGUAGE_VHDL);
    const TTBIdentifier rtl("rtl", LANGUAGE_VERILOG);
    names.AddComponentName("Top", "rtl", "work");
    EXPECT_TRUE(names.IsNameInList(TTBIdentifier("Top", LANGUAGE_VERILOG), rtl, "work"));
    EXPECT_FALSE(names.IsNameInList(TTBIdentifier("top", LANGUAGE_VERILOG), rtl, "work"));
    EXPECT_TRUE(names.AddComponentName(TTBIdentifier("Pll", LANGUAGE_VERILOG), rtl, "work"));
    EXPECT_FALSE(names.AddComponentName("Pll", "rtl", "work"));
    EXPECT_TRUE(names.AddComponentName("pll", "rtl", "work"));
}

TEST(ComponentNameList, ListsItsNamesInOrder) {
    TComponentNameList names(LANGUAGE_VHDL);
    names.AddComponentName("b", "rtl", "one");
    names.AddComponentName("a", "rtl", "two");
    std::string libraries;
    for (const TComponentName* name : names) libraries += name->GetDestinationLibraryName() + "\n";
    EXPECT_EQ(libraries, "one\ntwo\n");
    EXPECT_EQ(names.size(), 2U);
}

TEST(ComponentNameList, CopiesShareTheNames) {
    TComponentNameList source(LANGUAGE_VHDL);
    source.AddComponentName("top", "rtl", "work");
    TComponentNameList copy(source);
    TComponentNameList assigned(LANGUAGE_VERILOG);
    assigned.AddComponentName("other", "", "work");
    assigned = source;
    for (TComponentNameList* names : {&copy, &assigned}) {
        EXPECT_EQ(names->GetLanguage(), LANGUAGE_VHDL);
        EXPECT_EQ(names->size(), 1U);
        EXPECT_EQ(*names->begin(), *source.begin());
        EXPECT_FALSE(names->AddComponentName("TOP", "rtl", "work"));
        EXPECT_TRUE(names->AddComponentName("added", "rtl", "work"));
    }
    EXPECT_EQ(source.size(), 1U);
}

TEST(ComponentNameList, LeavesItsNamesValidAtItsEnd) {
    auto names = std::make_unique<TComponentNameList>(LANGUAGE_VHDL);
    names->AddComponentName("top", "rtl", "work");
    const TComponentName* name = *names->begin();
    names.reset();
    EXPECT_EQ(name->GetDestinationLibraryName(), "work");
}

TEST(ComponentNameList, FlushEmptiesTheList) {
    TComponentNameList names(LANGUAGE_VHDL);
    names.AddComponentName("top", "rtl", "work");
    names.AddComponentName("sub", "rtl", "work");
    names.Flush();
    EXPECT_EQ(names.size(), 0U);
    EXPECT_EQ(ElementsOf(names), "");
    EXPECT_TRUE(names.AddComponentName("top", "rtl", "work"));
    names.Flush();
    names.Flush();
    EXPECT_EQ(names.size(), 0U);
}

TEST(ComponentNameList, DeletesItsNamesWhenFlushedOnly) {
    const int before = CountOfDestroyedNames();
    {
        TComponentNameList names(LANGUAGE_VHDL);
        names.AddComponentName("top", "rtl", "work");
        names.AddComponentName("sub", "rtl", "work");
        names.AddComponentName("sub", "rtl", "work");
        const TComponentNameList copy = names;
        EXPECT_EQ(CountOfDestroyedNames() - before, 0);
        names.Flush();
        EXPECT_EQ(CountOfDestroyedNames() - before, 2);
        names.AddComponentName("top", "rtl", "work");
    }
    EXPECT_EQ(CountOfDestroyedNames() - before, 2);
}

TEST(ComponentNameList, ReportsNothingWhenAReadFails) {
    RecordingMessageBox box;
    RecordingLog log(1);
    TXMLList document;
    PushElements(&document, "START Component Library=work\n");
    DListIterator<TElement*> element(document);
    TComponentNameList names(LANGUAGE_VHDL);
    EXPECT_FALSE(names.ReadFromFile(element));
    EXPECT_EQ(log.Take() + box.Take(), "");
}

TEST(ComponentNameList, AddsManyNamesInLinearTime) {
    const auto start = std::chrono::steady_clock::now();
    TComponentNameList names(LANGUAGE_VHDL);
    int added = 0;
    for (int pass = 0; pass < 2; ++pass)
        for (int i = 0; i < 100000; ++i) {
            const std::string number = std::to_string(i);
            added += names.AddComponentName(("unit" + number).c_str(), "rtl", "work");
            added += names.AddComponentName("unit", ("rtl" + number).c_str(), "work");
            added += names.AddComponentName("unit", "rtl", ("lib" + number).c_str());
            added +=
                names.AddComponentName(TTBIdentifier(("module" + number).c_str(), LANGUAGE_VERILOG),
                                       TTBIdentifier("", LANGUAGE_VERILOG), "work");
        }
    EXPECT_EQ(added, 400000);
    names.Flush();
    // About a second; a search through the list for each name takes many minutes.
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::minutes(1));
}

TEST(ComponentNameList, WritesIdentifiersEscapedForItsLanguage) {
    struct {
        const char* Label;
        THdlLanguage Language;
        const char* Entity;
        const char* Architecture;
        const char* Elements;
    } const rows[] = {
        {"VHDL", LANGUAGE_VHDL, "\\a+b\\", "\\x\\",
         "START Component Library=l&b Architecture=\\x\\\nTEXT \\a+b\\\nEND Component\n"},
        {"Verilog", LANGUAGE_VERILOG, "\\a+b", "",
         "START Component Library=l&b Architecture=\nTEXT \\a+b \nEND Component\n"},
        {"Verilog simple", LANGUAGE_VERILOG, "\\a ", "",
         "START Component Library=l&b Architecture=\nTEXT a\nEND Component\n"},
        {"C++", LANGUAGE_CPLUSPLUS, "ns::top<1>", "",
         "START Component Library=l&b Architecture=\nTEXT ns::top<1>\nEND Component\n"},
    };
    for (const auto& row : rows) {
        TComponentNameList names(row.Language);
        names.AddComponentName(row.Entity, row.Architecture, "l&b");
        EXPECT_EQ(ElementsOf(names), row.Elements) << row.Label;
    }
}

TEST(ComponentNameList, WritesNothingWithoutADocument) {
    TComponentNameList names(LANGUAGE_VHDL);
    names.AddComponentName("top", "rtl", "work");
    names.WriteToFile(nullptr);
    EXPECT_EQ(names.size(), 1U);
}

TEST(ComponentNameList, ReadsBackTheNamesThatItWrote) {
    for (const THdlLanguage language : {LANGUAGE_VHDL, LANGUAGE_VERILOG, LANGUAGE_CPLUSPLUS}) {
        TComponentNameList names(language);
        names.AddComponentName("top", "rtl", "work");
        names.AddComponentName("\\a \\+<b>", "\\x y\\", " \"lib\" ");
        names.AddComponentName("", "", "");
        TXMLList document;
        names.WriteToFile(&document);
        TComponentNameList read(language);
        DListIterator<TElement*> element(document);
        EXPECT_TRUE(read.ReadFromFile(element)) << language;
        EXPECT_EQ(ElementsOf(read), ElementsOf(names)) << language;
        for (const TComponentName* name : names)
            EXPECT_TRUE(read.IsNameInList(name->GetEntity(), name->GetArchitecture(),
                                          name->GetDestinationLibraryName().c_str()))
                << language;
    }
}

TEST(ComponentNameList, ReadsWhatStandsThere) {
    struct {
        const char* Label;
        std::string Input;
        bool Result;
        std::string Names;
        const char* Position;
    } const rows[] = {
        {"nothing", "", true, "", "TAIL"},
        {"the end of the list", std::string(kTwoNames) + "END ComponentList\n", true, kTwoNames,
         "TAIL"},
        {"another section behind", std::string(kTwoNames) + "END ComponentList\nSTART Next a=b\n",
         true, kTwoNames, "START Next a=b"},
        {"another element", "START Components\nTEXT x\nEND Components\n", true, "",
         "START Components"},
        {"a text", std::string("TEXT x\n") + kTwoNames, true, "", "TEXT x"},
        {"an end", std::string("END Component\n") + kTwoNames, true, "", "END Component"},
        {"a START as the last element", "START Component Library=work Architecture=rtl\n", false,
         "", "TAIL"},
        {"a later START as the last element", std::string(kTwoNames) + "START Component\n", false,
         kTwoNames, "TAIL"},
        {"cut short behind the text", "START Component Library=work Architecture=rtl\nTEXT top\n",
         true, "START Component Library=work Architecture=rtl\nTEXT top\nEND Component\n", "TAIL"},
        {"no text", "START Component Library=work Architecture=rtl\nEND Component\n", true,
         "START Component Library=work Architecture=rtl\nTEXT \nEND Component\n", "TAIL"},
        {"no text, no end",
         "START Component Library=work Architecture=rtl\nSTART Component Library=lib "
         "Architecture=x\n"
         "TEXT top\nEND Component\n",
         true,
         "START Component Library=work Architecture=rtl\nTEXT \nEND Component\n"
         "START Component Library=lib Architecture=x\nTEXT top\nEND Component\n",
         "TAIL"},
        {"no attributes", "START Component\nTEXT top\nEND Component\n", true,
         "START Component Library= Architecture=\nTEXT top\nEND Component\n", "TAIL"},
        {"a duplicate", std::string(kTwoNames) + kTwoNames, true, kTwoNames, "TAIL"},
        {"white space around the entity", "START Component\nTEXT  \ttop \nEND Component\n", true,
         "START Component Library= Architecture=\nTEXT top\nEND Component\n", "TAIL"},
        {"a child element",
         "START Component\nTEXT top\nSTART Port\nEND Port\nEND Component\n" +
             std::string(kTwoNames),
         true, "START Component Library= Architecture=\nTEXT top\nEND Component\n", "START Port"},
    };
    for (const auto& row : rows) {
        TXMLList document;
        PushElements(&document, row.Input);
        TComponentNameList names(LANGUAGE_VHDL);
        DListIterator<TElement*> element(document);
        EXPECT_EQ(names.ReadFromFile(element), row.Result) << row.Label;
        EXPECT_EQ(ElementsOf(names), row.Names) << row.Label;
        EXPECT_EQ(ElementAt(element), row.Position) << row.Label;
    }
}

TEST(ComponentNameList, TrimsTheArchitectureButNotTheLibrary) {
    TXMLList document;
    TAttributeList attributes;
    attributes.Psh("Library", " work ");
    attributes.Psh("Architecture", "\t rtl \n");
    document.Psh("Component", &attributes, TElement::START, nullptr);
    document.Psh("", nullptr, TElement::TEXT, "top");
    document.Psh("Component", nullptr, TElement::END, nullptr);
    TComponentNameList names(LANGUAGE_VHDL);
    DListIterator<TElement*> element(document);
    EXPECT_TRUE(names.ReadFromFile(element));
    EXPECT_EQ(ElementsOf(names),
              "START Component Library= work  Architecture=rtl\nTEXT top\nEND Component\n");
}

TEST(ComponentNameList, AddsWhatItReadsToWhatItHolds) {
    TXMLList document;
    PushElements(&document, kTwoNames);
    TComponentNameList names(LANGUAGE_VHDL);
    names.AddComponentName("Top", "Behave", "lib");
    DListIterator<TElement*> element(document);
    EXPECT_TRUE(names.ReadFromFile(element));
    EXPECT_EQ(ElementsOf(names),
              "START Component Library=lib Architecture=Behave\nTEXT Top\nEND Component\n"
              "START Component Library=work Architecture=rtl\nTEXT counter\nEND Component\n");
}
