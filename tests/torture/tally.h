#pragma once
#include <cstddef>
#include <string>

// The address sanitizer multiplies memory and time, and finds no leaks under strace.
#if defined(__SANITIZE_ADDRESS__)
inline constexpr bool kHasAddressSanitizer = true;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
inline constexpr bool kHasAddressSanitizer = true;
#else
inline constexpr bool kHasAddressSanitizer = false;
#endif
#else
inline constexpr bool kHasAddressSanitizer = false;
#endif

/// Whether every fault is to be tried (HDLBUILDFILE_TORTURE is "full"), not only some of each kind.
bool IsFullTorture();
/// One of the two, as it is.
std::size_t OfTorture(std::size_t inShort, std::size_t inFull);

/// Counts the tries of one class of faults and those that were survived.
///
/// Its end adds a line to the file that HDLBUILDFILE_TORTURE_TABLE names: class, tries and
/// survivors, with tabulators between them. Several tests may count the same class, also at once:
/// each adds a line of its own.
class TTally {
public:
    /// `faults` is the name of the class, without tabulators and line ends.
    explicit TTally(std::string faults);
    TTally(const TTally&) = delete;
    TTally& operator=(const TTally&) = delete;
    ~TTally();

    /// Counts one try; returns `survived`.
    bool Count(bool survived);
    std::size_t GetTries() const { return Tries; }
    std::size_t GetSurvived() const { return Survived; }

private:
    std::string Faults;
    std::size_t Tries = 0;
    std::size_t Survived = 0;
};
