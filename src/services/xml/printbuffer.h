#pragma once
#include <array>
#include <cstring>
#include <ostream>
#include <streambuf>
#include <string>
#include <string_view>

/// What a document is printed into: the buffer of a stream, which printers that know it fill
/// without the detours of one.
class TPrintBuffer final : public std::streambuf {
public:
    TPrintBuffer() { setp(Area.data(), Area.data() + Area.size()); }

    /// The buffer of `stream`; null for a stream over any other.
    static TPrintBuffer* Of(std::ostream& stream);

    /// Makes room for as many bytes, so that they need not be moved when there are more.
    void Expect(std::size_t size) { Flushed.reserve(size); }
    /// Room for `size` bytes, to be followed by Advance() with what was used; null for more than
    /// the buffer ever has at a time.
    char* Reserve(std::size_t size) {
        if (static_cast<std::size_t>(epptr() - pptr()) >= size) return pptr();
        return MakeRoom(size);
    }
    void Advance(char* end) { pbump(static_cast<int>(end - pptr())); }
    void Append(std::string_view text) {
        sputn(text.data(), static_cast<std::streamsize>(text.size()));
    }

    /// Bytes printed so far.
    std::size_t GetSize() const {
        return Flushed.size() + static_cast<std::size_t>(pptr() - pbase());
    }
    /// The byte printed last; 0 when there is none.
    char GetLast() const;
    /// Takes the byte printed last back.
    void DropLast();
    /// All that was printed; the buffer is then empty.
    std::string TakeText();

protected:
    std::streamsize xsputn(const char* bytes, std::streamsize count) override;
    int_type overflow(int_type c) override;

private:
    char* MakeRoom(std::size_t size);
    void Flush();

    std::string Flushed;
    std::array<char, 2048> Area;  // copied in a few steps, while it is in the cache
};
