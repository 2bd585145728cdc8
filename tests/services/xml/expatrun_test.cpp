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
