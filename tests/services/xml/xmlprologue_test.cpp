#include "services/xml/xmlprologue.h"

#include <gtest/gtest.h>

TEST(XMLPrologue, FindsTheDocumentTypeAndItsPlace) {
    const std::string before = "<?xml version='1.0'?><!-- <!DOCTYPE x> -->\n";
    const std::string type = "<!DOCTYPE List [<!-- > --> <!ELEMENT List ANY>]>";
    const TXMLPrologue prologue = ReadXMLPrologue(before + type + "\n<List>", TXMLEncoding{});
    EXPECT_EQ(prologue.DocumentType, type);
    EXPECT_EQ(prologue.DocumentTypeBegin, before.size());
    EXPECT_EQ(prologue.DocumentTypeEnd, (before + type).size());
    EXPECT_EQ(prologue.Reason, "");
}

// What follows is not looked at.
TEST(XMLPrologue, EndsAtTheFirstElement) {
    const TXMLPrologue prologue = ReadXMLPrologue("<a><!DOCTYPE x></b>", TXMLEncoding{});
    EXPECT_EQ(prologue.DocumentType, "");
    EXPECT_EQ(prologue.DocumentTypeEnd, 0U);
    EXPECT_EQ(prologue.Reason, "");
}

TEST(XMLPrologue, TellsWhyAndWhereItIsMalformed) {
    const struct {
        const char* Document;
        const char* Reason;
        std::size_t Place;
    } rows[] = {
        {"", "no element found", 0},
        {"<!-- -->", "no element found", 8},
        {"<!DOCTYPE a [ <!ENTITY b 'c'> ]>", "entity declarations are not accepted", 14},
        {"<?xml version='2.0'?><a/>", "XML version \"2.0\" is not accepted", 0},
    };
    for (const auto& row : rows) {
        const TXMLPrologue prologue = ReadXMLPrologue(row.Document, TXMLEncoding{});
        EXPECT_EQ(prologue.Reason, row.Reason) << row.Document;
        EXPECT_EQ(prologue.FailurePlace, row.Place) << row.Document;
    }
}

TEST(XMLPrologue, NamesTheRootOfADocumentType) {
    const struct {
        const char* DocumentType;
        const char* Root;
    } rows[] = {
        {"<!DOCTYPE a>", "a"},   {"<!DOCTYPE\n\ta-b SYSTEM 'x'>", "a-b"},
        {"<!DOCTYPE a[]>", "a"}, {"<!DOCTYPE a", "a"},
        {"<!DOCTYPEa>", ""},     {"<!DOCTYPE ", ""},
        {" <!DOCTYPE a>", ""},   {"", ""},
    };
    for (const auto& row : rows)
        EXPECT_EQ(GetDocumentTypeRoot(row.DocumentType), row.Root) << row.DocumentType;
}
