#include "filenames/toplevelcomponents.h"

#include "filenames/componentname.h"
#include "tests/filenames/destroyednames.h"
#include "tests/support/elementtext.h"
#include "tests/support/recorders.h"
#include <gtest/gtest.h>
#include <string>

namespace {

std::string ElementsOf(const TTopLevelComponents& components) {
    return ElementsWrittenBy(
        [&](TXMLList* document) { components.WriteTopLevelComponentNames(document); });
}

// Reads a stream into `components`; the result and the element under the iterator.
std::string Read(TTopLevelComponents& components, const std::string& elements) {
    TXMLList document;
    PushElements(&document, elements);
    DListIterator<TElement*> element(document);
    const bool result = components.ReadTopLevelComponentNames(element);
    return (result ? "true " : "false ") + ElementAt(element);
}

const char* const kEmptySection = "START TopLevelComponents\nEND TopLevelComponents\n";

const char* const kSection =
    "START TopLevelComponents ForceTopLevelComponents=true\n"
    "START ComponentList Language=Verilog\n"
    "START Component Library=work Architecture=\n"
    "TEXT counter\n"
    "END Component\n"
    "END ComponentList\n"
    "START ComponentList Language=VHDL\n"
    "START Component Library=lib Architecture=rtl\n"
    "TEXT top\n"
    "END Component\n"
    "START Component Library=lib Architecture=behave\n"
    "TEXT top\n"
    "END Component\n"
    "END ComponentList\n"
    "END TopLevelComponents\n";

std::string Forced(const std::string& lists) {
    return "START TopLevelComponents ForceTopLevelComponents=true\n" + lists +
           "END TopLevelComponents\n";
}

}  // namespace

TEST(TopLevelComponents, StartsEmptyAndUnforced) {
    TTopLevelComponents components;
    EXPECT_FALSE(components.GetForceTopLevelComponents());
    EXPECT_EQ(ElementsOf(components), kEmptySection);
    for (int language = 0; language <= 9; ++language)
        EXPECT_EQ(components.GetComponentNameList(static_cast<THdlLanguage>(language)), nullptr);
    EXPECT_EQ(ElementsOf(components), kEmptySection);
}

TEST(TopLevelComponents, PassesOverTextsAndEndsBeforeTheFirstComponent) {
    TTopLevelComponents components;
    EXPECT_EQ(Read(components,
                   "START TopLevelComponents\n"
                   "TEXT before the list\n"
                   "END Stray\n"
                   "START ComponentList Language=VHDL\n"
                   "TEXT before the component\n"
                   "END Stray\n"
                   "TEXT more\n"
                   "START Component Library=lib Architecture=rtl\n"
                   "TEXT top\n"
                   "END Component\n"
                   "END ComponentList\n"
                   "END TopLevelComponents\n"
                   "START Next\n"),
              "true START Next");
    EXPECT_EQ(ElementsOf(components),
              "START TopLevelComponents\n"
              "START ComponentList Language=VHDL\n"
              "START Component Library=lib Architecture=rtl\n"
              "TEXT top\n"
              "END Component\n"
              "END ComponentList\n"
              "END TopLevelComponents\n");
}

TEST(TopLevelComponents, ReportsNothingWhenAReadFails) {
    RecordingMessageBox box;
    RecordingLog log(1);
    TTopLevelComponents components;
    EXPECT_EQ(Read(components,
                   "START TopLevelComponents\n"
                   "START ComponentList Language=VHDL\n"
                   "START Component Library=lib\n"),
              "false TAIL");
    EXPECT_EQ(log.Take() + box.Take(), "");
}

TEST(TopLevelComponents, MakesAListForALanguageWhenANameIsAdded) {
    TTopLevelComponents components;
    EXPECT_TRUE(components.AddComponentName("top", "rtl", "lib", LANGUAGE_VHDL));
    EXPECT_TRUE(components.AddComponentName("counter", nullptr, "work", LANGUAGE_VERILOG));
    EXPECT_FALSE(components.AddComponentName("TOP", "rtl", "lib", LANGUAGE_VHDL));
    EXPECT_TRUE(components.AddComponentName("top", "behave", "lib", LANGUAGE_VHDL));
    components.SetForceTopLevelComponents(true);
    EXPECT_EQ(ElementsOf(components), kSection);
    const TTopLevelComponents& same = components;
    EXPECT_EQ(same.GetComponentNameList(LANGUAGE_VHDL),
              components.GetComponentNameList(LANGUAGE_VHDL));
    EXPECT_EQ(components.GetComponentNameList(LANGUAGE_VHDL)->GetLanguage(), LANGUAGE_VHDL);
    EXPECT_EQ(components.GetComponentNameList(LANGUAGE_VHDL)->size(), 2U);
    EXPECT_EQ(same.GetComponentNameList(LANGUAGE_BLUESPECVERILOG), nullptr);
}

TEST(TopLevelComponents, WritesTheForceFlagOnlyWhenSet) {
    TTopLevelComponents components;
    components.SetForceTopLevelComponents(true);
    EXPECT_TRUE(components.GetForceTopLevelComponents());
    EXPECT_EQ(ElementsOf(components), Forced(""));
    components.SetForceTopLevelComponents(false);
    EXPECT_EQ(ElementsOf(components), kEmptySection);
}

TEST(TopLevelComponents, WritesLanguagesInNumericOrder) {
    TTopLevelComponents components;
    for (const THdlLanguage language : {LANGUAGE_NONE, LANGUAGE_CPLUSPLUS, LANGUAGE_VERILOG}) {
        components.AddComponentName("top", "", "work", language);
        components.GetComponentNameList(language)->Flush();
    }
    EXPECT_EQ(ElementsOf(components),
              "START TopLevelComponents\n"
              "START ComponentList Language=Verilog\n"
              "END ComponentList\n"
              "START ComponentList Language=C++\n"
              "END ComponentList\n"
              "START ComponentList Language=None\n"
              "END ComponentList\n"
              "END TopLevelComponents\n");
}

TEST(TopLevelComponents, WritesNothingWithoutADocument) {
    TTopLevelComponents components;
    components.AddComponentName("top", "rtl", "lib", LANGUAGE_VHDL);
    components.WriteTopLevelComponentNames(nullptr);
    EXPECT_EQ(components.GetComponentNameList(LANGUAGE_VHDL)->size(), 1U);
}

TEST(TopLevelComponents, ReadsBackWhatItWrote) {
    TTopLevelComponents components;
    EXPECT_EQ(Read(components, kSection), "true TAIL");
    EXPECT_EQ(ElementsOf(components), kSection);
}

TEST(TopLevelComponents, ReadsBackWhatItWroteThroughAFile) {
    TTopLevelComponents components;
    components.AddComponentName("\\a<b>&\"c\" ", "", "l&b", LANGUAGE_VERILOG);
    components.AddComponentName("\\x y\\", "\\'a'\\", " l<b ", LANGUAGE_VHDL);
    TXMLList document;
    components.WriteTopLevelComponentNames(&document);
    std::string text;
    std::string error;
    ASSERT_TRUE(document.WriteToText(&text, &error)) << error;
    TXMLList parsed;
    ASSERT_TRUE(parsed.ReadFromText(text, nullptr));
    TTopLevelComponents read;
    DListIterator<TElement*> element(parsed);
    EXPECT_TRUE(read.ReadTopLevelComponentNames(element));
    EXPECT_EQ(ElementsOf(read), ElementsOf(components));
}

TEST(TopLevelComponents, KeepsWhatItReadOfAStreamCutShort) {
    const std::string verilog =
        "START ComponentList Language=Verilog\n"
        "START Component Library=work Architecture=\n"
        "TEXT counter\n"
        "END Component\n"
        "END ComponentList\n";
    const std::string rtl =
        "START Component Library=lib Architecture=rtl\nTEXT top\nEND Component\n";
    const std::string behave =
        "START Component Library=lib Architecture=behave\nTEXT top\nEND Component\n";
    const auto vhdl = [](const std::string& names) {
        return "START ComponentList Language=VHDL\n" + names + "END ComponentList\n";
    };
    struct {
        int Elements;
        const char* Result;
        std::string Holds;
    } const rows[] = {
        {0, "true TAIL", kEmptySection},
        {1, "true TAIL", Forced("")},
        {2, "true TAIL", Forced("START ComponentList Language=Verilog\nEND ComponentList\n")},
        {3, "false TAIL", Forced("START ComponentList Language=Verilog\nEND ComponentList\n")},
        {4, "true TAIL", Forced(verilog)},
        {5, "true TAIL", Forced(verilog)},
        {6, "true TAIL", Forced(verilog)},
        {7, "true TAIL", Forced(verilog + vhdl(""))},
        {8, "false TAIL", Forced(verilog + vhdl(""))},
        {9, "true TAIL", Forced(verilog + vhdl(rtl))},
        {10, "true TAIL", Forced(verilog + vhdl(rtl))},
        {11, "false TAIL", Forced(verilog + vhdl(rtl))},
        {12, "true TAIL", Forced(verilog + vhdl(rtl + behave))},
        {13, "true TAIL", Forced(verilog + vhdl(rtl + behave))},
        {14, "true TAIL", Forced(verilog + vhdl(rtl + behave))},
    };
    for (const auto& row : rows) {
        TTopLevelComponents components;
        EXPECT_EQ(Read(components, FirstLines(kSection, row.Elements)), row.Result) << row.Elements;
        EXPECT_EQ(ElementsOf(components), row.Holds) << row.Elements;
    }
}

TEST(TopLevelComponents, StopsWhereTheSectionEnds) {
    const std::string counter =
        "START Component Library=work Architecture=\nTEXT counter\nEND Component\n";
    const std::string list =
        "START ComponentList Language=Verilog\n" + counter + "END ComponentList\n";
    const std::string held = "START TopLevelComponents\n" + list + "END TopLevelComponents\n";
    const std::string heldEmpty =
        "START TopLevelComponents\nSTART ComponentList Language=Verilog\nEND ComponentList\n"
        "END TopLevelComponents\n";
    struct {
        const char* Label;
        std::string Input;
        const char* Result;
        std::string Holds;
    } const rows[] = {
        {"at the next section", held + "START Next x=y\n", "true START Next x=y", held},
        {"an empty section", std::string(kEmptySection) + "START Next\n", "true START Next",
         kEmptySection},
        {"another section", "START Next\nEND Next\n", "true START Next", kEmptySection},
        {"an end", "END TopLevelComponents\n" + list, "true END TopLevelComponents", kEmptySection},
        {"lists without the section", list, "true TAIL", held},
        {"the section in another case", "START toplevelcomponents\n" + list,
         "true START toplevelcomponents", kEmptySection},
        {"a foreign element before the lists",
         "START TopLevelComponents\nSTART Foreign\nEND Foreign\n" + list, "true START Foreign",
         kEmptySection},
        {"a foreign element in a list",
         "START TopLevelComponents\nSTART ComponentList Language=Verilog\nSTART Foreign\n",
         "true START Foreign", heldEmpty},
        {"a component beside the lists joins the last one",
         held.substr(0, held.size() - 23) +
             "START Component Library=lib\nTEXT fifo\nEND Component\n",
         "true TAIL",
         "START TopLevelComponents\nSTART ComponentList Language=Verilog\n" + counter +
             "START Component Library=lib Architecture=\nTEXT fifo\nEND Component\n"
             "END ComponentList\nEND TopLevelComponents\n"},
        {"texts between the elements", "START TopLevelComponents\nTEXT x\n" + list + "TEXT y\n",
         "true TAIL", held},
    };
    for (const auto& row : rows) {
        TTopLevelComponents components;
        EXPECT_EQ(Read(components, row.Input), row.Result) << row.Label;
        EXPECT_EQ(ElementsOf(components), row.Holds) << row.Label;
    }
}

TEST(TopLevelComponents, ReadsTheForceFlagOfEverySection) {
    struct {
        const char* Input;
        bool Force;
    } const rows[] = {
        {"START TopLevelComponents ForceTopLevelComponents=true\n", true},
        {"START TopLevelComponents ForceTopLevelComponents=TRUE\n", true},
        {"START TopLevelComponents ForceTopLevelComponents=false\n", false},
        {"START TopLevelComponents ForceTopLevelComponents=\n", false},
        {"START TopLevelComponents\n", false},
    };
    for (const auto& row : rows)
        for (const bool before : {false, true}) {
            TTopLevelComponents components;
            components.SetForceTopLevelComponents(before);
            EXPECT_EQ(Read(components, row.Input), "true TAIL") << row.Input;
            EXPECT_EQ(components.GetForceTopLevelComponents(), row.Force) << row.Input;
        }
    TTopLevelComponents components;
    components.SetForceTopLevelComponents(true);
    EXPECT_EQ(Read(components, "START Next\n"), "true START Next");
    EXPECT_TRUE(components.GetForceTopLevelComponents());
}

TEST(TopLevelComponents, KeepsOnlyTheSecondListOfALanguage) {
    const std::string start = "START TopLevelComponents\n";
    const std::string first =
        "START ComponentList Language=VHDL\n"
        "START Component Library=work Architecture=rtl\nTEXT first\nEND Component\n"
        "END ComponentList\n";
    const std::string second =
        "START ComponentList Language=VHDL\n"
        "START Component Library=work Architecture=rtl\nTEXT second\nEND Component\n"
        "END ComponentList\n";
    const std::string end = "END TopLevelComponents\n";
    RecordingLog log(1);
    TTopLevelComponents components;
    Read(components, start + first + end);
    EXPECT_EQ(log.Take(), "");
    const TComponentNameList* dropped = components.GetComponentNameList(LANGUAGE_VHDL);
    EXPECT_EQ(Read(components, start + second + end), "true TAIL");
    EXPECT_EQ(ElementsOf(components), start + second + end);
    EXPECT_EQ(
        log.Take(),
        "A second list of top-level components replaces the first one of language \"VHDL\".\n");
    EXPECT_EQ(dropped->size(), 1U);
    EXPECT_EQ((*dropped->begin())->GetDestinationLibraryName(), "work");
}

TEST(TopLevelComponents, LogsNothingWhenAnEmptyListIsReplaced) {
    const std::string list = "START ComponentList Language=VHDL\nEND ComponentList\n";
    RecordingLog log(1);
    TTopLevelComponents components;
    Read(components, list + list);
    EXPECT_EQ(log.Take(), "");
    EXPECT_EQ(ElementsOf(components),
              "START TopLevelComponents\n" + list + "END TopLevelComponents\n");
}

TEST(TopLevelComponents, ReadsUnknownLanguagesAsNone) {
    RecordingLog log(1);
    TTopLevelComponents components;
    Read(components,
         "START ComponentList Language=Fortran\n"
         "START Component\nTEXT one\nEND Component\n"
         "END ComponentList\n"
         "START ComponentList\n"
         "START Component\nTEXT two\nEND Component\n"
         "END ComponentList\n"
         "START ComponentList Language=none\nEND ComponentList\n");
    EXPECT_EQ(ElementsOf(components),
              "START TopLevelComponents\n"
              "START ComponentList Language=None\n"
              "END ComponentList\n"
              "END TopLevelComponents\n");
    EXPECT_EQ(
        log.Take(),
        "Top-level components of the unknown language \"Fortran\" are read as those of no "
        "language.\n"
        "Top-level components of the unknown language \"\" are read as those of no language.\n"
        "A second list of top-level components replaces the first one of language \"None\".\n"
        "A second list of top-level components replaces the first one of language \"None\".\n");
}

TEST(TopLevelComponents, ClearDropsTheListsButNeitherNamesNorFlag) {
    TTopLevelComponents components;
    components.SetForceTopLevelComponents(true);
    components.AddComponentName("top", "rtl", "lib", LANGUAGE_VHDL);
    const TComponentName* name = *components.GetComponentNameList(LANGUAGE_VHDL)->begin();
    components.Clear();
    EXPECT_EQ(components.GetComponentNameList(LANGUAGE_VHDL), nullptr);
    EXPECT_EQ(ElementsOf(components), Forced(""));
    EXPECT_EQ(name->GetDestinationLibraryName(), "lib");
}

TEST(TopLevelComponents, LeavesTheNamesItReadUnlessTheyAreDeleted) {
    const int before = CountOfDestroyedNames();
    TComponentNameList names(LANGUAGE_VHDL);
    {
        TTopLevelComponents components;
        Read(components, kSection);
        names = *components.GetComponentNameList(LANGUAGE_VHDL);
        components.Clear();
        components.DeleteNamesRead();
        Read(components, kSection);
    }
    EXPECT_EQ(CountOfDestroyedNames() - before, 0);
    EXPECT_EQ((*names.begin())->GetDestinationLibraryName(), "lib");
    {
        TTopLevelComponents components;
        Read(components, kSection);
        components.AddComponentName("callers", "", "", LANGUAGE_CPLUSPLUS);
        components.DeleteNamesRead();
        EXPECT_EQ(CountOfDestroyedNames() - before, 3);
    }
    EXPECT_EQ(CountOfDestroyedNames() - before, 3);
}
