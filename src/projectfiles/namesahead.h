#pragma once
#include "projectfiles/sourcenotes.h"
#include "services/files/basedirectory.h"
#include <array>
#include <cstddef>
#include <string>
#include <string_view>

/// The names that are going to be asked for: each is looked for in small steps while its
/// forerunners are worked on, because a build that does not fit into the processor's cache would
/// wait for memory at each of them.
class TNamesAhead {
public:
    /// Relative names are taken against the directory of `file`, a shared handle; `notes` tell what
    /// is known of them and must outlive this object.
    TNamesAhead(const ISFileName* file, TSourceNotes* notes);

    bool IsFull() const { return Count == kSize; }
    void DropAll() { Count = 0; }
    /// `name` will be asked for after those announced before, to work on its source when
    /// `isSourceNeeded`. Not to be called when full.
    void Announce(std::string_view name, bool isSourceNeeded);
    bool IsNext(std::string_view name) const { return Count > 0 && Names[First].Text == name; }
    /// The note of the next name; null when it is another one, is not relative, or no note spells
    /// it so.
    TSourceNote* FindNote(std::string_view text);
    /// The handle of the next name; null when it is another one or is not relative to the directory
    /// of `file`.
    const ISFileName* FindHandle(std::string_view text, const ISFileName* file);
    /// The next name was asked for: all others come nearer.
    void DropNext();

private:
    static constexpr std::size_t kSize = 16;
    // So many names ahead.
    static constexpr std::size_t kFetchName = 8;
    static constexpr std::size_t kFetchSource = 3;
    struct TName {
        std::string Text;
        std::string Path;  // canonical
        std::size_t Hash = 0;
        bool IsRelative = false;
        bool IsSourceNeeded = false;
    };
    const TName* FindRelative(std::size_t distance);
    TName& At(std::size_t distance) { return Names[(First + distance) % kSize]; }

    const ISFileName* File;
    TSourceNotes* Notes;
    TBaseDirectory Directory;
    std::array<TName, kSize> Names;
    std::size_t First = 0;
    std::size_t Count = 0;
};
