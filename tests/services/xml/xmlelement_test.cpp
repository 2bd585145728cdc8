#include "services/xml/xmlelement.h"

#include <gtest/gtest.h>

#include "services/xml/xmllist.h"
#include "tests/support/replaced.h"

namespace {

std::string TextOf(const TAttributeList& list) {
    std::string text;
    for (const auto& [name, value] : list.GetAttributes())
        text.append(name).append("=").append(value).append(";");
    return text;
}

}  // namespace

TEST(XMLString, StandsForThePlainTextAndShowsTheSafeOne) {
    const TXMLString text = TXMLList::MakeXMLString("a&b<c>d\"e'f &amp;");
    EXPECT_EQ(text.GetPlain(), "a&b<c>d\"e'f &amp;");
    EXPECT_EQ(text.GetEscaped(), "a&amp;b&lt;c&gt;d&quot;e&apos;f &amp;amp;");
}

TEST(XMLString, IsEmptyForNull) {
    EXPECT_EQ(MakeXMLString(nullptr).GetPlain(), "");
    EXPECT_EQ(TXMLList::MakeXMLString(nullptr).GetEscaped(), "");
}

TEST(AttributeList, KeepsTheOrderPushedAndTakesTheLastValueOfARepeatedName) {
    TAttributeList list;
    list.Psh("b", "1");
    list.Psh("a", "x & y");
    list.PushBool("yes", true);
    list.PushBool("no", false);
    list.Psh("b", "2");
    list.Psh("B", MakeXMLString("<3>"));
    EXPECT_EQ(TextOf(list), "b=2;a=x & y;yes=true;no=false;B=<3>;");
}

TEST(AttributeList, TakesNullAsEmpty) {
    TAttributeList list;
    list.Psh("a", static_cast<const char*>(nullptr));
    list.Psh(nullptr, "b");
    EXPECT_EQ(TextOf(list), "a=;=b;");
}

TEST(AttributeList, KeepsPlacesAndLastValuesOfManyNames) {
    TAttributeList list;
    std::string expected;
    for (int round = 0; round < 2; ++round) {
        expected.clear();
        for (int i = 0; i < 20000; ++i) {
            const std::string name = "n" + std::to_string(i);
            const std::string value = std::to_string(round) + "/" + std::to_string(i);
            list.Psh(name.c_str(), value.c_str());
            expected.append(name).append("=").append(value).append(";");
        }
    }
    EXPECT_EQ(TextOf(list), expected);
    TAttributeList copy(list);
    copy.Psh("n3", "copied");
    copy.Psh("n20000", "new");
    EXPECT_EQ(TextOf(list), expected);
    const std::string old = "n3=1/3;";
    expected = Replaced(expected, old, "n3=copied;");
    EXPECT_EQ(TextOf(copy), expected + "n20000=new;");
}

TEST(Element, AnswersAbsentAttributesWithTheEmptyText) {
    TElement element(TElement::START, "a", "");
    EXPECT_STREQ(element.GetAttribute("x"), "");
    EXPECT_FALSE(element.HasAttribute("x"));
    element.SetAttributes({{"x", "1"}, {"y", ""}});
    EXPECT_STREQ(element.GetAttribute("x"), "1");
    EXPECT_STREQ(element.GetAttribute("y"), "");
    EXPECT_STREQ(element.GetAttribute("X"), "");
    EXPECT_STREQ(element.GetAttribute(nullptr), "");
    EXPECT_TRUE(element.HasAttribute("y"));
    EXPECT_FALSE(element.HasAttribute("X"));
    element.SetAttributes({});
    EXPECT_TRUE(element.GetAttributes().empty());
}

TEST(Element, AnswersOnEndAndTextAsWithoutAttributes) {
    for (const auto type : {TElement::END, TElement::TEXT}) {
        const TElement element(type, "a", "b");
        EXPECT_STREQ(element.GetAttribute("x"), "");
        EXPECT_TRUE(element.GetBool("x", true));
        EXPECT_TRUE(element.GetAttributes().empty());
    }
}

TEST(Element, ReadsBooleansAndGivesTheDefaultForAbsentAndBlankOnes) {
    struct Row {
        const char* Value;
        bool ForDefaultFalse, ForDefaultTrue;
    };
    const Row rows[] = {{"true", true, true},    {"false", false, false}, {" TRUE ", true, true},
                        {"yes", true, true},     {"1", true, true},       {"0", false, false},
                        {"maybe", false, false}, {"", false, true},       {" \t\n", false, true}};
    for (const Row& row : rows) {
        TElement element(TElement::START, "a", "");
        element.SetAttributes({{"flag", row.Value}});
        EXPECT_EQ(element.GetAttributeBool("flag", false), row.ForDefaultFalse) << row.Value;
        EXPECT_EQ(element.GetAttributeBool("flag", true), row.ForDefaultTrue) << row.Value;
        EXPECT_EQ(element.GetBool("flag", false), row.ForDefaultFalse) << row.Value;
        EXPECT_FALSE(element.GetBool("absent", false));
        EXPECT_TRUE(element.GetBool("absent", true));
    }
}

TEST(Element, NumbersItsTypes) {
    EXPECT_EQ(static_cast<int>(TElement::START), 0);
    EXPECT_EQ(static_cast<int>(TElement::END), 1);
    EXPECT_EQ(static_cast<int>(TElement::TEXT), 2);
}

TEST(Element, ComparesItsNameByContent) {
    const TElement element(TElement::START, "Component", "");
    const std::string same = "Component";
    EXPECT_TRUE(element.Name == same.c_str());
    EXPECT_FALSE(element.Name == "component");
}

TEST(Element, GivesItsNameAndTextAsStrings) {
    const TElement element(TElement::TEXT, "Name", " text ");
    EXPECT_EQ(strcmp(element.Name, "Name"), 0);
    EXPECT_STREQ(element.Text.c_str(), " text ");
    EXPECT_EQ(element.Text.Str() + element.Name.Str(), " text Name");
    TMyString text = element.Text;
    text.Trim(1, 0);
    EXPECT_EQ(text, "text");
}

TEST(Element, IsMovedAsACopy) {
    TElement element(TElement::START, "a", "b");
    element.SetAttributes({{"x", "1"}});
    TElement other(std::move(element));
    element.SetAttributes({{"y", "2"}});
    EXPECT_EQ(other.Name, "a");
    EXPECT_EQ(other.Text, "b");
    EXPECT_EQ(other.ElemType, TElement::START);
    EXPECT_STREQ(other.GetAttribute("x"), "1");
    EXPECT_FALSE(other.HasAttribute("y"));

    other = TElement(TElement::END, "c", "");
    EXPECT_EQ(other.Name, "c");
    EXPECT_EQ(other.Text, "");
    EXPECT_EQ(other.ElemType, TElement::END);
    EXPECT_FALSE(other.HasAttribute("x"));
    TElement& self = other;
    other = std::move(self);
    EXPECT_EQ(other.Name, "c");
}

TEST(Element, IsAssignedInItsListsMemory) {
    TXMLList list;
    TAttributeList attributes;
    attributes.Psh("x", "1");
    list.Psh("a", &attributes, TElement::START, nullptr);
    TElement& element = *DListIterator<TElement*>(list).Current();
    TElement taken(std::move(element));
    element = TElement(TElement::TEXT, "", "a text that is its own");
    EXPECT_EQ(element.Text, "a text that is its own");
    EXPECT_FALSE(element.HasAttribute("x"));
    EXPECT_EQ(taken.Name, "a");
    EXPECT_STREQ(taken.GetAttribute("x"), "1");
    // Both kinds of memory are given back: the leak checker tells.
}

TEST(Element, KeepsAttributeTextsWhenAllAreAskedFor) {
    TXMLList list;
    ASSERT_TRUE(list.ReadFromText("<a x='1' y='&lt;2'/>", nullptr));
    TElement& element = *DListIterator<TElement*>(list).Current();
    const char* const value = element.GetAttribute("y");
    EXPECT_EQ(element.GetAttributes(),
              (std::vector<TAttributeList::TAttribute>{{"x", "1"}, {"y", "<2"}}));
    EXPECT_EQ(element.GetAttribute("y"), value);
    EXPECT_STREQ(value, "<2");
    element.SetAttributes({{"z", "3"}});
    EXPECT_FALSE(element.HasAttribute("x"));
    EXPECT_STREQ(element.GetAttribute("z"), "3");
}
