#include "services/files/pathtext.h"
#include "services/files/filesystem.h"
#include "services/files/pathconventions.h"
#include "services/files/pathpieces.h"
#include <algorithm>

namespace {

bool IsLetter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

std::size_t EndOfPart(std::string_view path, std::size_t start) {
    while (start < path.size() && !IsPathDelimiter(path[start])) ++start;
    return start;
}

bool BeginsWithDrive(std::string_view path) {
    if (path.size() < 2 || !IsLetter(path[0]) || path[1] != ':') return false;
    // "a:b" is a plain file name where there are no drives.
    return kPathsHaveDrives || path.size() == 2 || IsPathDelimiter(path[2]);
}

bool BeginsWithHost(std::string_view path) {
    if (path.size() < 3 || IsPathDelimiter(path[2])) return false;
    if (kPathsHaveDrives) return IsPathDelimiter(path[0]) && IsPathDelimiter(path[1]);
    return path[0] == '\\' && path[1] == '\\';
}

/// The length of "C:" or "\\host".
std::size_t LengthOfDrive(std::string_view path) {
    if (BeginsWithDrive(path)) return 2;
    return BeginsWithHost(path) ? EndOfPart(path, 2) : 0;
}

/// "\\?\C:\a" and "\\?\UNC\host\a" are "C:\a" and "\\host\a": the prefix only lifts a limit.
std::string_view WithoutLengthPrefix(std::string_view path, std::string* storage) {
    if (path.substr(0, 4) != "\\\\?\\") return path;
    std::string_view rest = path.substr(2);
    // The host of a prefix may be a prefix again.
    while (rest.starts_with("?\\UNC\\")) rest.remove_prefix(6);
    if (rest.starts_with("?\\") && BeginsWithDrive(rest.substr(2))) return rest.substr(2);
    if (rest.size() == path.size() - 2) return path;
    *storage = "\\\\" + std::string(rest);
    return *storage;
}

/// A canonical path while it is put together: a drive, a delimiter and parts that end with one.
class TCanonicalText {
public:
    void Begin(std::string_view drive, std::size_t expectedLength) {
        Delimiter = drive.empty() ? kPathDelimiter : '\\';
        Text.reserve(expectedLength + 2);
        if (drive.size() > 2)
            Text.append("\\\\").append(drive.substr(2));
        else
            Text.append(drive);
        Text += Delimiter;
        LengthOfRoot = Text.size();
    }
    void AppendParts(std::string_view parts) {
        for (std::size_t start = 0; start < parts.size();) {
            const std::size_t end = EndOfPart(parts, start);
            AppendPart(parts.substr(start, end - start));
            start = end + 1;
        }
    }
    std::string Finish(bool isDirectory) {
        if (!isDirectory && Text.size() > LengthOfRoot) Text.pop_back();
        return std::move(Text);
    }

private:
    void AppendPart(std::string_view part) {
        if (part.empty() || part == ".") return;
        if (part == "..") {
            DropPart();
            return;
        }
        Text.append(part) += Delimiter;
    }
    void DropPart() {
        if (Text.size() == LengthOfRoot) return;
        Text.pop_back();
        Text.resize(Text.rfind(Delimiter) + 1);
    }

    std::string Text;
    std::size_t LengthOfRoot = 0;
    char Delimiter = kPathDelimiter;
};

/// The canonical form of a path without length prefix.
std::string Resolve(std::string_view path) {
    const std::string_view drive = path.substr(0, LengthOfDrive(path));
    const std::string_view rest = path.substr(drive.size());
    const bool isRooted = rest.empty() ? !drive.empty() : IsPathDelimiter(rest[0]);
    TCanonicalText text;
    if (isRooted) {
        text.Begin(drive, path.size());
    } else {
        const std::string directory = GetFileSystem().GetWorkingDirectory(drive);
        const std::size_t lengthOfDrive = LengthOfDrive(directory);
        text.Begin(std::string_view(directory).substr(0, lengthOfDrive),
                   directory.size() + path.size());
        text.AppendParts(std::string_view(directory).substr(lengthOfDrive));
    }
    text.AppendParts(rest);
    return text.Finish(IsPathDelimiter(path.back()));
}

}  // namespace

bool IsPathDelimiter(char c) {
    return c == '/' || c == '\\';
}

bool IsRelativePath(const char* path) {
    const std::string_view text = path ? path : "";
    return text.empty() || (!IsPathDelimiter(text[0]) && LengthOfDrive(text) == 0);
}

bool IsOnlyFileName(const char* path) {
    const std::string_view text = path ? path : "";
    return !text.empty() && text != "." && text != ".." && LengthOfDrive(text) == 0 &&
           EndOfPart(text, 0) == text.size();
}

TMyString& GetStringQuotedIfNecessary(TMyString& text) {
    const std::string& plain = text.Str();
    const bool needsQuotes = plain.find_first_of(" \t") != std::string::npos;
    if (needsQuotes && plain.find('"') == std::string::npos) text = TMyString('"' + plain + '"');
    return text;
}

std::string CanonicalPath(std::string_view given) {
    if (given.empty()) return {};
    std::string storage;
    std::string path = Resolve(WithoutLengthPrefix(given, &storage));
    // Without its ".." the path may begin with such a prefix.
    const std::string_view bare = WithoutLengthPrefix(path, &storage);
    if (bare.size() == path.size()) return path;
    return Resolve(bare);
}

std::string PathParts(std::string_view path, unsigned int parts) {
    return SplitPath(path).Join(parts);
}

TPathPieces SplitPath(std::string_view path) {
    TPathPieces pieces;
    pieces.Drive = path.substr(0, LengthOfDrive(path));
    std::string_view rest = path.substr(pieces.Drive.size());
    std::size_t root = 0;
    while (root < rest.size() && IsPathDelimiter(rest[root])) ++root;
    pieces.Root = rest.substr(0, root);
    rest.remove_prefix(root);
    const std::size_t delimiter = rest.find_last_of("/\\");
    pieces.Folders = rest.substr(0, delimiter == std::string_view::npos ? 0 : delimiter + 1);
    rest.remove_prefix(pieces.Folders.size());
    // "." and ".." are directories, not a name that ends in a dot.
    const std::size_t dot = rest == "." || rest == ".." ? std::string_view::npos : rest.rfind('.');
    pieces.Name = rest.substr(0, dot);
    pieces.Extension = rest.substr(pieces.Name.size());
    return pieces;
}
