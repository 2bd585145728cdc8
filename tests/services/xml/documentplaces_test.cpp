#include "services/xml/documentplaces.h"

#include <gtest/gtest.h>

#include "services/xml/xmlreader.h"

namespace {

/// A line for each element: its depth as blanks, its start tag, its content and its end tag,
/// parted by bars.
std::string PlacesOf(const std::string& text) {
    TDocumentPlaces places;
    if (!places.Read(text)) return "refused: " + places.GetReason();
    std::string lines;
    for (TDocumentPlaces::TIndex i = 0; i < places.GetCount(); ++i) {
        const TDocumentPlaces::TPlace& place = places[i];
        for (auto outer = place.Parent; outer != TDocumentPlaces::kNone;
             outer = places[outer].Parent)
            lines += "  ";
        const auto part = [&](std::size_t begin, std::size_t end) {
            return text.substr(begin, end - begin);
        };
        lines += part(place.Begin, place.ContentBegin) + "|" +
                 part(place.ContentBegin, place.ContentEnd) + "|" +
                 part(place.ContentEnd, place.End) + (place.IsEmptyTag() ? " empty" : "") + "\n";
    }
    return lines;
}

}  // namespace

TEST(DocumentPlaces, AreThoseOfTagsAndContents) {
    EXPECT_EQ(PlacesOf("<?xml version='1.0' encoding='UTF-16'?><!-- <x> --><a b='>'>\xC3\xA9<c />"
                       "<d></d ><e\n><f/>g</e></a>\n"),
              "<a b='>'>|\xC3\xA9<c /><d></d ><e\n><f/>g</e>|</a>\n"
              "  <c />|| empty\n"
              "  <d>||</d >\n"
              "  <e\n>|<f/>g|</e>\n"
              "    <f/>|| empty\n");
}

TEST(DocumentPlaces, LinkChildrenInOrder) {
    TDocumentPlaces places;
    ASSERT_TRUE(places.Read("<a><b><c/></b><d/><e/></a>"));
    EXPECT_EQ(places.GetChildren(0), (std::vector<TDocumentPlaces::TIndex>{1, 3, 4}));
    EXPECT_EQ(places.GetChildren(2), std::vector<TDocumentPlaces::TIndex>());
    EXPECT_EQ(places.GetName(3), "d");
    EXPECT_EQ(places[0].LastChild, 4U);
    EXPECT_LE(sizeof(TDocumentPlaces::TPlace), 50U);
}

TEST(DocumentPlaces, SayWhyADocumentIsRefused) {
    EXPECT_EQ(PlacesOf("<a><b></a>"), "refused: mismatched tag");
    EXPECT_EQ(PlacesOf(""), "refused: no element found");
    EXPECT_EQ(PlacesOf("<!DOCTYPE a [<!ENTITY b 'c'>]><a/>"),
              "refused: entity declarations are not accepted");
    EXPECT_EQ(PlacesOf("<!DOCTYPE a [<!ELEMENT b ANY>]><a>&b;</a>"), "refused: undefined entity");
    std::string deep;
    for (std::size_t i = 0; i < kMaxXMLNesting + 2; ++i) deep += "<a>";
    EXPECT_EQ(PlacesOf(deep), "refused: more elements than can be edited");
}
