#include "tests/support/temporaryfolder.h"
#include "tests/torture/measuredtool_posix.h"
#include "tests/torture/tally.h"
#include <algorithm>
#include <gtest/gtest.h>

// JSON, YAML and TOML, which people import. No build is made of what is no tree.

namespace {

constexpr const char* kJson = "edam-json";
constexpr const char* kYaml = "edam-yaml";
constexpr const char* kToml = "vhdl-ls";

std::string Repeated(std::size_t count, const std::string& text) {
    std::string all;
    all.reserve(count * text.size());
    for (std::size_t number = 0; number < count; ++number) all += text;
    return all;
}

/// A piece for each number, made by `make`.
template <class Make>
std::string Numbered(std::size_t count, const Make& make) {
    std::string all;
    for (std::size_t number = 0; number < count; ++number) all += make(std::to_string(number));
    return all;
}

/// Lists of ten aliases of the one before.
std::string Aliases() {
    std::string text = "a0: &a0 x\n";
    for (int number = 1; number < 12; ++number) {
        const std::string former = "*a" + std::to_string(number - 1);
        const std::string own = "a" + std::to_string(number);
        text += own + ": &" + own + " [" + Repeated(9, former + ", ") + former + "]\n";
    }
    return text + "files: *a11\n";
}

TMeasuredCall Import(const char* format, const std::string& file, const std::string& build) {
    return CallTool({"import", format, file, "-o", build});
}

/// A document of a size, and what its import tells last.
struct TShape {
    const char* Label;
    const char* Format;
    std::string (*Make)(std::size_t count);
    const char* Complaint;  ///< behind the last "error: " and the place
    /// For each of the count, beside eight times the document: for what is told of each.
    std::size_t ValueBytes = 0;
};

constexpr const char* kDeep =
    ": not of the format: more than 64 values lie in each other [HB708]\n";
constexpr const char* kDeepToml =
    ": not of the format: Error while parsing value: exceeded maximum nested value depth of 64 "
    "(TOML_MAX_NESTED_VALUES) [HB708]\n";
constexpr const char* kTwice =
    ": not of the format: the key \"k\" is there a second time [HB708]\n";
constexpr const char* kLong = ": not of the format: a key of more than 64 parts [HB708]\n";
constexpr const char* kNone = "error: there are no sources in ";
constexpr const char* kLossy = ": not made, as something would be lost: --lossy makes it\n";
/// What is told of a value, with its words and place.
constexpr std::size_t kTold = 640;

const TShape kShapes[] = {
    {"lists in JSON", kJson,
     [](std::size_t count) { return Repeated(count, "[") + Repeated(count, "]"); }, kDeep},
    {"maps in JSON", kJson,
     [](std::size_t count) { return Repeated(count, "{\"a\":") + "1" + Repeated(count, "}"); },
     kDeep},
    {"keys of JSON", kJson,
     [](std::size_t count) {
         return "{" + Numbered(count, [](const auto& of) { return "\"k" + of + "\":1,"; }) +
                "\"k\":1}";
     },
     kLossy, kTold},
    {"a key of JSON again", kJson,
     [](std::size_t count) { return "{" + Repeated(count, "\"k\":1,") + "\"k\":1}"; }, kTwice},
    {"a long key of JSON", kJson,
     [](std::size_t count) { return "{\"" + Repeated(count, "0123456789") + "\":1}"; }, kLossy},
    {"a long text of JSON", kJson,
     [](std::size_t count) { return "{\"name\":\"" + Repeated(count, "0123456789") + "\"}"; },
     kNone},
    {"lists in YAML", kYaml,
     [](std::size_t count) {
         return "files: " + Repeated(count / 4, "[") + Repeated(count / 4, "]") + "\n";
     },
     kDeep},
    {"values in a list in a list of YAML", kYaml,
     [](std::size_t count) { return "files: [[" + Repeated(20 * count, "1,") + "]]\n"; },
     " values in brackets that lie in each other [HB708]\n"},
    {"entries in YAML", kYaml,
     [](std::size_t count) { return "files:\n" + Repeated(count, "- ") + "x\n"; }, kDeep},
    {"keys of YAML", kYaml,
     [](std::size_t count) {
         return Numbered(count, [](const auto& of) { return "k" + of + ": 1\n"; });
     },
     kLossy, kTold},
    {"a key of YAML again", kYaml, [](std::size_t count) { return Repeated(count, "k: 1\n"); },
     kTwice},
    {"a long key of YAML", kYaml,
     [](std::size_t count) { return Repeated(count, "0123456789") + ": 1\n"; },
     ": not of the format: illegal map value [HB708]\n"},
    {"a long text of YAML", kYaml,
     [](std::size_t count) { return "name: x" + Repeated(count, "0123456789") + "\n"; }, kNone},
    {"anchors of YAML", kYaml,
     [](std::size_t count) {
         return Numbered(count,
                         [](const auto& of) { return "k" + of + ": &x" + of + " 0123456789\n"; });
     },
     kLossy, kTold},
    {"documents of YAML", kYaml, [](std::size_t count) { return Repeated(count, "---\n"); },
     ":2:1: not of the format: a second document [HB708]\n"},
    {"lists in TOML", kToml,
     [](std::size_t count) { return "a=" + Repeated(count, "[") + Repeated(count, "]") + "\n"; },
     kDeepToml},
    {"maps in TOML", kToml,
     [](std::size_t count) {
         return "a=" + Repeated(count, "{a=") + "1" + Repeated(count, "}") + "\n";
     },
     kDeepToml},
    {"a key of parts", kToml, [](std::size_t count) { return Repeated(count, "a.") + "a=1\n"; },
     kLong},
    {"a table of parts", kToml,
     [](std::size_t count) { return "[" + Repeated(count, "a.") + "a]\n"; }, kLong},
    {"keys of TOML", kToml,
     [](std::size_t count) {
         return Numbered(count, [](const auto& of) { return "k" + of + "=1\n"; });
     },
     kLossy, kTold},
    {"tables of TOML", kToml,
     [](std::size_t count) {
         return Numbered(count, [](const auto& of) { return "[k" + of + "]\n"; });
     },
     kNone, kTold},
    {"a long key of TOML", kToml,
     [](std::size_t count) { return Repeated(count, "0123456789") + "=1\n"; }, kLossy},
    {"a long text of TOML", kToml,
     [](std::size_t count) { return "a=\"" + Repeated(count, "0123456789") + "\"\n"; }, kLossy},
};

}  // namespace

TEST(HostileTrees, AreRefusedWithAPlaceAndAReason) {
    const struct {
        const char* Format;
        std::string Document;
        const char* Complaint;
    } rows[] = {
        {kYaml, Aliases(), "6:5: not of the format: more than 200042 values"},
        {kYaml, "a: &a [*a]\n",
         "1:8: not of the format: an alias stands within what it stands for"},
        {kYaml, "a: &a {b: 1}\nc:\n  <<: *a\n", "3:3: not of the format: maps are not merged here"},
        {kYaml, "a: *b\n", "1:4: not of the format: the referenced anchor is not defined"},
        {kYaml, "name: a\nname: b\n",
         "2:1: not of the format: the key \"name\" is there a second time"},
        {kYaml, "name: 1e99999\n", "1:7: not of the format: the number 1e99999 is out of range"},
        {kJson, "",
         "1:1: not of the format: syntax error while parsing value - unexpected end of input; "
         "expected '[', '{', or a literal"},
        {kJson, "{\"name\":\"a\",\"name\":\"b\"}",
         "1:13: not of the format: the key \"name\" is there a second time"},
        {kJson, "{\"name\":1e99999}", "1:15: not of the format: number overflow parsing '1e99999'"},
        {kToml, "a=1\na=2\n",
         "2:3: not of the format: Error while parsing key-value pair: cannot redefine existing "
         "integer 'a'"},
        {kToml, "[a]\n[a]\n",
         "2:1: not of the format: Error while parsing table header: cannot redefine existing table "
         "'a'"},
        {kToml, "a=99999999999999999999\n",
         "1:23: not of the format: Error while parsing decimal integer: '99999999999999999999' is "
         "not representable in 64 bits"},
        {kToml, "a=1e99999\n",
         "1:10: not of the format: Error while parsing floating-point: '1e99999' could not be "
         "interpreted as a value"},
    };
    const TemporaryFolder folder;
    TTally tally("hostile tree");
    for (const auto& row : rows) {
        const std::string path = folder.Write("tree", row.Document);
        const TMeasuredCall call = Import(row.Format, path, folder.Path("build.xml"));
        const std::string expected = "/tree:" + std::string(row.Complaint) + " [HB708]\n";
        const bool isSmall = kHasAddressSanitizer || call.PeakBytes <= (std::size_t{64} << 20);
        // Paths are told as the working directory has them.
        const std::string told =
            call.Errors.substr(std::min(call.Errors.find("/tree:"), call.Errors.size()));
        tally.Count(call.Status == 1 && told == expected && isSmall);
        EXPECT_EQ(call.Status, 1) << row.Document;
        EXPECT_EQ(told, expected) << call.Errors;
        EXPECT_TRUE(isSmall) << row.Document << call.PeakBytes;
        EXPECT_EQ(folder.List(), "tree\n");
    }
}

TEST(HostileTrees, TakeMemoryAndTimeOfTheirSize) {
    const TemporaryFolder folder;
    const std::size_t count = OfTorture(10'000, 200'000);
    for (const TShape& shape : kShapes) {
        TTally tally(std::string("size: ") + shape.Label);
        double former = 0;
        for (const std::size_t size : {count, 2 * count}) {
            const std::string document = shape.Make(size);
            const std::string path = folder.Write("tree", document);
            const std::string build = folder.Path("build.xml");
            const TMeasuredCall call = Import(shape.Format, path, build);
            const std::string expected =
                shape.Complaint == std::string(kNone) ? kNone + path + "\n" : shape.Complaint;
            const bool isExpected = call.Status == 1 && call.Errors.ends_with(expected);
            EXPECT_TRUE(isExpected) << shape.Label << call.Status << call.Errors.substr(0, 500);
            EXPECT_EQ(folder.List(), "tree\n") << shape.Label;
            const std::size_t share = 8 * document.size() + shape.ValueBytes * size;
            const bool isSmall =
                kHasAddressSanitizer || call.PeakBytes <= (std::size_t{64} << 20) + share;
            EXPECT_TRUE(isSmall) << shape.Label << " of " << document.size() << " bytes took "
                                 << call.PeakBytes;
            const double allowed = former == 0 ? 1e9 : std::max(2.5 * former, 0.3);
            double seconds = call.Seconds;
            // Other programs only slow one down.
            for (int tries = 0; tries < 3 && seconds > allowed; ++tries)
                seconds = std::min(seconds, Import(shape.Format, path, build).Seconds);
            EXPECT_LE(seconds, allowed) << shape.Label << ": before " << former;
            former = seconds;
            tally.Count(isExpected && isSmall && seconds <= allowed);
        }
    }
}
