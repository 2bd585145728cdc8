#include "services/xml/tagtext.h"

#include <gtest/gtest.h>

namespace {

std::string AttributesOf(const std::string& tag) {
    std::string lines;
    for (const TAttributePlace& attribute : FindAttributes(tag, 0)) {
        const std::string value(attribute.Value);
        lines += "[" +
                 tag.substr(attribute.BlankBegin, attribute.NameBegin - attribute.BlankBegin) +
                 "]" + std::string(attribute.Name) + ":" + tag[attribute.ValueEnd] + value + ":" +
                 GetAttributeText(value) + "\n";
    }
    return lines;
}

std::string PiecesOf(const std::string& text) {
    std::string lines;
    for (const TTextPiece& piece : FindTextPieces(text, 0, text.size()))
        lines += text.substr(piece.Begin, piece.End - piece.Begin) + ":" +
                 GetPieceText(text, piece) + "\n";
    return lines;
}

}  // namespace

TEST(TagText, FindsAttributes) {
    EXPECT_EQ(AttributesOf("<a>b='c'"), "");
    EXPECT_EQ(AttributesOf("<a/>"), "");
    EXPECT_EQ(AttributesOf("<a b='\"/>'\n\tc = \"it's\" d\r\n=\"\"/>"),
              "[ ]b:'\"/>:\"/>\n[\n\t]c:\"it's:it's\n[ ]d:\":\n");
    EXPECT_EQ(AttributesOf("<a b=' &lt;&gt;&amp;&quot;&apos;&#65;&#x1d11E; \t\r\n.\r.&#10;'>"),
              "[ ]b:' &lt;&gt;&amp;&quot;&apos;&#65;&#x1d11E; \t\r\n.\r.&#10;: <>&\"'A"
              "\xF0\x9D\x84\x9E   . .\n\n");
}

TEST(TagText, FindsThePiecesOfAText) {
    EXPECT_EQ(PiecesOf(""), "");
    EXPECT_EQ(PiecesOf("a&amp;<!--b-->\r\n<![CDATA[c&amp;<]]><?d e?>f"),
              "a&amp;:a&\n\r\n:\n\n<![CDATA[c&amp;<]]>:c&amp;<\nf:f\n");
    EXPECT_EQ(PiecesOf("<![CDATA[]]>"), "<![CDATA[]]>:\n");
}
