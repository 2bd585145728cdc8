#include "services/xml/xmlstream.h"

#include <gtest/gtest.h>

#include "tests/support/elementtext.h"

namespace {

constexpr const char* kNested =
    "START a\n"
    "START b x=1\n"
    "TEXT  t \n"
    "END b\n"
    "END a\n"
    "START c\n"
    "END c\n";

// The element after `steps` steps into kNested.
class NestedElements {
public:
    explicit NestedElements(int steps) : Position(MakePosition(steps)) {}
    TElementIterator& operator*() { return Position; }

private:
    TElementIterator MakePosition(int steps) {
        PushElements(&List, kNested);
        TElementIterator position(List);
        while (steps-- > 0) ++position;
        return position;
    }
    TXMLList List;
    TElementIterator Position;
};

std::string AfterStepping(int steps, void (*step)(TElementIterator&)) {
    NestedElements elements(steps);
    step(*elements);
    return ElementAt(*elements);
}

}  // namespace

TEST(XMLStream, PushesElementsWithTextAndAttributes) {
    EXPECT_EQ(ElementsWrittenBy([](TXMLList* list) {
                  PushStart(list, "Outer");
                  PushTextElement(list, "Inner", "a & b", {{"Name", "n"}, {"Value", "v"}});
                  PushTextElement(list, "Empty", "");
                  PushEnd(list, "Outer");
              }),
              "START Outer\n"
              "START Inner Name=n Value=v\n"
              "TEXT a & b\n"
              "END Inner\n"
              "START Empty\n"
              "TEXT \n"
              "END Empty\n"
              "END Outer\n");
}

TEST(XMLStream, PushesNothingIntoNoDocument) {
    PushStart(nullptr, "a");
    PushEnd(nullptr, "a");
    PushText(nullptr, "a");
    EXPECT_EQ(ElementsWrittenBy([](TXMLList*) {}), "");
}

TEST(XMLStream, TellsWhatStandsAtAPosition) {
    struct Row {
        int Steps;
        bool Start, StartB, End, EndB, Text;
    };
    const Row rows[] = {
        {0, true, false, false, false, false}, {1, true, true, false, false, false},
        {2, false, false, false, false, true}, {3, false, false, true, true, false},
        {4, false, false, true, false, false}, {7, false, false, false, false, false}};
    for (const Row& row : rows) {
        NestedElements elements(row.Steps);
        EXPECT_EQ(IsAtStart(*elements), row.Start) << row.Steps;
        EXPECT_EQ(IsAtStart(*elements, "b"), row.StartB) << row.Steps;
        EXPECT_EQ(IsAtEnd(*elements), row.End) << row.Steps;
        EXPECT_EQ(IsAtEnd(*elements, "b"), row.EndB) << row.Steps;
        EXPECT_EQ(IsAtText(*elements), row.Text) << row.Steps;
    }
}

TEST(XMLStream, Skips) {
    struct Row {
        const char* Label;
        void (*Step)(TElementIterator&);
        int Steps;
        const char* Expected;
    };
    const Row rows[] = {
        {"to START from START", SkipToStart, 0, "START a"},
        {"to START from text", SkipToStart, 2, "START c"},
        {"to START without one", SkipToStart, 6, "TAIL"},
        {"to START at the tail", SkipToStart, 7, "TAIL"},
        {"ENDs from two", SkipEnds, 3, "START c"},
        {"ENDs from START", SkipEnds, 0, "START a"},
        {"ENDs to the tail", SkipEnds, 6, "TAIL"},
        {"one END", SkipEnd, 3, "END a"},
        {"no END", SkipEnd, 2, "TEXT  t "},
        {"no END at the tail", SkipEnd, 7, "TAIL"},
        {"element with children", SkipElement, 0, "START c"},
        {"element with text", SkipElement, 1, "END a"},
        {"last element", SkipElement, 5, "TAIL"},
        {"text", SkipElement, 2, "END b"},
        {"END", SkipElement, 3, "END a"},
        {"nothing", SkipElement, 7, "TAIL"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(AfterStepping(row.Steps, row.Step), row.Expected) << row.Label;
}

TEST(XMLStream, SkipsAnElementWithoutEndToTheTail) {
    TXMLList list;
    PushElements(&list, "START a\nSTART a\nEND a\n");
    TElementIterator position(list);
    SkipElement(position);
    EXPECT_EQ(ElementAt(position), "TAIL");
}

TEST(XMLStream, TrimsTextsAndFindsNoneElsewhere) {
    EXPECT_EQ(TrimmedText(*NestedElements(2)), "t");
    EXPECT_EQ(TrimmedText(*NestedElements(1)), "");
    EXPECT_EQ(TrimmedText(*NestedElements(3)), "");
    EXPECT_EQ(TrimmedText(*NestedElements(7)), "");
}

TEST(XMLStream, TakesAMissingElementForNone) {
    DList<TElement*> list;
    list.AddAtTail(nullptr);
    TElementIterator position(list);
    EXPECT_FALSE(IsAtStart(position));
    EXPECT_FALSE(IsAtText(position));
    EXPECT_EQ(TrimmedText(position), "");
    SkipToStart(position);
    EXPECT_FALSE(position.NotAtTail());
}

TEST(XMLStream, KeepsThePlaceAndTheLastValueOfARepeatedAttribute) {
    EXPECT_EQ(ElementsWrittenBy([](TXMLList* list) {
                  PushStart(list, "a", {{"x", "1"}, {"y", "2"}, {"x", "3"}});
              }),
              "START a x=3 y=2\n");
}

TEST(XMLStream, PushesCopiesOfTextsThatMayHoldZeros) {
    TXMLList list;
    {
        std::string text("a\0b", 3);
        PushText(&list, text);
        text = "xyz";
    }
    PushStart(&list, nullptr);
    PushEnd(&list, nullptr);
    TElementIterator element(list);
    EXPECT_EQ(element.Current()->Text.View(), std::string_view("a\0b", 3));
    ++element;
    EXPECT_TRUE(IsAtStart(element, ""));
    ++element;
    EXPECT_TRUE(IsAtEnd(element, ""));
}

TEST(XMLStream, GivesTheTrimmedTextWithoutACopy) {
    TXMLList list;
    PushElements(&list, "TEXT  t u \nSTART a\n");
    TElementIterator element(list);
    EXPECT_EQ(TrimmedTextView(element), "t u");
    EXPECT_EQ(TrimmedTextView(element).data(), element.Current()->Text.c_str() + 1);
    ++element;
    EXPECT_EQ(TrimmedTextView(element), "");
    ++element;
    EXPECT_EQ(TrimmedTextView(element), "");
}
