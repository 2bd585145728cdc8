#include "services/files/steadyread.h"
#include "services/files/limitedread.h"

namespace {

constexpr int kMostReads = 3;

bool IsWhole(const TFileState& before, const TFileState& after, const std::string& bytes) {
    return before == after && (bytes.size() == after.Size || after.Size == 0);
}

TFileResult ReadOnce(IOpenFile& file, std::uint64_t limit, std::string* bytes, bool* isWhole) {
    TFileState before;
    TFileState after;
    TFileResult result = file.Look(&before);
    if (!result.IsDone()) return result;
    const auto readSome = [&file](char* place, std::size_t room, std::size_t* count) {
        return file.ReadSome(place, room, count);
    };
    result = ReadLimited(before.Size, limit, readSome, bytes);
    if (result.IsDone()) result = file.Look(&after);
    *isWhole = result.IsDone() && IsWhole(before, after, *bytes);
    return result;
}

TFileResult ReadOn(IOpenFile& file, std::uint64_t limit, std::string* bytes) {
    for (int tries = 1;; ++tries) {
        bool isWhole = false;
        TFileResult result = ReadOnce(file, limit, bytes, &isWhole);
        if (isWhole || !result.IsDone()) return result;
        if (tries == kMostReads) return {TFileFault::Other, "the file changes while it is read"};
        result = file.Rewind();
        if (!result.IsDone()) return result;
    }
}

}  // namespace

TFileResult ReadSteadily(IOpenFile& file, std::uint64_t limit, std::string* bytes) {
    TFileResult result = ReadOn(file, limit, bytes);
    if (!result.IsDone()) bytes->clear();
    return result;
}
