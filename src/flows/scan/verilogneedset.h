#pragma once
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <unordered_map>
#include <vector>

/// Which needs are known: a file may name the same ones very often.
class TVerilogNeedSet {
public:
    struct TKey {
        std::uint32_t Unit = 0;
        std::uint32_t Kind = 0;  ///< never all ones
        std::uint32_t Library = 0;
        std::uint32_t Name = 0;

        bool operator==(const TKey&) const = default;
    };

    TVerilogNeedSet();

    /// A number for a text, the same for equal ones. Keeps `text`, not a copy.
    std::uint32_t NumberOf(std::string_view text);

    bool Contains(const TKey& key) const { return Slots[SlotOf(key)] == key; }
    /// The key must not be there.
    void Insert(const TKey& key);

private:
    static constexpr TKey kEmpty = {0, static_cast<std::uint32_t>(-1), 0, 0};

    std::size_t SlotOf(const TKey& key) const;

    std::unordered_map<std::string_view, std::uint32_t> Numbers;
    std::vector<TKey> Slots;  // a power of two of them, a third at least empty
    std::size_t Count = 0;
};
