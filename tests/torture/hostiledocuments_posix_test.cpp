#include "tests/support/temporaryfolder.h"
#include "tests/torture/measuredtool_posix.h"
#include "tests/torture/tally.h"
#include <algorithm>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {

const std::string kBegin =
    "<HdlBuildFileList><HdlBuildFile TopLevelLanguage=\"VHDL\" DestinationLibrary=\"work\">";
const std::string kEnd = "</HdlBuildFile></HdlBuildFileList>\n";
const std::string kSubset = "<!DOCTYPE HdlBuildFileList [";

std::string WithElement(const std::string& content) {
    return kBegin + "<X>" + content + "</X>" + kEnd;
}

std::string Repeated(std::size_t count, const std::string& text) {
    std::string all;
    all.reserve(count * text.size());
    for (std::size_t number = 0; number < count; ++number) all += text;
    return all;
}

/// In UTF-16, the lowest byte first, with its mark.
std::string Utf16(const std::string& ascii) {
    std::string text = "\xFF\xFE";
    for (const char c : ascii) text += {c, '\0'};
    return text;
}

/// Entities that stand for ten of the one before.
std::string NestedEntities() {
    std::string text = kSubset + "<!ENTITY a0 'aaaaaaaaaa'>";
    for (int number = 1; number < 12; ++number)
        text += "<!ENTITY a" + std::to_string(number) + " '" +
                Repeated(10, "&a" + std::to_string(number - 1) + ";") + "'>";
    return text + "]>" + WithElement("&a11;");
}

/// A document of a size, and what memory its reading may take.
struct TShape {
    const char* Label;
    std::string (*Make)(std::size_t count);
    std::size_t EventBytes = 0;  ///< for each of the count; 0: eight times the document
    int Status = 0;
    const char* Complaint = "";  ///< at the end of the errors
    const char* Command = "show";
    std::size_t FullCount = 1'000'000;  ///< of the whole torture; twice as many are tried, too
};

/// Tens of bytes, of which twice as many are nearly as large a file as is read.
constexpr std::size_t kHalfGigabyte = 50'000'000;

/// Sources that depend on the ones of the numbers that `needOf` gives, out of as many.
template <class Need>
std::string SourcesWithNeeds(std::size_t count, Need needOf) {
    std::string text = kBegin + "<SourceFileGroup Language=\"VHDL\">";
    for (std::size_t number = 0; number < count; ++number)
        text += "<SourceFile>rtl/f" + std::to_string(number) + ".vhd<Dependency>rtl/f" +
                std::to_string(needOf(number)) + ".vhd</Dependency></SourceFile>";
    return text + "</SourceFileGroup>" + kEnd;
}

/// The sources are not there: a problem, which the status tells.
constexpr int kMissing = 1;

const TShape kShapes[] = {
    {"nested elements",
     [](std::size_t count) {
         return kBegin + Repeated(count, "<X>") + Repeated(count, "</X>") + kEnd;
     },
     0, 3, ": elements are nested deeper than 512\n"},
    {"siblings", [](std::size_t count) { return kBegin + Repeated(count, "<X/>") + kEnd; }, 128},
    {"attributes",
     [](std::size_t count) {
         std::string text;
         for (std::size_t number = 0; number < 3 * count; ++number)
             text += " a" + std::to_string(number) + "=\"\"";
         return kBegin + "<X" + text + "/>" + kEnd;
     },
     0, 3, ": an element has more than 65536 attributes\n"},
    {"a long attribute",
     [](std::size_t count) {
         return kBegin + "<X A=\"" + Repeated(count, "0123456789") + "\"/>" + kEnd;
     },
     0, 0, "", "show", kHalfGigabyte},
    {"a long text", [](std::size_t count) { return WithElement(Repeated(count, "0123456789")); }, 0,
     0, "", "show", kHalfGigabyte},
    {"a long name",
     [](std::size_t count) { return kBegin + "<X" + Repeated(count, "0123456789") + "/>" + kEnd; },
     0, 0, "", "show", kHalfGigabyte},
    {"a long comment",
     [](std::size_t count) {
         return kBegin + "<!--" + Repeated(count, "0123456789") + "-->" + kEnd;
     },
     0, 0, "", "show", kHalfGigabyte},
    {"short sources",
     [](std::size_t count) {
         std::string text = kBegin + "<SourceFileGroup Language=\"VHDL\">";
         for (std::size_t number = 0; number < count; ++number)
             text +=
                 "<SourceFile>" + std::to_string(1'000'000'000 + number) + ".vhd</SourceFile>\n";
         return text + "</SourceFileGroup>" + kEnd;
     },
     // A million take less than eight times the document where the folder's path is short.
     360, kMissing, "", "order"},
    {"sources in a ring",
     [](std::size_t count) {
         return SourcesWithNeeds(count, [count](std::size_t of) { return (of + 1) % count; });
     },
     0, kMissing, "the dependencies have 1 cycle; 'hdlbuild check' shows them\n", "order"},
    {"sources in a chain",
     [](std::size_t count) {
         return SourcesWithNeeds(count, [](std::size_t of) { return of + 1; });
     },
     0, kMissing, "", "order"},
    {"sources on a thousand",
     [](std::size_t count) {
         return SourcesWithNeeds(count, [](std::size_t of) { return of % 1000; });
     },
     0, kMissing, "", "order"},
};

}  // namespace

TEST(HostileDocuments, AreRefusedWithAPlaceAndAReason) {
    const struct {
        const char* Label;
        std::string Document;
        const char* Complaint;  ///< "" for one that is read
    } rows[] = {
        {"nothing", "", "1:1: no element found"},
        {"two roots", kBegin + kEnd + "<a/>", "2:1: junk after document element"},
        {"text behind the root", kBegin + kEnd + "text", "2:1: junk after document element"},
        {"nested entities", NestedEntities(), "1:29: entity declarations are not accepted"},
        {"one long entity",
         kSubset + "<!ENTITY a '" + std::string(10000, 'a') + "'>]>" +
             WithElement(Repeated(10000, "&a;")),
         "1:29: entity declarations are not accepted"},
        {"parameter entities",
         kSubset + "<!ENTITY % a \"<!ENTITY b 'x'>\"> %a; %a;]>" + WithElement("&b;"),
         "1:29: entity declarations are not accepted"},
        {"an external entity",
         kSubset + "<!ENTITY a SYSTEM \"/etc/passwd\">]>" + WithElement("&a;"),
         "1:29: entity declarations are not accepted"},
        {"an external subset", "<!DOCTYPE HdlBuildFileList SYSTEM \"/etc/passwd\">" + kBegin + kEnd,
         ""},
        {"character 0", WithElement("&#0;"), "1:86: reference to invalid character number"},
        {"a surrogate", WithElement("&#xD800;"), "1:86: reference to invalid character number"},
        {"behind Unicode", WithElement("&#x110000;"),
         "1:86: reference to invalid character number"},
        {"no character", WithElement("&#xFFFE;"), "1:86: reference to invalid character number"},
        {"no number", WithElement("&#;"), "1:88: not well-formed (invalid token)"},
        {"an unknown entity", WithElement("&a;"), "1:86: undefined entity"},
        {"a zero", WithElement(std::string(1, '\0')), "1:86: not well-formed (invalid token)"},
        {"UTF-16 with half a character",
         Utf16(kBegin + "<X>") + std::string("\x00\xD8", 2) + Utf16("</X>" + kEnd).substr(2),
         "1:171: not well-formed (invalid token)"},
        {"UTF-16 that is none", "<?xml version=\"1.0\" encoding=\"UTF-16\"?>" + kBegin + kEnd,
         "1:31: encoding specified in XML declaration is incorrect"},
        {"UTF-8 that is none", Utf16("<?xml version=\"1.0\" encoding=\"UTF-8\"?>" + kBegin + kEnd),
         "1:61: encoding specified in XML declaration is incorrect"},
        {"ASCII that is none",
         "<?xml version=\"1.0\" encoding=\"US-ASCII\"?>" + WithElement("\xE4"),
         "1:127: not well-formed (invalid token)"},
        // What is no UTF-8 is Latin-1.
        {"a byte that goes on", WithElement("\x80"), ""},
        {"a byte that begins", WithElement("\xC3"), ""},
        {"a form that is too long", WithElement("\xC0\x80"), ""},
        {"half a form", WithElement("\xE2\x82"), ""},
        {"a surrogate in UTF-8", WithElement("\xED\xA0\x80"), ""},
        {"a form behind Unicode", WithElement("\xF4\x90\x80\x80"), ""},
        {"a byte of no form", WithElement("\xFF"), ""},
    };
    const TemporaryFolder folder;
    TTally tally("hostile document");
    for (const auto& row : rows) {
        const std::string path = folder.Write("build.xml", row.Document);
        const TMeasuredCall call = CallTool({"show", path});
        const bool isRead = *row.Complaint == '\0';
        const std::string expected =
            isRead ? "" : "hdlbuild: error: " + path + ":" + row.Complaint + "\n";
        tally.Count(call.Status == (isRead ? 0 : 3) && call.Errors == expected);
        EXPECT_EQ(call.Status, isRead ? 0 : 3) << row.Label;
        EXPECT_EQ(call.Errors, expected) << row.Label;
        EXPECT_EQ(folder.Read("build.xml"), row.Document) << row.Label;
        EXPECT_EQ(folder.List(), "build.xml\n") << row.Label;
    }
}

TEST(HostileDocuments, AreNoFiles) {
    const TemporaryFolder folder;
    folder.Write("folder/file", "");
    ASSERT_EQ(mkfifo(folder.Path("fifo").c_str(), 0600), 0);
    const struct {
        std::string Path;
        const char* Complaint;
    } rows[] = {{folder.Path("folder"), ": Is a directory"},
                {folder.Path("fifo"), ": not a regular file"},
                {"/dev/zero", ": not a regular file"},
                {"/dev/null", ": not a regular file"},
                {folder.Path("none"), ": the file does not exist"}};
    TTally tally("no file");
    for (const auto& row : rows) {
        const TMeasuredCall call = CallTool({"show", row.Path});
        const std::string expected = "hdlbuild: error: " + row.Path + row.Complaint + "\n";
        tally.Count(call.Status == 3 && call.Errors == expected);
        EXPECT_EQ(call.Status, 3) << row.Path;
        EXPECT_EQ(call.Errors, expected);
    }
}

// Memory in proportion to the document, and time as well: twice the size takes 2.5 times as long at
// most, or less than 0.3 s.
TEST(HostileDocuments, TakeMemoryAndTimeOfTheirSize) {
    const TemporaryFolder folder;
    for (const TShape& shape : kShapes) {
        const std::size_t count = OfTorture(30'000, shape.FullCount);
        TTally tally(std::string("size: ") + shape.Label);
        double former = 0;
        for (const std::size_t size : {count, 2 * count}) {
            const std::string document = shape.Make(size);
            const std::string path = folder.Write("build.xml", document);
            const TMeasuredCall call = CallTool({shape.Command, path});
            const bool isExpected =
                call.Status == shape.Status && call.Errors.ends_with(shape.Complaint);
            EXPECT_TRUE(isExpected) << shape.Label << call.Status << call.Errors;
            // A source keeps the path of its folder as well, which the document does not name.
            const std::size_t folders = shape.Status == kMissing ? size * folder.Path().size() : 0;
            const std::size_t share =
                folders + (shape.EventBytes > 0 ? shape.EventBytes * size : 8 * document.size());
            const bool isSmall =
                kHasAddressSanitizer || call.PeakBytes <= (std::size_t{64} << 20) + share;
            EXPECT_TRUE(isSmall) << shape.Label << " of " << document.size() << " bytes took "
                                 << call.PeakBytes;
            const double allowed = former == 0 ? 1e9 : std::max(2.5 * former, 0.3);
            double seconds = call.Seconds;
            // Other programs only slow one down.
            for (int tries = 0; tries < 3 && seconds > allowed; ++tries)
                seconds = std::min(seconds, CallTool({shape.Command, path}).Seconds);
            EXPECT_LE(seconds, allowed) << shape.Label << ": before " << former;
            former = seconds;
            tally.Count(isExpected && isSmall && seconds <= allowed);
        }
    }
}
