#include <gtest/gtest.h>

#include <thread>
#include <vector>

#include "services/xml/xmlstream.h"
#include "tests/services/xml/documents.h"
#include "tests/support/memoryfilesystem.h"

// Elements share blocks of memory, whose end the sanitizer builds watch.

namespace {

// A document of which the elements need several blocks.
std::string LongDocument(int entries) {
    std::string document = "<list>";
    for (int i = 0; i < entries; ++i)
        document +=
            "<entry number=\"" + std::to_string(i) + "\">text " + std::to_string(i) + "</entry>";
    return document + "</list>";
}

std::string LongElements(int entries) {
    std::string lines = "START list\n";
    for (int i = 0; i < entries; ++i) {
        const std::string number = std::to_string(i);
        lines += "START entry number=" + number + "\nTEXT text " + number + "\nEND entry\n";
    }
    return lines + "END list\n";
}

// Writes down what is taken off it.
class NotingList : public TXMLList {
public:
    std::string Removed;

protected:
    void ObjectRemoved(TElement* element) override {
        Removed += element->ElemType == TElement::TEXT ? element->Text.Str() : element->Name.Str();
        Removed += " ";
    }
};

class WalkingList : public NotingList {
public:
    WalkingList(const char* element, bool once) : Element(element) { SetWalkedOnce(once); }
    std::string LeftWhenMet;

protected:
    bool InterpretElements() override {
        for (TElementIterator element = GetFirst(); element.NotAtTail(); ++element) {
            if (!IsAtStart(element, Element)) continue;
            DropWhatWasRead(element);
            LeftWhenMet += ElementsOf(*this) + "-\n";
        }
        return true;
    }

private:
    const char* Element;
};

}  // namespace

TEST(ElementMemory, HoldsElementsOfManyBlocks) {
    EXPECT_EQ(StreamOf(LongDocument(20000)), LongElements(20000));
}

TEST(ElementMemory, HoldsTextsLongerThanABlock) {
    const std::string text(1000000, 't');
    const std::string document = "<a x=\"" + text + "\">" + text + "<b/>" + text + "</a>";
    EXPECT_EQ(StreamOf(document), "START a x=" + text + "\nTEXT " + text +
                                      "\nSTART b\nEND b\nTEXT " + text + "\nEND a\n");
}

TEST(ElementMemory, LetsAnElementWithALongTextBeDeletedAlone) {
    TXMLList list;
    ASSERT_TRUE(list.ReadFromText("<a>" + std::string(1000000, 't') + "<b/></a>", nullptr));
    PushTextElement(&list, "c", std::string(1000000, 'u'));
    while (!list.IsEmpty()) {
        TElement* const first = DListIterator<TElement*>(list).Current();
        EXPECT_TRUE(list.Remove(first));
        delete first;
    }
}

TEST(ElementMemory, HoldsMoreNamesThanFormatsHave) {
    std::string document = "<list>", lines = "START list\n";
    for (int i = 0; i < 5000; ++i) {
        const std::string name = "n" + std::to_string(i % 1700);
        document += "<" + name + " " + name + "='1'/>";
        lines += "START " + name + " " + name + "=1\nEND " + name + "\n";
    }
    EXPECT_EQ(StreamOf(document + "</list>"), lines + "END list\n");
}

TEST(ElementMemory, HoldsAttributesWhoseNamesTakeEachOthersPlace) {
    TXMLList list;
    std::string expected;
    const std::string one = std::string(300, 'n') + "1x";
    const std::string other = std::string(300, 'n') + "2x";
    // Elements of every size, so that some fill a block to its end.
    for (std::size_t i = 0; i < 3000; ++i) {
        const std::string value(i % 61, 'v');
        PushStart(&list, "e", {{one, value}, {other, value}});
        expected += "START e " + one + "=" + value + " " + other + "=" + value + "\n";
    }
    EXPECT_EQ(ElementsOf(list), expected);
}

TEST(ElementMemory, KeepsTheTextsOfAnElementThatOutlivesItsList) {
    std::vector<std::unique_ptr<TElement>> kept;
    {
        TXMLList list;
        ASSERT_TRUE(list.ReadFromText(LongDocument(20000), nullptr));
        TAttributeList attributes;
        attributes.Psh("pushed", "yes");
        list.Psh("last", &attributes, TElement::START, nullptr);
        std::vector<TElement*> wanted;
        int place = 0;
        for (TElementIterator element(list); element.NotAtTail(); ++element, ++place)
            if (place < 3 || place == 30000 || place == 30001 || place > 60000)
                wanted.push_back(element.Current());
        for (TElement* element : wanted) {
            EXPECT_TRUE(list.Remove(element));
            kept.emplace_back(element);
        }
    }
    DList<TElement*> all;
    for (const auto& element : kept) all.AddAtTail(element.get());
    EXPECT_EQ(ElementsOf(all),
              "START list\nSTART entry number=0\nTEXT text 0\nEND entry\nSTART entry number=10000\n"
              "END list\nSTART last pushed=yes\n");
}

TEST(ElementMemory, TakesNoNameFromAnotherBlock) {
    TXMLList list;
    ASSERT_TRUE(list.ReadFromText(LongDocument(20000), nullptr));
    std::vector<const TElement*> elements;
    for (TElementIterator element(list); element.NotAtTail(); ++element)
        elements.push_back(element.Current());
    const TElement& firstEntry = *elements[1];
    const TElement& lastEntry = *elements[elements.size() - 4];
    ASSERT_EQ(firstEntry.Name, "entry");
    ASSERT_EQ(lastEntry.Name, "entry");
    EXPECT_NE(firstEntry.Name.c_str(), lastEntry.Name.c_str());
    ASSERT_EQ(elements.front()->Name, elements.back()->Name);
    EXPECT_NE(elements.front()->Name.c_str(), elements.back()->Name.c_str());
}

TEST(ElementMemory, LetsElementsBeDeletedBeforeAndAfterTheirListAndByAnotherThread) {
    auto list = std::make_unique<TXMLList>();
    ASSERT_TRUE(list->ReadFromText(LongDocument(3000), nullptr));
    std::vector<TElement*> first, second;
    for (TElementIterator element(*list); element.NotAtTail(); ++element)
        (first.size() > second.size() ? second : first).push_back(element.Current());
    list->Flush(0);
    EXPECT_TRUE(list->IsEmpty());
    std::thread other([&] {
        for (TElement* element : first) delete element;
    });
    for (TElement* element : second) list->AddAtTail(element);
    EXPECT_EQ(list->GetCount(), second.size());
    list.reset();
    other.join();
}

TEST(ElementMemory, ServesTwoThreadsWithTwoLists) {
    std::string first, second;
    const auto read = [](std::string* result) {
        for (int round = 0; round < 10; ++round) *result = StreamOf(LongDocument(2000));
    };
    std::thread other(read, &first);
    read(&second);
    other.join();
    EXPECT_EQ(first, LongElements(2000));
    EXPECT_EQ(second, LongElements(2000));
}

TEST(ElementMemory, MixesElementsOfTheListAndOfCallers) {
    TXMLList list;
    PushStart(&list, "a");
    list.AddAtTail(new TElement(TElement::TEXT, "", "made by a caller"));
    list.AddAtHead(new TElement(TElement::START, "b", ""));
    PushEnd(&list, "a");
    list.AddAtTail(nullptr);
    EXPECT_EQ(list.GetCount(), 5U);
    EXPECT_TRUE(list.Remove(nullptr));
    EXPECT_EQ(ElementsOf(list), "START b\nSTART a\nTEXT made by a caller\nEND a\n");
    list.AddAtTail(nullptr);
    list.Flush(1);
    EXPECT_TRUE(list.IsEmpty());
}

TEST(ElementMemory, DeletesTheElementsBeforeAPlace) {
    NotingList list;
    PushElements(&list, "START a\nTEXT t\nEND a\nSTART b\nEND b\n");
    TElementIterator position(list);
    list.DeleteBefore(position);
    EXPECT_EQ(list.Removed, "");
    for (int i = 0; i < 3; ++i) ++position;
    list.DeleteBefore(position);
    EXPECT_EQ(list.Removed, "a t a ");
    EXPECT_EQ(ElementsOf(list), "START b\nEND b\n");
    EXPECT_EQ(list.GetCount(), 2U);
    PushStart(&list, "c");
    EXPECT_EQ(ElementsOf(list), "START b\nEND b\nSTART c\n");
    list.DeleteBefore(TElementIterator());
    EXPECT_EQ(list.Removed, "a t a b b c ");
    EXPECT_TRUE(list.IsEmpty());
}

TEST(ElementMemory, DropsWhatWasReadOfAListThatIsWalkedOnceOnly) {
    MemoryFileSystem files;
    files.Put("/p/list.xml", "<a><b/><c/><b/></a>");
    WalkingList once("b", true);
    EXPECT_TRUE(once.ReadFile("/p/list.xml"));
    EXPECT_EQ(once.LeftWhenMet,
              "START b\nEND b\nSTART c\nEND c\nSTART b\nEND b\nEND a\n-\n"
              "START b\nEND b\nEND a\n-\n");
    EXPECT_EQ(once.Removed, "a b b c c ");

    WalkingList often("b", false);
    EXPECT_TRUE(often.ReadFile("/p/list.xml"));
    EXPECT_EQ(often.Removed, "");
    EXPECT_EQ(often.GetCount(), 8U);
}

TEST(ElementMemory, GivesEveryKindOfText) {
    struct Row {
        const char* Label;
        std::string Document;
        std::string Text;
    };
    const Row rows[] = {
        {"one token", "<a>one</a>", "one"},
        {"several lines", "<a>one\ntwo\n</a>", "one\ntwo\n"},
        {"CR LF", "<a>one\r\ntwo\rthree</a>", "one\ntwo\nthree"},
        {"entities", "<a>&lt;one&gt; &amp; &#116;wo</a>", "<one> & two"},
        {"blanks in front", "<a>\n  one</a>", "\n  one"},
        {"a blank by reference", "<a>&#32;</a>", " "},
        {"a blank by reference among blanks", "<a> &#10; </a>", " \n "},
        {"CDATA", "<a><![CDATA[<one>]]></a>", "<one>"},
        {"blank CDATA", "<a> <![CDATA[ ]]> </a>", "   "},
        {"text around CDATA", "<a>one<![CDATA[two]]>three</a>", "onetwothree"},
        {"empty CDATA", "<a><![CDATA[]]></a>", ""},
        {"a comment within", "<a>one<!-- no -->two</a>", "onetwo"},
        {"UTF-8", "<a>\xC3\xA9\xE2\x82\xAC</a>", "\xC3\xA9\xE2\x82\xAC"},
        {"Windows-1252", "<a>\xE9\x80</a>", "\xC3\xA9\xE2\x82\xAC"},
        {"UTF-16", "\xFF\xFE" + Utf16("<a>one&amp;\r\ntwo</a>"), "one&\ntwo"},
        {"UTF-16, the other way round", "\xFE\xFF" + Utf16("<a>one</a>", true), "one"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(StreamOf(row.Document), "START a\nTEXT " + row.Text + "\nEND a\n") << row.Label;
}

TEST(ElementMemory, GivesTextsAtEveryPlaceOfALongDocument) {
    const std::string token = "<b x='1'>one &amp; two\r\n<![CDATA[three]]></b>";
    for (std::size_t size = 65400; size < 65600; ++size) {
        const std::string blanks(size, ' ');
        EXPECT_EQ(StreamOf("<a>" + blanks + token + "</a>"),
                  "START a\nSTART b x=1\nTEXT one & two\nthree\nEND b\nEND a\n")
            << size;
    }
}
