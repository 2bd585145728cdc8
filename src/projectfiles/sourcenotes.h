#pragma once
#include "projectfiles/sourcename.h"
#include "services/base/fold.h"
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

/// What a read knows of a name.
struct TSourceNote {
    const ISFileName* Name = nullptr;  ///< a shared handle, as the source spells it
    IHdlSourceFile* Source = nullptr;  ///< null: the build has none
    std::uint32_t Hash = 0;            ///< of the name: TSourceNotes::ShortHash
    bool IsListed = false;             ///< by a group
    bool IsDependency = false;         ///< of a listed source
    bool IsMet = false;
};

/// Notes by name, whatever its letter case. They lie in the table itself, found by the hash of a
/// text: a build asks for millions of names, and each step to some other place in memory would miss
/// the processor's cache.
class TSourceNotes {
public:
    /// Room for `count` names; there may be more.
    explicit TSourceNotes(std::size_t count = 0) : Notes(PlacesFor(count)) {}

    /// The note of a canonical path, `hash` being HashIgnoringCase of it; null when there is none.
    /// Valid until the next FindOrAdd.
    TSourceNote* Find(std::string_view canonical, std::size_t hash);
    /// The note of a source's name, not that of no file, as `file` spells it.
    TSourceNote* FindOrAdd(const ISFileName* file);

    /// Has the place of such a note on its way from memory.
    void FetchNote(std::size_t hash) const;
    /// Has the name of the note on its way; false when there is no note.
    bool FetchName(std::size_t hash) const;

private:
    /// Half of them free, which makes searches short, unless that takes much memory.
    static std::size_t PlacesFor(std::size_t count) {
        constexpr std::size_t kMany = 500'000;
        return std::max<std::size_t>(16, count < kMany ? count * 2 : count / 3 * 4 + 8);
    }
    static std::uint32_t ShortHash(std::size_t hash) {
        // The lowest bits are the same in a table of handles, which keeps neighbours together.
        return static_cast<std::uint32_t>(hash >> 4);
    }
    std::size_t FirstPlace(std::uint32_t hash) const { return PlaceOfHash(hash, Notes.size()); }
    std::size_t After(std::size_t place) const { return place + 1 < Notes.size() ? place + 1 : 0; }
    std::size_t FindPlace(std::string_view canonical, std::uint32_t hash) const;
    void Grow();

    std::vector<TSourceNote> Notes;  // at least a quarter of them free
    std::size_t Count = 0;
};
