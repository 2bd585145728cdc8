#include "services/xml/xmlelement.h"

#include <gtest/gtest.h>

#include "services/xml/xmllist.h"

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
