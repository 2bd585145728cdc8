#pragma once
#include "projectfiles/sourcename.h"
#include <array>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

/// Finds a value by the name of a source. Numbers of files that were named together follow each
/// other, and so do the values here: a build asks for a million names, and each step to some other
/// place in memory would miss the processor's cache.
template <class TValue>
class TSourceNameTable {
public:
    /// Null when the name is not in the table. Valid until the table changes.
    TValue* Find(const TSourceName& name) {
        TPage* page = FindPage(name.GetNumber() / kPageSize);
        const std::size_t i = name.GetNumber() % kPageSize;
        return page && page->Has(i) ? &page->Values[i] : nullptr;
    }
    const TValue* Find(const TSourceName& name) const {
        return const_cast<TSourceNameTable*>(this)->Find(name);
    }
    /// The value of `name`, not that of no file, and whether it was put in now.
    std::pair<TValue*, bool> Add(const TSourceName& name, const TValue& value) {
        TPage& page = GetOrMakePage(name.GetNumber() / kPageSize);
        const std::size_t i = name.GetNumber() % kPageSize;
        const bool isNew = !page.Has(i);
        if (isNew) page.Values[i] = value;
        page.Used |= std::uint32_t{1} << i;
        return {&page.Values[i], isNew};
    }
    /// Does nothing when the name is not in the table.
    void Remove(const TSourceName& name) {
        TPage* page = FindPage(name.GetNumber() / kPageSize);
        if (page) page->Used &= ~(std::uint32_t{1} << name.GetNumber() % kPageSize);
    }
    /// Frees the memory, too.
    void Clear() {
        Pages = {};
        Places = {};
    }

private:
    static constexpr std::size_t kPageSize = 32;
    static constexpr std::size_t kFirstPlaces = 4;

    /// The values of neighbouring numbers.
    struct TPage {
        std::size_t Number;
        std::uint32_t Used = 0;  // a bit for each value
        std::array<TValue, kPageSize> Values;

        bool Has(std::size_t i) const { return (Used >> i & 1U) != 0; }
    };

    TPage* FindPage(std::size_t number) {
        if (Places.empty()) return nullptr;
        const std::uint32_t place = Places[PlaceOf(number)];
        return place == 0 ? nullptr : &Pages[place - 1];
    }
    TPage& GetOrMakePage(std::size_t number) {
        if (TPage* page = FindPage(number)) return *page;
        // All memory is taken before anything changes.
        std::vector<std::uint32_t> more;
        const bool isFull = (Pages.size() + 1) * 2 > Places.size();
        if (isFull) more.resize(Places.empty() ? kFirstPlaces : Places.size() * 2);
        Pages.push_back({number, 0, {}});
        if (isFull) {
            Places.swap(more);
            for (std::size_t i = 0; i < Pages.size(); ++i) Enter(i);
        } else {
            Enter(Pages.size() - 1);
        }
        return Pages.back();
    }
    void Enter(std::size_t page) {
        Places[PlaceOf(Pages[page].Number)] = static_cast<std::uint32_t>(page + 1);
    }
    /// The place of the page, or the free one where it belongs.
    std::size_t PlaceOf(std::size_t number) const {
        const std::uint64_t mixed = number * std::uint64_t{0x9E3779B97F4A7C15};
        std::size_t place = static_cast<std::size_t>(mixed >> 32) & (Places.size() - 1);
        while (Places[place] != 0 && Pages[Places[place] - 1].Number != number)
            place = (place + 1) & (Places.size() - 1);
        return place;
    }

    std::vector<TPage> Pages;
    // Where each page is, plus one; 0 is free. None or a power of two, at most half of them in use.
    std::vector<std::uint32_t> Places;
};
