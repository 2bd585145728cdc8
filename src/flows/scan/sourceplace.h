#pragma once
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

/// Where something stands in a file.
struct TSourcePlace {
    std::uint32_t Line = 0;    ///< 1-based; 0 is no place
    std::uint32_t Column = 0;  ///< 1-based, in bytes
    /// 0 for the scanned file; else the 1-based number of the included one in its Includes.
    std::uint32_t Include = 0;
};

/// Tells the places of one text. LF, CR LF and a lone CR end a line; a byte order mark takes no
/// column. Looks at the text no farther than places were asked for.
class TSourceLines {
public:
    /// Keeps `text`, not a copy.
    explicit TSourceLines(std::string_view text);

    /// The place of the byte at `offset`; of one behind the end, the place behind the last byte.
    TSourcePlace Find(std::size_t offset);

private:
    void FindLines(std::size_t end);

    std::string_view Text;
    std::vector<std::size_t> Starts;  // of the lines found so far
    std::size_t Sought;               // up to here
};
