#pragma once
#include "services/files/basedirectory.h"
#include "services/names/isfilename.h"
#include <array>
#include <cstddef>
#include <string>
#include <string_view>

/// The handles of names that are going to be asked for: each is looked for in small steps while its
/// forerunners are worked on, because a build that does not fit into the processor's cache would
/// wait for memory at each of them.
class TNamesAhead {
public:
    /// Relative names are taken against the directory of `file`, a shared handle.
    explicit TNamesAhead(const ISFileName* file);

    bool IsFull() const { return Count == kSize; }
    void DropAll() { Count = 0; }
    /// `name` will be asked for after those announced before. Not to be called when full.
    void Announce(std::string_view name);
    bool IsNext(std::string_view name) const { return Count > 0 && Names[First].Text == name; }
    /// The handle of the next name; null when it is another one or is not relative to the directory
    /// of `file`.
    const ISFileName* FindNext(std::string_view name, const ISFileName* file);
    /// The next name was asked for: all others come nearer.
    void DropNext();
    /// The handle of the name that is asked for after `distance` others, null when nobody knows it
    /// yet.
    const ISFileName* Peek(std::size_t distance) const;

private:
    static constexpr std::size_t kSize = 16;
    static constexpr std::size_t kApproach = 10;
    static constexpr std::size_t kFinish = 6;
    struct TName {
        std::string Text;
        THandleSearch Search;
        const ISFileName* Handle = nullptr;
        bool IsRelative = false;
    };
    TName& At(std::size_t distance) { return Names[(First + distance) % kSize]; }

    const ISFileName* File;
    TBaseDirectory Directory;
    std::array<TName, kSize> Names;
    std::size_t First = 0;
    std::size_t Count = 0;
};
