#pragma once
#include <cstring>
#include <functional>
#include <memory>
#include <ostream>
#include <streambuf>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// What a document is printed into: the buffer of a stream, which printers that know it fill
/// without the detours of one. Its bytes lie in parts, so that they are never moved when there are
/// more.
class TPrintBuffer final : public std::streambuf {
public:
    /// Takes what was printed so far, or since it was called last.
    using TTaker = std::function<void(std::string_view)>;

    /// With a taker, the buffer keeps a few parts at most.
    explicit TPrintBuffer(TTaker taker = {}) : Taker(std::move(taker)) {}

    /// The buffer of `stream`; null for a stream over any other.
    static TPrintBuffer* Of(std::ostream& stream);

    /// Room for `size` bytes, to be followed by Advance() with what was used, one byte at least;
    /// null for more than the buffer ever has at a time.
    char* Reserve(std::size_t size) {
        if (static_cast<std::size_t>(epptr() - pptr()) >= size) return pptr();
        return MakeRoom(size);
    }
    void Advance(char* end) { pbump(static_cast<int>(end - pptr())); }
    void Append(std::string_view text) {
        if (char* const room = Reserve(text.size())) {
            std::memcpy(room, text.data(), text.size());
            Advance(room + text.size());
        } else {
            AppendInPieces(text);
        }
    }

    /// Bytes printed so far.
    std::size_t GetSize() const { return SizeOfFull + static_cast<std::size_t>(pptr() - pbase()); }
    /// The byte printed last; 0 when there is none, or it was taken back.
    char GetLast() const { return pptr() > pbase() ? pptr()[-1] : '\0'; }
    /// Takes the byte printed last back, which there must be.
    void DropLast() { pbump(-1); }
    /// All that was printed and not taken, in order. The parts are the buffer's, until something is
    /// printed.
    std::vector<std::string_view> GetParts() const;
    /// The same in one text.
    std::string GetText() const;

protected:
    std::streamsize xsputn(const char* bytes, std::streamsize count) override;
    int_type overflow(int_type c) override;

private:
    struct TPart {
        std::unique_ptr<char[]> Bytes;
        std::size_t Size = 0;
    };

    char* MakeRoom(std::size_t size);
    void AppendInPieces(std::string_view text);
    void GivePartsAway();
    void PutPresentAside();

    TTaker Taker;
    std::vector<TPart> Full;  // none is empty
    std::size_t SizeOfFull = 0;
    std::unique_ptr<char[]> Present;  // where the stream puts its bytes; holds the last one
};
