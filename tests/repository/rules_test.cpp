#include "tests/repository/sources.h"
#include <algorithm>
#include <cctype>
#include <gtest/gtest.h>
#include <regex>
#include <set>

// Rules for the whole library that no single test would miss.

namespace {

/// The place behind the text in quotes that begins at `begin`: a literal, plain or raw.
std::size_t EndOfQuoted(const std::string& text, std::size_t begin) {
    const char quote = text[begin];
    if (quote == '"' && begin > 0 && text[begin - 1] == 'R') {
        const std::size_t open = text.find('(', begin);
        const std::string close = ")" + text.substr(begin + 1, open - begin - 1) + "\"";
        return std::min(text.find(close, open), text.size() - close.size()) + close.size();
    }
    std::size_t place = begin + 1;
    while (place < text.size() && text[place] != quote) {
        if (text[place] == '\\') ++place;
        ++place;
    }
    return std::min(place + 1, text.size());
}

/// The code of a file: each comment put down as a blank, each literal as "", so that words in them
/// count for nothing.
std::string CodeOf(const std::string& text) {
    std::string code;
    for (std::size_t i = 0; i < text.size();) {
        const bool isDigitBefore = i > 0 && std::isdigit(static_cast<unsigned char>(text[i - 1]));
        if (text.compare(i, 2, "//") == 0) {
            code += ' ';
            i = std::min(text.find('\n', i), text.size());
        } else if (text.compare(i, 2, "/*") == 0) {
            code += ' ';
            i = std::min(text.find("*/", i), text.size() - 2) + 2;
        } else if (text[i] == '"' || (text[i] == '\'' && !isDigitBefore)) {
            code += "\"\"";
            i = EndOfQuoted(text, i);
        } else {
            code += text[i++];
        }
    }
    return code;
}

/// "file: match\n" for every match of `pattern` in the library's code, sorted.
std::string MatchesInLibrary(const std::regex& pattern, bool withTexts = false) {
    std::set<std::string> lines;
    for (const TSource& source : Sources()) {
        if (IsOutsideLibrary(source.Name)) continue;
        const std::string code = withTexts ? source.Text : CodeOf(source.Text);
        for (std::sregex_iterator at(code.begin(), code.end(), pattern), end; at != end; ++at)
            lines.insert(source.Name + ": " + at->str() + "\n");
    }
    std::string all;
    for (const std::string& line : lines) all += line;
    return all;
}

}  // namespace

TEST(Rules, AreLookedForInCodeOnly) {
    EXPECT_EQ(CodeOf("a; // throw\nb; /* throw\n*/ c(\"throw \\\" throw\", 'x', 1'000);"),
              "a;  \nb;   c(\"\", \"\", 1'000);");
    EXPECT_EQ(CodeOf("x = R\"q(throw \")\" throw)q\" + y;"), "x = R\"\" + y;");
}

// Variables in the user's own texts are expanded by `environment`, whatever their names. The folder
// for the user's files follows from the rules of the desktop.
TEST(Rules, ConsultOneEnvironmentVariableByName) {
    EXPECT_EQ(MatchesInLibrary(std::regex("GetEnvironment(Variable)?Text\\(\"[^\"]*\""), true),
              "services/files/process_posix.cpp: GetEnvironmentText(\"HOME\"\n"
              "services/files/process_posix.cpp: GetEnvironmentText(\"XDG_CONFIG_HOME\"\n"
              "services/files/process_windows.cpp: GetEnvironmentText(\"APPDATA\"\n"
              "settings/projectsimlanguageconfigxml.cpp: "
              "GetEnvironmentVariableText(\"ORVANE_CPP_COMPILER\"\n");
    EXPECT_EQ(MatchesInLibrary(std::regex("\\b([Gg]etenv|GetEnvironmentStrings\\w*|environ|"
                                          "GetEnvironmentVariable[AW]?|ExpandEnvironment\\w*)\\b")),
              "services/files/process_posix.cpp: getenv\n"
              "services/files/process_windows.cpp: GetEnvironmentVariableW\n");
}

TEST(Rules, HaveNoThreads) {
    EXPECT_EQ(MatchesInLibrary(std::regex(
                  "#include <(thread|future|shared_mutex|condition_variable|latch|semaphore|"
                  "barrier|stop_token|pthread\\.h|threads\\.h)>|"
                  "\\b(pthread_\\w+|CreateThread\\w*|_beginthread\\w*|std::(j?thread|async|"
                  "recursive_mutex|condition_variable|call_once))\\b")),
              "");
}

// What all threads share, as the architecture tells.
TEST(Rules, LockAndCountInFewPlaces) {
    EXPECT_EQ(MatchesInLibrary(std::regex("std::(mutex|atomic)\\b")),
              "buildfile/compileorder.cpp: std::atomic\n"
              "filenames/hdbsfilename.cpp: std::atomic\n"
              "filenames/hdbsfilenamelist.cpp: std::mutex\n"
              "projectfiles/hdlprojectusersourcefile.cpp: std::atomic\n"
              "projectfiles/languageconfigmap.cpp: std::mutex\n"
              "services/base/countedblock.h: std::atomic\n"
              "services/base/dlist.cpp: std::mutex\n"
              "services/base/keeper.cpp: std::atomic\n"
              "services/base/keeper.cpp: std::mutex\n"
              "services/base/observer.cpp: std::atomic\n"
              "services/base/observer.cpp: std::mutex\n"
              "services/base/observer.h: std::atomic\n"
              "services/base/sharedset.h: std::mutex\n"
              "services/files/directories.cpp: std::atomic\n"
              "services/files/directories.cpp: std::mutex\n"
              "services/files/filelimit.cpp: std::atomic\n"
              "services/files/filesave.cpp: std::atomic\n"
              "services/files/filestatus.cpp: std::atomic\n"
              "services/files/filesystem.cpp: std::atomic\n"
              "services/files/pathpieces.cpp: std::mutex\n"
              "services/ini/inifilenames.cpp: std::atomic\n"
              "services/ini/propcache.cpp: std::atomic\n"
              "services/ini/propcache.cpp: std::mutex\n"
              "services/logging/binarylog.h: std::atomic\n"
              "services/logging/binarylog.h: std::mutex\n"
              "services/logging/messagebox.cpp: std::atomic\n"
              "services/names/isfilename.cpp: std::atomic\n"
              "services/names/isfilename.cpp: std::mutex\n"
              "services/names/timestamps.cpp: std::mutex\n"
              "services/xml/expatrun.cpp: std::atomic\n"
              "services/xml/xmllist.cpp: std::mutex\n"
              "services/xml/xmlname.cpp: std::mutex\n"
              "simtools/simtoolsettings.cpp: std::atomic\n"
              "simtools/simtoolsettings.h: std::atomic\n");
}

// Nothing but that memory ran out. It is caught where something must go on, or be undone, without.
TEST(Rules, ThrowNothingButThatMemoryRanOut) {
    EXPECT_EQ(MatchesInLibrary(std::regex("\\bthrow\\b(?!;)(?! std::bad_alloc\\(\\))")), "");
    EXPECT_EQ(
        MatchesInLibrary(std::regex("\\b(throw|try|catch|rethrow_exception|throw_with_nested)\\b")),
        "buildfile/buildfilecompilelists.cpp: catch\n"
        "buildfile/buildfilecompilelists.cpp: throw\n"
        "buildfile/buildfilecompilelists.cpp: try\n"
        "buildfile/buildfileparts.cpp: catch\n"
        "buildfile/buildfileparts.cpp: try\n"
        "buildfile/buildfilesources.cpp: catch\n"
        "buildfile/buildfilesources.cpp: throw\n"
        "buildfile/buildfilesources.cpp: try\n"
        "buildfile/hdlbuildfile.cpp: catch\n"
        "buildfile/hdlbuildfile.cpp: throw\n"
        "buildfile/hdlbuildfile.cpp: try\n"
        "filenames/hdbsfilenamelist.cpp: catch\n"
        "filenames/hdbsfilenamelist.cpp: throw\n"
        "filenames/hdbsfilenamelist.cpp: try\n"
        "projectfiles/dependencyindex.cpp: catch\n"
        "projectfiles/dependencyindex.cpp: throw\n"
        "projectfiles/dependencyindex.cpp: try\n"
        "projectfiles/hdlprojectfilelist.cpp: catch\n"
        "projectfiles/hdlprojectfilelist.cpp: throw\n"
        "projectfiles/hdlprojectfilelist.cpp: try\n"
        "projectfiles/ihdlsourcefilelist.cpp: catch\n"
        "projectfiles/ihdlsourcefilelist.cpp: try\n"
        "projectfiles/projectfileindex.cpp: catch\n"
        "projectfiles/projectfileindex.cpp: try\n"
        "projectfiles/sourcefileowner.cpp: catch\n"
        "projectfiles/sourcefileowner.cpp: throw\n"
        "projectfiles/sourcefileowner.cpp: try\n"
        "services/base/allocator.cpp: catch\n"
        "services/base/allocator.cpp: throw\n"
        "services/base/allocator.cpp: try\n"
        "services/base/keeper.cpp: catch\n"
        "services/base/keeper.cpp: try\n"
        "services/files/filebeside.cpp: catch\n"
        "services/files/filebeside.cpp: try\n"
        "services/files/filelock.cpp: catch\n"
        "services/files/filelock.cpp: throw\n"
        "services/files/filelock.cpp: try\n"
        "services/files/filesystem_posix.cpp: catch\n"
        "services/files/filesystem_posix.cpp: try\n"
        "services/ini/inifile.cpp: throw\n"
        "services/ini/propcache.cpp: catch\n"
        "services/ini/propcache.cpp: throw\n"
        "services/ini/propcache.cpp: try\n"
        "services/logging/usermessages.cpp: catch\n"
        "services/logging/usermessages.cpp: try\n"
        "services/xml/expatrun.cpp: rethrow_exception\n"
        "services/xml/expatrun.cpp: throw\n"
        "services/xml/expatrun.h: catch\n"
        "services/xml/expatrun.h: try\n"
        "services/xml/xmllist.cpp: catch\n"
        "services/xml/xmllist.cpp: throw\n"
        "services/xml/xmllist.cpp: try\n"
        "services/xml/xmlsectionfile.cpp: catch\n"
        "services/xml/xmlsectionfile.cpp: throw\n"
        "services/xml/xmlsectionfile.cpp: try\n");
}
