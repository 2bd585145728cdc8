#include "services/files/limitedread.h"
#include <algorithm>

namespace {

TFileResult RefuseSize(const std::string& size, std::uint64_t limit) {
    return {TFileFault::Other,
            "the file is too large: " + size + " bytes, the limit is " + std::to_string(limit)};
}

TFileResult ReadOn(std::uint64_t size, std::uint64_t limit, const TReadSome& readSome,
                   std::string* bytes) {
    // One byte more shows the end of the file without another round.
    bytes->resize(static_cast<std::size_t>(size) + 1);
    for (std::size_t end = 0;;) {
        std::size_t count = 0;
        TFileResult result = readSome(bytes->data() + end, bytes->size() - end, &count);
        if (!result.IsDone()) return result;
        end += count;
        if (end > limit) return RefuseSize("it grows to more than " + std::to_string(limit), limit);
        if (count == 0) {
            bytes->resize(end);
            return {};
        }
        if (end == bytes->size())
            bytes->resize(std::min(end * 2, static_cast<std::size_t>(limit) + 1));
    }
}

}  // namespace

TFileResult ReadLimited(std::uint64_t size, std::uint64_t limit, const TReadSome& readSome,
                        std::string* bytes) {
    bytes->clear();
    // What no text can hold.
    limit = std::min<std::uint64_t>(limit, bytes->max_size() / 2);
    if (size > limit) return RefuseSize(std::to_string(size), limit);
    TFileResult result = ReadOn(size, limit, readSome, bytes);
    if (!result.IsDone()) bytes->clear();
    return result;
}
