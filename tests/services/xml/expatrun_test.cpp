#include "services/xml/expatrun.h"

#include <gtest/gtest.h>

TEST(ExpatRun, TellsWhetherADocumentIsWellFormed) {
    for (const char* document : {"<a/>", "<a b='c'>d<e/></a>\n", "<?xml version='1.0'?><a/>"})
        EXPECT_TRUE(IsWellFormed(document)) << document;
    for (const char* document : {"", "a", "<a>", "<a></b>", "<a/><b/>", "<a b/>"})
        EXPECT_FALSE(IsWellFormed(document)) << document;
}

TEST(ExpatRun, TellsWhyAndWhereADocumentFailedHoweverItIsFed) {
    for (const std::size_t first : {0U, 1U, 4U, 7U}) {
        TExpatRun run(TXMLEncoding{}, nullptr);
        const std::string_view document = "<a>\n<b></a>";
        const bool isRead =
            run.Feed(document.substr(0, first), false) && run.Feed(document.substr(first), true);
        EXPECT_FALSE(isRead);
        EXPECT_EQ(run.GetReason(), "mismatched tag") << first;
        EXPECT_EQ(run.GetFailurePlace(), 9U) << first;
    }
}

TEST(ExpatRun, KeepsTheReasonOfItsHandler) {
    TExpatRun run(TXMLEncoding{}, &run);
    XML_SetStartElementHandler(run.GetParser(),
                               [](void* self, const XML_Char* name, const XML_Char**) {
                                   if (*name == 'b')
                                       static_cast<TExpatRun*>(self)->Refuse("no b here");
                               });
    EXPECT_FALSE(run.Feed("<a> <b/></a>", true));
    EXPECT_EQ(run.GetReason(), "no b here");
    EXPECT_EQ(run.GetFailurePlace(), 4U);
    EXPECT_EQ(run.GetError(), XML_ERROR_ABORTED);
}

TEST(ExpatRun, FailsWithoutAReasonWhenItIsStopped) {
    TExpatRun run(TXMLEncoding{}, &run);
    XML_SetStartElementHandler(run.GetParser(), [](void* self, const XML_Char*, const XML_Char**) {
        static_cast<TExpatRun*>(self)->Stop();
    });
    EXPECT_FALSE(run.Feed("<a>&<", true));
    EXPECT_EQ(run.GetReason(), "");
}

TEST(ExpatRun, ReadsLongTokensInPartsAsAtATime) {
    std::string document = "<a>";
    for (const std::size_t size : {10U, 70000U, 5U, 1000000U, 100000U})
        document += "<!--" + std::string(size, 'c') + "-->" + std::string(size, 't') + "<b x='" +
                    std::string(size, 'v') + "'/>";
    document += "</a>";
    const auto read = [&](bool inParts) {
        std::string found;
        TExpatRun run(TXMLEncoding{}, &found);
        XML_SetElementHandler(
            run.GetParser(),
            [](void* text, const XML_Char* name, const XML_Char** attributes) {
                *static_cast<std::string*>(text) += name;
                if (*attributes) *static_cast<std::string*>(text) += attributes[1];
            },
            nullptr);
        XML_SetCharacterDataHandler(
            run.GetParser(), [](void* text, const XML_Char* data, int size) {
                static_cast<std::string*>(text)->append(data, static_cast<std::size_t>(size));
            });
        EXPECT_TRUE(inParts ? run.Feed(document, false) && run.Feed("", true)
                            : run.Feed(document, true));
        EXPECT_EQ(run.GetReason(), "");
        return found;
    };
    std::string expected = "a";
    for (const std::size_t size : {10U, 70000U, 5U, 1000000U, 100000U})
        expected += std::string(size, 't') + "b" + std::string(size, 'v');
    EXPECT_EQ(read(true), expected);
    EXPECT_EQ(read(false), expected);
}

TEST(ExpatRun, ParsesWhatItCopied) {
    TExpatRun run(TXMLEncoding{}, nullptr);
    ASSERT_TRUE(run.Feed("<a>\n", false));
    std::string rest = "<b/></c>";
    const std::string_view copy = run.Copy(rest);
    EXPECT_EQ(copy, rest);
    rest = "gone";
    EXPECT_FALSE(run.ParseCopy(copy, true));
    EXPECT_EQ(run.GetReason(), "mismatched tag");
    EXPECT_EQ(run.GetFailurePlace(), 10U);
    EXPECT_EQ(copy, "<b/></c>");
}
