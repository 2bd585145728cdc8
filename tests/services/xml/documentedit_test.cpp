#include "services/xml/documentedit.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <vector>

#include "tests/services/xml/editing.h"
#include "tests/support/growth.h"
#include "tests/support/replaced.h"

namespace {

struct EditRow {
    const char* Label;
    std::string Document;
    std::string Base;
    std::string Wanted;
    std::string Expected;
};

void ExpectEdits(const std::vector<EditRow>& rows) {
    for (const EditRow& row : rows)
        EXPECT_EQ(Edited(row.Document, row.Base, row.Wanted), row.Expected) << row.Label;
}

// People's own: comments everywhere, tabs and blanks, both quotes, odd order, unknown elements.
constexpr const char* kBuild = R"(<?xml version='1.0' encoding="UTF-8"?>
<!-- the fifo -->
<!DOCTYPE List SYSTEM "list.dtd">
<List>
	<Build  Snapshot = 'fifo'
	        Library="work" >  <!-- main -->

		<!-- kept by hand -->
		<Owner mail='a@b'/>
		<Settings Language='VHDL'>
		    <Options>-93</Options>   <!-- old -->
		    <Delay > 1 </Delay>
		</Settings>
		<Group Language="VHDL" >
			<!-- packages first -->
			<Source>./pkg.vhd</Source>
			<Source Library='false'>fifo.vhd<Need>pkg.vhd</Need></Source> <!-- the top -->
			<Note/>
			<Source>
			    tb.vhd
			    <Need>fifo.vhd</Need>
			</Source>
		</Group>
	</Build>
</List>
<!-- the end -->)";

constexpr const char* kBuildStream =
    "<Build Snapshot='fifo' Library='work' Mode='1'>"
    "<Settings Language='VHDL'><Tool Name='none'>VHDL</Tool><Options>-93</Options><Delay>1</Delay>"
    "<Force>false</Force></Settings>"
    "<Group Language='VHDL'><Source Library='false'>pkg.vhd</Source>"
    "<Source Library='false'>fifo.vhd<Need>pkg.vhd</Need></Source>"
    "<Source Library='false'>tb.vhd<Need>fifo.vhd</Need></Source></Group></Build>";

struct ChangeRow {
    const char* Label;
    std::string From;  // in the stream
    std::string To;
    std::string Gone;  // in the document
    std::string Come;
};

}  // namespace

TEST(DocumentEdit, ChangesNothingWithoutADifference) {
    const TDocumentEdit edit = EditOf(kBuild, kBuildStream, kBuildStream);
    EXPECT_TRUE(edit.IsEmpty());
    EXPECT_EQ(edit.GetEdited(), kBuild);
    EXPECT_EQ(edit.GetUnifiedDiff("a"), "");
}

TEST(DocumentEdit, LeavesEverythingButTheChangeOfADocumentWrittenByHand) {
    const std::vector<ChangeRow> rows = {
        {"attribute", "Snapshot='fifo'", "Snapshot=\"it's &amp; &lt;\"", "'fifo'",
         "'it&apos;s &amp; &lt;'"},
        {"attribute that was a default", "Mode='1'", "Mode='2'", "Library=\"work\"",
         "Library=\"work\"\n\t        Mode=\"2\""},
        {"attribute that goes", " Library='work'", "", "\n\t        Library=\"work\"", ""},
        {"text", "-93", "-08 &amp; more", "-93", "-08 &amp; more"},
        {"text with blanks around it", "<Delay>1", "<Delay>2", " 1 ", " 2 "},
        {"text that goes", "<Options>-93</Options>", "<Options/>", "-93", ""},
        {"text that is empty", "-93", "<![CDATA[]]>", "-93", "<![CDATA[]]>"},
        {"element that was a default", "<Force>false", "<Force>true", " 1 </Delay>\n",
         " 1 </Delay>\n\t\t    <Force>true</Force>\n"},
        {"default in front", "Name='none'", "Name='sim'", "<Settings Language='VHDL'>\n",
         "<Settings Language='VHDL'>\n\t\t    <Tool Name=\"sim\">VHDL</Tool>\n"},
        {"element behind a comment of its line", "<Delay>1", "<Extra a='1'/><Delay>1",
         "<!-- old -->\n", "<!-- old -->\n\t\t    <Extra a=\"1\"/>\n"},
        {"element that goes", "<Delay>1</Delay>", "", "\t\t    <Delay > 1 </Delay>\n", ""},
        {"element that goes from its comment", "<Options>-93</Options>", "",
         "<Options>-93</Options>", ""},
        {"source at the end", "</Source></Group>",
         "</Source><Source>new.vhd<Need>tb.vhd</Need><Need>a</Need></Source></Group>",
         "\n\t\t</Group>",
         "\n\t\t\t<Source>new.vhd<Need>tb.vhd</Need>\n\t\t\t\t<Need>a</Need>\n\t\t\t</Source>"
         "\n\t\t</Group>"},
        {"source at the beginning", "<Source Library='false'>pkg",
         "<Source>new.vhd</Source><Source Library='false'>pkg", "<Group Language=\"VHDL\" >\n",
         "<Group Language=\"VHDL\" >\n\t\t\t<Source>new.vhd</Source>\n"},
        {"source in the midst", "<Source Library='false'>tb",
         "<Source>new.vhd</Source><Source Library='false'>tb", "<!-- the top -->\n",
         "<!-- the top -->\n\t\t\t<Source>new.vhd</Source>\n"},
        {"source of another spelling goes", "<Source Library='false'>pkg.vhd</Source>", "",
         "\t\t\t<Source>./pkg.vhd</Source>\n", ""},
        {"source gets another name", "<Source Library='false'>pkg.vhd",
         "<Source Library='false'>pack.vhd", "./pkg.vhd", "pack.vhd"},
        {"source over several lines gets another name", "'false'>tb.vhd", "'false'>top.vhd",
         "tb.vhd", "top.vhd"},
        {"attribute of a source", "<Source Library='false'>tb", "<Source Library='true'>tb",
         "<Source>\n", "<Source Library=\"true\">\n"},
        {"need", "<Need>fifo.vhd</Need>", "<Need>fifo.vhd</Need><Need>pkg.vhd</Need>",
         "<Need>fifo.vhd</Need>\n", "<Need>fifo.vhd</Need>\n\t\t\t    <Need>pkg.vhd</Need>\n"},
        {"need that goes", "<Need>fifo.vhd</Need>", "", "\t\t\t    <Need>fifo.vhd</Need>\n", ""},
        {"need that goes from behind a name", "<Need>pkg.vhd</Need>", "", "<Need>pkg.vhd</Need>",
         ""},
        {"first need", "pkg.vhd</Source>", "pkg.vhd<Need>a</Need></Source>", "pkg.vhd</Source>",
         "pkg.vhd<Need>a</Need>\n\t\t\t</Source>"},
        {"section", "</Group></Build>", "</Group><Variable Name='a'/></Build>", "\t</Build>",
         "\t\t<Variable Name=\"a\"/>\n\t</Build>"},
    };
    for (const ChangeRow& row : rows)
        EXPECT_EQ(Edited(kBuild, kBuildStream, Replaced(kBuildStream, row.From, row.To)),
                  Replaced(kBuild, row.Gone, row.Come))
            << row.Label;
}

TEST(DocumentEdit, MovesAnElementWithAllThatIsInItAndTheCommentBesideIt) {
    const std::string wanted = Replaced(
        Replaced(kBuildStream, "<Source Library='false'>fifo.vhd<Need>pkg.vhd</Need></Source>", ""),
        "<Source Library='false'>pkg",
        "<Source Library='true'>fifo.vhd<Need>x</Need></Source>"
        "<Source Library='false'>pkg");
    EXPECT_EQ(
        Edited(kBuild, kBuildStream, wanted),
        Replaced(
            Replaced(kBuild,
                     "\t\t\t<Source Library='false'>fifo.vhd<Need>pkg.vhd</Need></Source>"
                     " <!-- the top -->\n",
                     ""),
            "<Group Language=\"VHDL\" >\n",
            "<Group Language=\"VHDL\" >\n"
            "\t\t\t<Source Library='true'>fifo.vhd<Need>x</Need></Source> <!-- the top -->\n"));
}

TEST(DocumentEdit, MovesElementsInElementsThatMove) {
    EXPECT_EQ(
        Edited("<L>\n <Settings Language='A'>\n  <x/>\n  <y>1</y> <!-- y -->\n </Settings>\n"
               " <Settings Language='B'/>\n</L>",
               "<L><Settings Language='A'><x/><y>1</y></Settings><Settings Language='B'/></L>",
               "<L><Settings Language='B'/><Settings Language='A'><y>2</y><x/></Settings></L>"),
        "<L>\n <Settings Language='B'/>\n <Settings Language='A'>\n  <y>2</y> <!-- y -->\n"
        "  <x/>\n </Settings>\n</L>");
}

TEST(DocumentEdit, TakesTheLayoutOfTheNeighbours) {
    ExpectEdits({
        {"empty-element tag", "<L>\n  <P/>\n</L>\n", "<L><P/></L>", "<L><P><x/></P></L>",
         "<L>\n  <P>\n    <x/>\n  </P>\n</L>\n"},
        {"empty-element tag with a blank", "<L>\n  <P a='1' />\n</L>\n", "<L><P a='1'/></L>",
         "<L><P a='1' b='2'>t<x/></P></L>", "<L>\n  <P a='1' b='2'>t<x/>\n  </P>\n</L>\n"},
        {"text into an empty-element tag", "<L>\n<P />\n</L>", "<L><P/></L>", "<L><P>t</P></L>",
         "<L>\n<P>t</P>\n</L>"},
        {"empty element", "<L>\n  <P></P>\n</L>\n", "<L><P/></L>", "<L><P><x/></P></L>",
         "<L>\n  <P>\n    <x/>\n  </P>\n</L>\n"},
        {"blank element", "<L>\n  <P>  </P>\n</L>\n", "<L><P/></L>", "<L><P><x/></P></L>",
         "<L>\n  <P>\n    <x/>\n  </P>\n</L>\n"},
        {"element over two lines", "<L>\n  <P>\n  </P>\n</L>\n", "<L><P/></L>",
         "<L><P><x/></P></L>", "<L>\n  <P>\n    <x/>\n  </P>\n</L>\n"},
        {"element with a comment", "<L>\n  <P>\n    <!-- c -->\n  </P>\n</L>\n", "<L><P/></L>",
         "<L><P><x/></P></L>", "<L>\n  <P>\n    <!-- c -->\n    <x/>\n  </P>\n</L>\n"},
        {"text into a blank element", "<L>\n  <P>\n  </P>\n</L>\n", "<L><P/></L>",
         "<L><P>t</P></L>", "<L>\n  <P>t</P>\n</L>\n"},
        {"text and an element into a blank element", "<L>\n  <P>\n  </P>\n</L>\n", "<L><P/></L>",
         "<L><P>t<x/></P></L>", "<L>\n  <P>t<x/>\n  </P>\n</L>\n"},
        {"text and an element into an empty element", "<L>\n  <P></P>\n</L>\n", "<L><P/></L>",
         "<L><P>t<x/></P></L>", "<L>\n  <P>t<x/>\n  </P>\n</L>\n"},
        {"text and an element into blanks in a line", "<L><P> </P></L>", "<L><P/></L>",
         "<L><P>t<x/><y/></P></L>", "<L><P>t<x/><y/></P></L>"},
        {"text and an element beside a comment", "<L>\n  <P>\n    <!-- c -->\n  </P>\n</L>",
         "<L><P/></L>", "<L><P>t<x/></P></L>",
         "<L>\n  <P>t\n    <!-- c -->\n    <x/>\n  </P>\n</L>"},
        {"all in one line", "<L><P><a/></P></L>", "<L><P><a/></P></L>",
         "<L><P><a/><b>1</b></P><c><d/><e/></c></L>", "<L><P><a/><b>1</b></P><c><d/><e/></c></L>"},
        {"blanks in one line", "<L> <P/> <Q/> </L>", "<L><P/><Q/></L>", "<L><P/><x/><Q/><y/></L>",
         "<L> <P/> <x/> <Q/> <y/> </L>"},
        {"CR LF", "<L>\r\n\t<P/>\r\n</L>\r\n", "<L><P/></L>", "<L><P><x/></P><y/></L>",
         "<L>\r\n\t<P>\r\n\t\t<x/>\r\n\t</P>\r\n\t<y/>\r\n</L>\r\n"},
        {"CR LF behind the first line", "<L>\r\n</L>", "<L/>", "<L><x/></L>",
         "<L>\r\n  <x/>\r\n</L>"},
        {"lines of both kinds", "<L>\n  <P/>\r\n  <Q/>\n</L>", "<L><P/><Q/></L>",
         "<L><P/><x/><Q/><y/></L>", "<L>\n  <P/>\n  <x/>\r\n  <Q/>\r\n  <y/>\n</L>"},
        {"nothing is indented", "<L>\n<P>\n<a/>\n</P>\n</L>", "<L><P><a/></P></L>",
         "<L><P><a/></P><Q><b/></Q></L>", "<L>\n<P>\n<a/>\n</P>\n<Q>\n<b/>\n</Q>\n</L>"},
        {"the step of others where the nearest has none", "<L>\n<P/>\n<Q>\n   <a/>\n</Q>\n</L>",
         "<L><P/><Q><a/></Q></L>", "<L><P><x/></P><Q><a/></Q></L>",
         "<L>\n<P>\n   <x/>\n</P>\n<Q>\n   <a/>\n</Q>\n</L>"},
        {"the step of the nearest", "<L>\n    <P>\n     <Q/>\n    </P>\n</L>", "<L><P><Q/></P></L>",
         "<L><P><Q><x/></Q></P></L>",
         "<L>\n    <P>\n     <Q>\n      <x/>\n     </Q>\n    </P>\n</L>"},
        {"the step of the next where tabs and blanks are mixed",
         "<L>\n\t<P>\n        <Q/>\n\t</P>\n</L>", "<L><P><Q/></P></L>",
         "<L><P><Q><x/></Q></P></L>",
         "<L>\n\t<P>\n        <Q>\n        \t<x/>\n        </Q>\n\t</P>\n</L>"},
        {"attributes between others", "<L><P a='1'\n d='4'/></L>", "<L><P a='1' d='4'/></L>",
         "<L><P a='1' b='2' c='3' d='4' e='5'/></L>",
         "<L><P a='1' b='2' c='3'\n d='4'\n e='5'/></L>"},
        {"end tag behind the last child", "<L>\n  <a/></L>", "<L><a/></L>", "<L><a/><b/></L>",
         "<L>\n  <a/>\n  <b/></L>"},
        {"behind an unknown element", "<L>\n  <u/>\n</L>", "<L/>", "<L><b/></L>",
         "<L>\n  <u/>\n  <b/>\n</L>"},
        {"first of all, behind an unknown element", "<L>\n  <u/>\n  <!-- a -->\n  <a/>\n</L>",
         "<L><a/></L>", "<L><b/><a/></L>", "<L>\n  <u/>\n  <b/>\n  <!-- a -->\n  <a/>\n</L>"},
        {"two elements, then one", "<L>\n  <a/>\n  <d/>\n</L>", "<L><a/><d/></L>",
         "<L><a/><b/><c/><d/><e/></L>", "<L>\n  <a/>\n  <b/>\n  <c/>\n  <d/>\n  <e/>\n</L>"},
        {"in front of a need behind a name", "<L>\n  <Source>n<Need>a</Need>\n  </Source>\n</L>",
         "<L><Source>n<Need>a</Need></Source></L>",
         "<L><Source>n<Need>b</Need><Need>a</Need></Source></L>",
         "<L>\n  <Source>n<Need>b</Need>\n    <Need>a</Need>\n  </Source>\n</L>"},
        {"behind a need behind a name", "<L>\n  <Source>n<Need>a</Need>\n  </Source>\n</L>",
         "<L><Source>n<Need>a</Need></Source></L>",
         "<L><Source>n<Need>a</Need><Need>b</Need></Source></L>",
         "<L>\n  <Source>n<Need>a</Need>\n    <Need>b</Need>\n  </Source>\n</L>"},
    });
}

TEST(DocumentEdit, RemovesLinesAndNothingElse) {
    ExpectEdits({
        {"one of a line", "<L>\n  <a/><b/>\n</L>", "<L><a/><b/></L>", "<L><b/></L>",
         "<L>\n  <b/>\n</L>"},
        {"all of a line", "<L>\n  <a/> <b/>\n  <c/>\n</L>", "<L><a/><b/><c/></L>", "<L><c/></L>",
         "<L>\n  <c/>\n</L>"},
        {"comments around", "<L>\n  <!-- a -->\n  <a/>\n  <b/> <!-- b -->\n</L>", "<L><a/><b/></L>",
         "<L/>", "<L>\n  <!-- a -->\n   <!-- b -->\n</L>"},
        {"an element over lines", "<L>\n  <a>\n    <b/>\n  </a>  \n</L>", "<L><a><b/></a></L>",
         "<L/>", "<L>\n</L>"},
        {"CR LF", "<L>\r\n  <a/>\r\n</L>", "<L><a/></L>", "<L/>", "<L>\r\n</L>"},
        {"all behind a text", "<L>\n<Source>n<Need>a</Need>\n  <Need>b</Need>\n</Source>\n</L>",
         "<L><Source>n<Need>a</Need><Need>b</Need></Source></L>", "<L><Source>n</Source></L>",
         "<L>\n<Source>n</Source>\n</L>"},
        {"the first behind a text",
         "<L>\n<Source>n<Need>a</Need>\n  <Need>b</Need>\n</Source>\n</L>",
         "<L><Source>n<Need>a</Need><Need>b</Need></Source></L>",
         "<L><Source>n<Need>b</Need></Source></L>",
         "<L>\n<Source>n<Need>b</Need>\n</Source>\n</L>"},
        {"what is not there", "<L>\n  <a/>\n</L>", "<L><a/><b/></L>", "<L><a/></L>",
         "<L>\n  <a/>\n</L>"},
        {"a list with its last entry",
         "<L>\n <Directories>\n  <Directory>a</Directory>\n </Directories>\n</L>",
         "<L><Directories><Directory>a</Directory><Directory>default</Directory></Directories></L>",
         "<L><Directories><Directory>default</Directory></Directories></L>", "<L>\n</L>"},
        {"a list that changes and goes",
         "<L>\n <Directories a='1'>\n  <Directory>a</Directory>\n </Directories>\n</L>",
         "<L><Directories a='1'><Directory>a</Directory><Directory>b</Directory></Directories></L>",
         "<L><Directories a='2'><Directory>b</Directory></Directories></L>", "<L>\n</L>"},
        {"a list that has more",
         "<L>\n <Directories>\n  <Directory>a</Directory>\n  <other/>\n </Directories>\n</L>",
         "<L><Directories><Directory>a</Directory><Directory>b</Directory></Directories></L>",
         "<L><Directories><Directory>b</Directory></Directories></L>",
         "<L>\n <Directories>\n  <other/>\n </Directories>\n</L>"},
    });
}

TEST(DocumentEdit, FindsElementsByTheirIdentity) {
    ExpectEdits({
        {"another order", "<L><Variable Name='b' V='1'/><Variable Name='a' V='2'/></L>",
         "<L><Variable Name='a' V='2'/><Variable Name='b' V='1'/></L>",
         "<L><Variable Name='a' V='3'/><Variable Name='b' V='1'/></L>",
         "<L><Variable Name='b' V='1'/><Variable Name='a' V='3'/></L>"},
        {"attribute and text", "<L><Tool Name='s'>A</Tool><Tool Name='s'>B</Tool></L>",
         "<L><Tool Name='s'>A</Tool><Tool Name='s'>B</Tool></L>",
         "<L><Tool Name='s'>A</Tool><Tool Name='s' P='1'>B</Tool></L>",
         "<L><Tool Name='s'>A</Tool><Tool Name='s' P='1'>B</Tool></L>"},
        {"a value given twice", "<L><Options>a</Options><u/><Options>b</Options></L>",
         "<L><Options>b</Options></L>", "<L><Options>c</Options></L>",
         "<L><Options>c</Options><u/><Options>c</Options></L>"},
        {"an attribute of a value given twice",
         "<L><Options a='1'>x</Options><u/><Options a='1'>x</Options></L>",
         "<L><Options a='1'>x</Options></L>", "<L><Options>x</Options></L>",
         "<L><Options>x</Options><u/><Options>x</Options></L>"},
        {"a source listed twice that moves and changes",
         "<L><Source>a</Source><Source>b</Source><Source>./b</Source></L>",
         "<L><Source>a</Source><Source>b</Source></L>",
         "<L><Source x='1'>b</Source><Source>a</Source></L>",
         "<L><Source x=\"1\">b</Source><Source>a</Source></L>"},
        {"a value under an older name", "<L><Switches>a</Switches><u/></L>",
         "<L><Options>a</Options></L>", "<L><Options>b</Options></L>",
         "<L><Switches>b</Switches><u/></L>"},
        {"a source listed twice", "<L><Source>a</Source><Source>./a</Source><Source>b</Source></L>",
         "<L><Source>a</Source><Source>b</Source></L>", "<L><Source>b</Source></L>",
         "<L><Source>b</Source></L>"},
        {"several of one identity", "<L><Source>a</Source><Source a='1'>a</Source></L>",
         "<L><Source>a</Source><Source a='1'>a</Source></L>",
         "<L><Source>a</Source><Source a='2'>a</Source></L>",
         "<L><Source>a</Source><Source a='2'>a</Source></L>"},
        {"the third without a rule", "<L><x/><u/><x/><x/></L>", "<L><x/><x/><x/></L>",
         "<L><x/><x/><x a='1'/></L>", "<L><x/><u/><x/><x a=\"1\"/></L>"},
        {"a section in two parts",
         "<L><Group Language='A'><Source>a</Source></Group><Group Language='B'/>"
         "<Group Language='A'><Source>b</Source></Group></L>",
         "<L><Group Language='A'><Source>a</Source><Source>b</Source></Group>"
         "<Group Language='B'/></L>",
         "<L><Group Language='A'><Source x='1'>b</Source><Source>c</Source></Group>"
         "<Group Language='B'/></L>",
         "<L><Group Language='A'></Group><Group Language='B'/>"
         "<Group Language='A'><Source x=\"1\">b</Source><Source>c</Source></Group></L>"},
        {"a section deeper than usual",
         "<L><Deep><Group Language='A'><Source>a</Source></Group></Deep></L>",
         "<L><Group Language='A'><Source>a</Source></Group></L>",
         "<L><Group Language='A'><Source>b</Source></Group></L>",
         "<L><Deep><Group Language='A'><Source>b</Source></Group></Deep></L>"},
        {"references", "<L><Source>a&amp;&#98;</Source></L>", "<L><Source>a&amp;b</Source></L>",
         "<L><Source x='1'>a&amp;b</Source></L>", "<L><Source x=\"1\">a&amp;&#98;</Source></L>"},
        {"names of attributes with references", "<L><Variable Name='a&#10;b'/></L>",
         "<L><Variable Name='a&#10;b'/></L>", "<L><Variable Name='a&#10;b' V='1'/></L>",
         "<L><Variable Name='a&#10;b' V='1'/></L>"},
    });
}

TEST(DocumentEdit, PutsWhatStandsBesideTheRootInAStreamIntoTheRoot) {
    TXMLList base;
    TXMLList wanted;
    for (TXMLList* list : {&base, &wanted}) list->SetDocumentType("<!DOCTYPE List>");
    ReadStream("<List><Build/></List>", &base);
    ReadStream("<List><Build/><Variable Name='a'/></List>", &wanted);
    TDocumentEdit edit;
    EXPECT_TRUE(edit.Find("<List><Build/></List>", base, wanted, MakeTestRules()));
    EXPECT_EQ(edit.GetEdited(), "<List><Build/><Variable Name=\"a\"/></List>");
    EXPECT_TRUE(edit.Find("<Build/>", base, wanted, MakeTestRules()));
    EXPECT_EQ(edit.GetEdited(), "<Build><Variable Name=\"a\"/></Build>");
}

TEST(DocumentEdit, TakesStreamsAsTheyAreWritten) {
    TXMLList base;
    ReadStream("<L/>", &base);
    TXMLList wanted;
    wanted.Push(TElement::START, "L", {});
    wanted.Push(TElement::END, "stray", {});
    wanted.Push(TElement::START, "a", {});
    wanted.Push(TElement::START, "unclosed", {});
    wanted.Push(TElement::END, "a", {});
    wanted.Push(TElement::START, "b", {});
    TDocumentEdit edit;
    EXPECT_TRUE(edit.Find("<L/>", base, wanted, MakeTestRules()));
    EXPECT_EQ(edit.GetEdited(), "<L><a><unclosed/></a><b/></L>");
}

TEST(DocumentEdit, InsertsOnlyWhatChanges) {
    const std::string document = "<L>\n  <x/>\n</L>\n";
    const std::string base =
        "<L><Settings Language='A' b='1' c='2'><o>1</o><p>2</p><Directories><Directory>d"
        "</Directory></Directories></Settings></L>";
    ExpectEdits({
        {"text", document, base, Replaced(base, ">2<", ">3<"),
         "<L>\n  <x/>\n  <Settings Language=\"A\">\n    <p>3</p>\n  </Settings>\n</L>\n"},
        {"attribute", document, base, Replaced(base, "'2'", "'3'"),
         "<L>\n  <x/>\n  <Settings Language=\"A\" c=\"3\"/>\n</L>\n"},
        {"a list comes whole", document, base,
         Replaced(base, "</Directories>", "<Directory>e</Directory></Directories>"),
         "<L>\n  <x/>\n  <Settings Language=\"A\">\n    <Directories>\n"
         "      <Directory>d</Directory>\n      <Directory>e</Directory>\n"
         "    </Directories>\n  </Settings>\n</L>\n"},
        {"what tells it apart", document, "<L><Tool Name='s' Path='' b='1'>V</Tool></L>",
         "<L><Tool Name='s' Path='p' b='1'>V</Tool></L>",
         "<L>\n  <x/>\n  <Tool Name=\"s\" Path=\"p\">V</Tool>\n</L>\n"},
        {"another one comes whole", document, "<L><Tool Name='s' Path='' b='1'>V</Tool></L>",
         "<L><Tool Name='t' Path='' b='1'>V</Tool></L>",
         "<L>\n  <x/>\n  <Tool Name=\"t\" Path=\"\" b=\"1\">V</Tool>\n</L>\n"},
        {"nothing for what goes", document, base, Replaced(base, "<o>1</o>", ""),
         "<L>\n  <x/>\n  <Settings Language=\"A\"/>\n</L>\n"},
    });
    TXMLEditRules whole = MakeTestRules();
    whole.InsertsWhole = true;
    EXPECT_EQ(Edited(document, base, Replaced(base, ">2<", ">3<"), whole),
              "<L>\n  <x/>\n  <Settings Language=\"A\" b=\"1\" c=\"2\">\n    <o>1</o>\n"
              "    <p>3</p>\n    <Directories>\n      <Directory>d</Directory>\n"
              "    </Directories>\n  </Settings>\n</L>\n");
}

TEST(DocumentEdit, ReplacesTextsAmongCommentsAndSections) {
    ExpectEdits({
        {"CDATA", "<L><x><![CDATA[a & b]]></x></L>", "<L><x>a &amp; b</x></L>",
         "<L><x>&lt;c&gt;</x></L>", "<L><x>&lt;c&gt;</x></L>"},
        {"parts", "<L><x>a<!-- 1 -->b<?p i?><![CDATA[c]]> </x></L>", "<L><x>abc </x></L>",
         "<L><x>d</x></L>", "<L><x>d<!-- 1 --><?p i?></x></L>"},
        {"comments that look like texts", "<L><x> <!-- <y> a --> a <!--]]>--> </x></L>",
         "<L><x>a</x></L>", "<L><x>b</x></L>", "<L><x> <!-- <y> a --> b <!--]]>--> </x></L>"},
        {"a blank text", "<L><x>a</x></L>", "<L><x>a</x></L>", "<L><x>&#32; </x></L>",
         "<L><x>&#32; </x></L>"},
        {"attributes that look like tags", "<L><x a='/>' b=\">\">a</x></L>",
         "<L><x a='/>' b='>'>a</x></L>", "<L><x a='/>' b='&quot;'>b</x></L>",
         "<L><x a='/>' b=\"&quot;\">b</x></L>"},
    });
}

// The dropped root, a mark and a document type are no elements of the list.
TEST(DocumentEdit, KnowsTheElementsOfADocumentThatAListRead) {
    const std::string type = "<!DOCTYPE L SYSTEM 'l.dtd'>";
    const std::string document = type + "<!-- <a> --><L>\n<a/>\n<b>1</b>\n</L><!-- </L> -->";
    for (const std::string mark : {"", "\xEF\xBB\xBF"}) {
        TDocumentEdit edit;
        TXMLList list;
        list.SetDocumentType(type.c_str());
        ASSERT_TRUE(edit.Read(mark + document, &list, nullptr));
        EXPECT_EQ(list.GetCount(), 5u);
        TXMLList base;
        TXMLList wanted;
        base.Push(TElement::START, "b", {});
        base.Push(TElement::TEXT, {}, "1");
        base.Push(TElement::END, "b", {});
        wanted.PushTextElement("b", "2");
        wanted.PushTextElement("c", "3");
        ASSERT_TRUE(edit.Find(base, wanted, MakeTestRules())) << edit.GetReason();
        EXPECT_EQ(edit.GetDocument(), mark + document);
        const TDocumentEdit copy = edit;
        EXPECT_EQ(copy.GetEdited(), mark + type +
                                        "<!-- <a> --><L>\n<a/>\n<b>2</b>\n<c>3</c>\n</L>"
                                        "<!-- </L> -->");
    }
}

TEST(DocumentEdit, KeepsADocumentThatNoListCanRead) {
    TDocumentEdit edit;
    TXMLList list;
    TXMLReadError error;
    EXPECT_FALSE(edit.Read("<L><a></L>", &list, &error));
    EXPECT_EQ(error.Reason, "mismatched tag: element \"a\" of line 1 is still open");
    EXPECT_EQ(edit.GetDocument(), "<L><a></L>");
    EXPECT_FALSE(edit.Find(list, list, MakeTestRules()));
    EXPECT_EQ(edit.GetReason(), "mismatched tag");
}

TEST(DocumentEdit, RefusesWhatNoDocumentCanHold) {
    EXPECT_EQ(Edited("<L>", "<L/>", "<L a='1'/>"), "refused: no element found");
    // A reader takes it.
    EXPECT_EQ(Edited("<!DOCTYPE L SYSTEM 'l.dtd'>", "<L/>", "<L><a/></L>"),
              "refused: no element found");
    EXPECT_EQ(Edited("<L/>", "<L/>", ""), "refused: a document cannot be without its root");
    EXPECT_EQ(Edited("<a><b></a>", "<L/>", "<L/>"), "refused: mismatched tag");
    TXMLList base;
    TXMLList wanted;
    base.Push(TElement::START, "L", {});
    wanted.Push(TElement::START, "L", {});
    wanted.Push(TElement::TEXT, {}, "\x01");
    TDocumentEdit edit;
    EXPECT_FALSE(edit.Find("<L/>", base, wanted, MakeTestRules()));
    EXPECT_EQ(edit.GetReason(), "no document can hold the character U+0001");
    EXPECT_TRUE(edit.IsEmpty());
    wanted.Flush(1);
    wanted.Push(TElement::START, "L", {});
    wanted.Push(TElement::START, "a b", {});
    EXPECT_FALSE(edit.Find("<L/>", base, wanted, MakeTestRules()));
    EXPECT_EQ(edit.GetReason(), "\"a b\" cannot be a name in the document");
}

TEST(DocumentEdit, TakesTimeInProportionToTheDocument) {
    struct TCase {
        const char* Label;
        int Stays, Goes, Comes, Turns;  // one in so many sources; 0: none
    };
    constexpr TCase kCases[] = {
        {"all come", 0, 0, 1, 0},         {"all go", 0, 1, 0, 0},
        {"one in two comes", 1, 0, 2, 0}, {"one in two goes", 2, 1, 0, 0},
        {"all turn round", 1, 0, 0, 1},
    };
    for (const TCase& each : kCases) {
        const auto edit = [&each](int size) {
            std::string base;
            std::vector<std::string> sources;
            for (int i = 0; i < size; ++i) {
                const std::string source = "<Source>s" + std::to_string(i) + "</Source>\n";
                const bool stays = each.Stays != 0 && i % each.Stays == 0;
                if (stays || each.Goes != 0) base += source;
                if (stays) sources.push_back(source);
                if (each.Comes != 0 && i % each.Comes == 0)
                    sources.push_back("<Source>new" + std::to_string(i) + "</Source>\n");
            }
            if (each.Turns != 0) std::reverse(sources.begin(), sources.end());
            std::string wanted;
            for (const std::string& source : sources) wanted += source;
            const std::string begin = "<L>\n<Group Language='A'>\n<u/>\n";
            const std::string end = "</Group>\n</L>";
            EXPECT_EQ(Edited(begin + base + end, begin + base + end, begin + wanted + end),
                      begin + wanted + end)
                << each.Label;
        };
        EXPECT_LT(GrowthOf(edit, 1500), kLargestLinearGrowth) << each.Label;
    }
}

TEST(DocumentEdit, RemovesListsThatADocumentHasSeveralTimesInTimeInProportion) {
    const auto edit = [](int size) {
        std::string document = "<L>\n";
        std::string directories;
        for (int i = 0; i < size; ++i) {
            const std::string directory = "<Directory>" + std::to_string(i) + "</Directory>";
            document += "<Directories>" + directory + "</Directories>\n";
            directories += directory;
        }
        EXPECT_EQ(Edited(document + "</L>", "<L><Directories>" + directories + "</Directories></L>",
                         "<L><Directories/></L>"),
                  "<L>\n</L>");
    };
    EXPECT_LT(GrowthOf(edit, 4000), kLargestLinearGrowth);
}
