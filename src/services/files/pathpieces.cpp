#include "services/files/pathpieces.h"
#include "services/base/fold.h"
#include "services/base/sharedparts.h"
#include "services/files/filenameparts.h"
#include "services/files/pathconventions.h"
#include "services/files/pathtext.h"
#include <algorithm>
#include <array>
#include <functional>
#include <mutex>
#include <unordered_set>
#include <utility>

namespace {

constexpr unsigned kAllParts = PART_DIRECTORY | PART_NAME | PART_EXTENSION;

using TPiece = std::pair<unsigned, std::string_view>;

std::array<TPiece, 5> PiecesInOrder(const TPathPieces& pieces) {
    return {{{PART_DRIVE, pieces.Drive},
             {PART_ROOT, pieces.Root},
             {PART_FOLDERS, pieces.Folders},
             {PART_NAME, pieces.Name},
             {PART_EXTENSION, pieces.Extension}}};
}

char DelimiterOf(std::string_view path) {
    return SplitPath(path).Drive.empty() ? kPathDelimiter : '\\';
}

bool EndsWithDelimiter(std::string_view path) {
    return !path.empty() && IsPathDelimiter(path.back());
}

bool IsSamePart(std::string_view a, std::string_view b) {
    return kPathsIgnoreCase ? EqualIgnoringCase(a, b) : a == b;
}

/// Takes the first part off `path`, with its delimiter.
std::string_view TakePart(std::string_view* path) {
    std::size_t length = 0;
    while (length < path->size() && !IsPathDelimiter((*path)[length])) ++length;
    const std::string_view part = path->substr(0, length);
    path->remove_prefix(std::min(length + 1, path->size()));
    return part;
}

std::string_view WithoutRoot(std::string_view path, const TPathPieces& pieces) {
    return path.substr(pieces.Drive.size() + pieces.Root.size());
}

/// Drops the leading parts that both have in common.
void DropCommonParts(std::string_view* a, std::string_view* b) {
    while (!a->empty() && !b->empty()) {
        std::string_view restOfA = *a;
        std::string_view restOfB = *b;
        if (!IsSamePart(TakePart(&restOfA), TakePart(&restOfB))) return;
        *a = restOfA;
        *b = restOfB;
    }
}

bool IsInsideCharacter(char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

struct THashOfText {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const {
        return std::hash<std::string_view>()(text);
    }
};

/// A part of all texts, those of certain hashes.
struct TKeptTexts {
    std::mutex Lock;
    std::unordered_set<std::string, THashOfText, std::equal_to<>> Texts;
};

}  // namespace

std::string TPathPieces::Join(unsigned int parts) const {
    const unsigned selected = parts == PART_ALL ? kAllParts : parts;
    std::string text;
    for (const auto& [bit, piece] : PiecesInOrder(*this))
        if (selected & bit) text += piece;
    return text;
}

std::string PathWithPart(std::string_view path, unsigned int part, std::string_view text) {
    const unsigned selected = part == PART_ALL ? kAllParts : part;
    const bool isDirectory = (selected & (PART_NAME | PART_EXTENSION)) == 0 &&
                             (selected & PART_FOLDERS) != 0 && !text.empty();
    bool isPlaced = false;
    std::string result;
    for (const auto& [bit, piece] : PiecesInOrder(SplitPath(path))) {
        if (!(selected & bit)) {
            result += piece;
        } else if (!isPlaced) {
            result += text;
            if (isDirectory && !EndsWithDelimiter(text)) result += DelimiterOf(path);
            isPlaced = true;
        }
    }
    return result;
}

std::string PathWithoutParts(std::string_view path, unsigned int parts) {
    const unsigned kept = kAllParts & ~(parts == PART_ALL ? kAllParts : parts);
    return kept == 0 ? std::string() : SplitPath(path).Join(kept);
}

std::string JoinPath(std::string_view directory, std::string_view name) {
    std::string absolute(name);
    if (directory.empty() || !IsRelativePath(absolute.c_str())) return absolute;
    std::string path(directory);
    if (!EndsWithDelimiter(path)) path += DelimiterOf(directory);
    return path += name;
}

std::string ParentOf(std::string_view path) {
    const TPathPieces pieces = SplitPath(path);
    std::string_view rest = WithoutRoot(path, pieces);
    while (EndsWithDelimiter(rest)) rest.remove_suffix(1);
    while (!rest.empty() && !IsPathDelimiter(rest.back())) rest.remove_suffix(1);
    return std::string(path.substr(0, pieces.Drive.size() + pieces.Root.size() + rest.size()));
}

std::string_view WithoutFinalDelimiter(std::string_view canonical) {
    const TPathPieces pieces = SplitPath(canonical);
    const bool isRoot = canonical.size() == pieces.Drive.size() + pieces.Root.size();
    return isRoot || !EndsWithDelimiter(canonical) ? canonical
                                                   : canonical.substr(0, canonical.size() - 1);
}

std::string RelativeToDirectory(std::string_view base, std::string_view path) {
    const TPathPieces piecesOfBase = SplitPath(base);
    const TPathPieces piecesOfPath = SplitPath(path);
    if (base.empty() || path.empty() || !IsSamePart(piecesOfBase.Drive, piecesOfPath.Drive))
        return std::string(path);
    std::string_view up = WithoutRoot(base, piecesOfBase);
    std::string_view down = WithoutRoot(path, piecesOfPath);
    DropCommonParts(&up, &down);
    std::string relative;
    while (!up.empty()) {
        TakePart(&up);
        relative += "../";
    }
    relative += down;
    if (relative.empty()) return ".";
    if (down.empty() && !EndsWithDelimiter(path)) relative.pop_back();
    std::replace(relative.begin(), relative.end(), '\\', '/');
    // A folder may have the name of a drive, which would be read back as that drive.
    return IsRelativePath(relative.c_str()) ? relative : std::string(path);
}

bool LeavesDirectory(std::string_view relative) {
    return relative == ".." || relative.substr(0, 3) == "../";
}

std::string SqueezePath(std::string_view path, int length) {
    constexpr std::string_view kGap = "...";
    const std::size_t room = length < 0 ? 0 : static_cast<std::size_t>(length);
    if (path.size() <= room) return std::string(path);
    if (room <= kGap.size()) return std::string(kGap.substr(0, room));
    std::size_t head = (room - kGap.size()) / 2;
    std::size_t tail = path.size() - (room - kGap.size() - head);
    while (head > 0 && IsInsideCharacter(path[head])) --head;
    while (tail < path.size() && IsInsideCharacter(path[tail])) ++tail;
    return std::string(path.substr(0, head)).append(kGap).append(path.substr(tail));
}

const std::string& KeptPath(std::string_view text) {
    auto& part = GetSharedPart<TKeptTexts>(THashOfText()(text));
    const std::lock_guard guard(part.Lock);
    auto place = part.Texts.find(text);
    if (place == part.Texts.end()) place = part.Texts.emplace(text).first;
    return *place;
}

char* KeptPathText(std::string_view text) {
    // Callers must not change the text; some operations only lack the const.
    return const_cast<char*>(KeptPath(text).c_str());
}
