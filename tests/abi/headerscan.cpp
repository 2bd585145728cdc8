#include "tests/abi/headerscan.h"
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <regex>

namespace {

namespace fs = std::filesystem;

const std::regex kMarkedClass(R"(\bclass HDLBUILDFILE_(?:API|SHARED_TYPE) (\w+)[^;{]*\{)");
const std::regex kMarkedFunction(R"(\bHDLBUILDFILE_API [^;{}()]*?(\w+)\s*[(;])");
const std::regex kNamespace(R"(\bnamespace (\w+) \{)");

/// The text without comments and preprocessor lines.
std::string ReadCode(const fs::path& path) {
    std::ifstream stream(path, std::ios::binary);
    std::string code;
    for (std::string line; std::getline(stream, line);) {
        const bool isDirective = !line.empty() && line.front() == '#';
        if (!isDirective) code += line.substr(0, line.find("//")) + "\n";
    }
    return code;
}

bool IsOneOf(char c, const char* set) {
    return std::string(set).find(c) != std::string::npos;
}

/// Where the bracket at `open` closes; the text's end when it does not.
std::size_t FindClosing(const std::string& text, std::size_t open) {
    int depth = 0;
    for (std::size_t at = open; at < text.size(); ++at) {
        if (IsOneOf(text[at], "({[")) ++depth;
        if (IsOneOf(text[at], ")}]") && --depth == 0) return at;
    }
    return text.size();
}

std::string Trimmed(const std::string& text) {
    static const std::regex blanks(R"(^\s+|\s+$)");
    return std::regex_replace(text, blanks, "");
}

/// The parameters in the text of a list. Angles are brackets: declarations hardly compare.
int CountParameters(const std::string& list) {
    if (Trimmed(list).empty()) return 0;
    int depth = 0;
    int commas = 0;
    for (const char c : list) {
        if (IsOneOf(c, "(<{[")) ++depth;
        if (IsOneOf(c, ")>}]")) --depth;
        if (c == ',' && depth == 0) ++commas;
    }
    return commas + 1;
}

/// The end of the member that begins at `begin`: behind its semicolon or its body. A list of
/// initializers may hold braces of its own, in front of a comma or of the body.
std::ptrdiff_t FindMemberEnd(const std::string& body, std::ptrdiff_t begin) {
    auto at = static_cast<std::size_t>(begin);
    while (at < body.size()) {
        if (body[at] == ';') return static_cast<std::ptrdiff_t>(at + 1);
        if (IsOneOf(body[at], "([")) {
            at = FindClosing(body, at) + 1;
        } else if (body[at] == '{') {
            at = FindClosing(body, at) + 1;
            const std::size_t next = body.find_first_not_of(" \n", at);
            if (next == std::string::npos || !IsOneOf(body[next], ",{;"))
                return static_cast<std::ptrdiff_t>(at);
        } else {
            ++at;
        }
    }
    return static_cast<std::ptrdiff_t>(body.size());
}

/// Whether a member is neither a type nor a template nor somebody else's function.
bool CanHaveSymbol(const std::string& member) {
    static const std::regex other(
        R"(^(using|typedef|enum|class|struct|union|friend|template|static_assert)\b)");
    return !member.empty() && !std::regex_search(member, other);
}

bool IsDefined(const std::string& member) {
    static const std::regex undefined(R"(=\s*(0|delete)\s*;$)");
    return !std::regex_search(member, undefined);
}

/// Takes the member's operation into the class.
void AddMember(std::string member, bool isPublic, TScannedClass& scanned) {
    static const std::regex attribute(R"(\[\[[^\]]*\]\])");
    static const std::regex staticField(R"(^static\b[^=]*?(\w+)\s*(=[\s\S]*)?;$)");
    member = Trimmed(std::regex_replace(member, attribute, ""));
    if (!CanHaveSymbol(member)) return;
    std::smatch match;
    const bool isOperation = std::regex_search(member, std::regex(R"(^[^=]*?\()")) ||
                             member.find("operator") != std::string::npos;
    if (!isOperation) {
        if (member.find("constexpr") != std::string::npos) return;
        if (!std::regex_match(member, match, staticField)) return;
        scanned.Names.insert(match[1]);
        if (isPublic) ++scanned.Public[{match[1], -1, false}];
        return;
    }
    const TOperation operation = OperationOf(member);
    scanned.Names.insert(operation.Name);
    if (isPublic && IsDefined(member)) ++scanned.Public[operation];
}

TScannedClass ScanClass(const std::string& body) {
    static const std::regex access(R"(\s*(public|protected|private):)");
    TScannedClass scanned;
    bool isPublic = false;
    for (auto at = body.begin(); at != body.end();) {
        std::smatch match;
        if (std::regex_search(at, body.end(), match, access,
                              std::regex_constants::match_continuous)) {
            isPublic = match[1] == "public";
            at = match[0].second;
            continue;
        }
        const auto end = body.begin() + FindMemberEnd(body, at - body.begin());
        AddMember({at, end}, isPublic, scanned);
        at = end;
    }
    return scanned;
}

/// The namespace around `at`, with "::", or nothing.
std::string NamespaceAround(const std::string& text, std::size_t at) {
    for (std::sregex_iterator it(text.begin(), text.end(), kNamespace), end; it != end; ++it) {
        const auto open = static_cast<std::size_t>(it->position() + it->length()) - 1;
        if (open < at && at < FindClosing(text, open)) return (*it)[1].str() + "::";
    }
    return "";
}

void ScanHeader(const std::string& text, THeaderScan& scan) {
    for (std::sregex_iterator it(text.begin(), text.end(), kMarkedClass), end; it != end; ++it) {
        const auto at = static_cast<std::size_t>(it->position());
        const std::size_t open = at + static_cast<std::size_t>(it->length()) - 1;
        const std::string body = text.substr(open + 1, FindClosing(text, open) - open - 1);
        scan.Classes[NamespaceAround(text, at) + (*it)[1].str()] = ScanClass(body);
    }
    for (std::sregex_iterator it(text.begin(), text.end(), kMarkedFunction), end; it != end; ++it)
        scan.Functions.insert(NamespaceAround(text, static_cast<std::size_t>(it->position())) +
                              (*it)[1].str());
}

}  // namespace

TOperation OperationOf(const std::string& text) {
    static const std::regex name(R"((~?\w+|operator\s*(?:\(\)|[^\s(]+|\w[^(]*?))\s*$)");
    static const std::regex constant(R"(^\s*const\b)");
    std::size_t open = text.find(
        '(', text.find("operator()") == std::string::npos ? 0 : text.find("operator()") + 10);
    const std::size_t end = open == std::string::npos ? text.size() : open;
    std::smatch match;
    const std::string head = text.substr(0, end);
    TOperation operation{Trimmed(head), -1, false};
    if (std::regex_search(head, match, name)) operation.Name = Trimmed(match[1]);
    // Declarations and symbols spell the type of a conversion in different ways.
    if (operation.Name.rfind("operator ", 0) == 0) operation.Name = "operator";
    if (open == std::string::npos) return operation;
    const std::size_t close = FindClosing(text, open);
    operation.Parameters = CountParameters(text.substr(open + 1, close - open - 1));
    operation.IsConstant =
        std::regex_search(text.substr(std::min(close + 1, text.size())), constant);
    return operation;
}

const THeaderScan& ScannedHeaders() {
    static const THeaderScan scan = [] {
        THeaderScan found;
        for (const auto& entry :
             fs::recursive_directory_iterator(fs::path(HDLBUILDFILE_SOURCE_DIR) / "src")) {
            if (entry.path().extension() != ".h" || entry.path().filename() == "api.h") continue;
            ScanHeader(ReadCode(entry.path()), found);
        }
        return found;
    }();
    return scan;
}
