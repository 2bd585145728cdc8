#include "tests/repository/sources.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace {

using testing::IsEmpty;

using TNames = std::set<std::string>;

/// The reviewed list of the headers that are installed, as callers include them.
const TNames& InstalledHeaders() {
    static const TNames headers = [] {
        std::istringstream lines(ReadProjectFile("abi/headers.txt"));
        TNames found;
        for (std::string line; std::getline(lines, line);) found.insert(line);
        return found;
    }();
    return headers;
}

/// The header and all that it includes, directly or not.
TNames ClosureOf(const std::string& header) {
    TNames closure = {header};
    std::vector<std::string> pending = {header};
    while (!pending.empty()) {
        const TSource* source = FindSource(pending.back());
        pending.pop_back();
        if (!source) continue;
        for (const std::string& include : source->Includes)
            if (closure.insert(include).second) pending.push_back(include);
    }
    return closure;
}

std::string Without(const std::string& text, const char* pattern) {
    return std::regex_replace(text, std::regex(pattern), "");
}

/// The text of a header without what is private to its classes, from "private:" to the end of the
/// class or the next access label in the same column.
std::string WithoutPrivateParts(const std::string& text) {
    std::istringstream lines(text);
    std::string kept;
    std::string end;  // the indentation of the label that began a private part
    bool isPrivate = false;
    for (std::string line; std::getline(lines, line);) {
        const std::size_t indent = line.find_first_not_of(' ');
        const std::string code = indent == std::string::npos ? "" : line.substr(indent);
        if (isPrivate && indent == end.size() &&
            (code.starts_with("}") || code == "public:" || code == "protected:"))
            isPrivate = false;
        if (!isPrivate && code == "private:") {
            isPrivate = true;
            end = line.substr(0, indent);
        }
        if (!isPrivate) kept += line + "\n";
    }
    return kept;
}

/// Types that callers only name: the library makes the objects, and a null pointer is as good.
const TNames kOpaque = {"TSourceFileOwner"};

/// What callers read of a header: no comments, directives, forward declarations and private parts.
std::string PublicPart(const TSource& header) {
    std::string text = Without(header.Text, R"(//[^\n]*)");
    text = Without(text, R"((^|\n)#[^\n]*)");
    text = Without(text, R"((^|\n)\s*(friend )?(class|struct) \w+;)");
    return WithoutPrivateParts(text);
}

/// The headers that define each class, record, enumeration and alias of namespace scope.
std::map<std::string, std::string> DefiningHeaders() {
    static const std::regex definition(
        R"((?:^|\n)(?:class|struct|enum class|enum|using)(?: HDLBUILDFILE_\w+)? (\w+)(?: =|[^;{}()]*\{))");
    std::map<std::string, std::string> headers;
    for (const TSource& source : Sources()) {
        if (!source.Name.ends_with(".h")) continue;
        const std::string text = Without(source.Text, R"(//[^\n]*)");
        for (std::sregex_iterator at(text.begin(), text.end(), definition), end; at != end; ++at)
            headers[(*at)[1]] = source.Name;
    }
    return headers;
}

bool IsIncludedByOthersOnly(const std::string& header) {
    return header == "hdlbuildfile.h" || header == "services/base/api.h" ||
           header.ends_with(".inl");
}

}  // namespace

TEST(PublicHeaders, AreTheReviewedOnes) {
    EXPECT_EQ(ClosureOf("hdlbuildfile.h"), InstalledHeaders());
}

TEST(PublicHeaders, AreEachNamedByTheUmbrellaHeader) {
    const TSource* umbrella = FindSource("hdlbuildfile.h");
    ASSERT_TRUE(umbrella);
    TNames expected;
    for (const std::string& header : InstalledHeaders())
        if (!IsIncludedByOthersOnly(header)) expected.insert(header);
    EXPECT_EQ(TNames(umbrella->Includes.begin(), umbrella->Includes.end()), expected);
}

TEST(PublicHeaders, HoldAllThatIsExported) {
    TNames outside;
    for (const TSource& source : Sources())
        if (source.Name.ends_with(".h") && !InstalledHeaders().contains(source.Name) &&
            source.Text.find("HDLBUILDFILE_") != std::string::npos)
            outside.insert(source.Name);
    EXPECT_THAT(outside, IsEmpty()) << "exports something, but is not installed";
}

TEST(PublicHeaders, DefineTheTypesThatTheyOfferToCallers) {
    // A class that callers are handed or hand over has to be complete for them, behind a pointer as
    // well: a record is filled in, a table indexed, a constructor's argument made.
    const auto defining = DefiningHeaders();
    ASSERT_GE(defining.size(), 100u);
    const std::regex word(R"([A-Za-z_]\w*)");
    for (const std::string& name : InstalledHeaders()) {
        const TSource* header = FindSource(name);
        ASSERT_TRUE(header) << name;
        const std::string text = PublicPart(*header);
        TNames missing;
        for (std::sregex_iterator at(text.begin(), text.end(), word), end; at != end; ++at) {
            const auto found = defining.find(at->str());
            if (found != defining.end() && !kOpaque.contains(found->first) &&
                !InstalledHeaders().contains(found->second))
                missing.insert(found->first + " of " + found->second);
        }
        EXPECT_THAT(missing, IsEmpty()) << "named by " << name;
    }
}

TEST(PublicHeaders, AreAllThatFlowsAndToolUse) {
    std::size_t count = 0;
    for (const TSource& source : Sources()) {
        if (!IsOutsideLibrary(source.Name)) continue;
        for (const std::string& include : source.Includes) {
            if (IsOutsideLibrary(include)) continue;
            ++count;
            EXPECT_TRUE(InstalledHeaders().contains(include))
                << source.Name << " includes private " << include;
        }
    }
    EXPECT_GT(count, 20u);
}
