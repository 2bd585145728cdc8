#pragma once
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

/// A text that does not change, in memory that is somebody else's: as long as a pointer, its length
/// stored in front of its bytes. Ends with a zero, which does not count. Copies share the bytes.
class TFixedText {
public:
    /// The empty text, which lives for ever.
    constexpr TFixedText() = default;

    /// Bytes that Store() needs for a text of `length`.
    static constexpr std::size_t SizeOf(std::size_t length) { return kHead + length + 1; }
    /// Copies `text` to `memory`, SizeOf() bytes without any alignment, where it then lies.
    static TFixedText Store(std::string_view text, void* memory) {
        char* const begin = static_cast<char*>(memory);
        const auto length = static_cast<std::uint32_t>(text.size());
        std::memcpy(begin, &length, kHead);
        if (length > 0) std::memcpy(begin + kHead, text.data(), length);
        begin[kHead + length] = '\0';
        return TFixedText(begin + kHead);
    }
    /// The memory that was given to Store().
    const void* GetMemory() const { return Bytes - kHead; }

    operator const char*() const { return Bytes; }
    const char* c_str() const { return Bytes; }
    std::size_t Length() const {
        std::uint32_t length;
        std::memcpy(&length, Bytes - kHead, kHead);
        return length;
    }
    bool IsEmpty() const { return Length() == 0; }
    /// Lives as long as the text.
    std::string_view View() const { return {Bytes, Length()}; }
    /// A copy.
    std::string Str() const { return std::string(View()); }

    friend bool operator==(const TFixedText& a, const TFixedText& b) {
        return a.Bytes == b.Bytes || a.View() == b.View();
    }
    friend bool operator==(const TFixedText& a, std::string_view b) { return a.View() == b; }
    friend bool operator==(const TFixedText& a, const std::string& b) { return a.View() == b; }
    /// Null counts as empty.
    friend bool operator==(const TFixedText& a, const char* b) {
        if (!b) return a.IsEmpty();
        return *a.Bytes == *b && a.View() == b;
    }
    friend bool operator<(const TFixedText& a, const TFixedText& b) { return a.View() < b.View(); }

private:
    static constexpr std::size_t kHead = sizeof(std::uint32_t);
    static constexpr char kEmpty[kHead + 1] = {};

    constexpr explicit TFixedText(const char* bytes) : Bytes(bytes) {}

    const char* Bytes = kEmpty + kHead;
};
