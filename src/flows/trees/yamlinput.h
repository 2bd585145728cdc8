#pragma once
#include "flows/trees/tree.h"
#include <cstddef>
#include <streambuf>
#include <string>
#include <string_view>

/// How many values of a small file the parser of YAML may keep. They take three hundred bytes each.
inline constexpr std::size_t kMostKeptYamlValues = 125'000;
/// It may keep one more for so many bytes of a large file.
inline constexpr std::size_t kBytesOfKeptYamlValue = 64;

/// The text of a document for a parser that keeps all of a list or map in brackets that lies in
/// another one before it tells of any of it: ends the text early where that were too many values.
class TYamlInput : public std::streambuf {
public:
    /// Keeps the text.
    explicit TYamlInput(std::string_view text);

    /// The parser has told of something, and keeps no value any more.
    void Forget() { Kept = 0; }
    /// Whether the text was ended early, where and why.
    bool IsCut() const { return HasTooMany; }
    TTreePlace GetCut() const;
    std::string GetReason() const;

protected:
    int_type underflow() override;

private:
    std::string_view Text;
    std::size_t MostKept;
    std::size_t End = 0;   // of what was handed over
    std::size_t Kept = 0;  // values that the parser may keep, at most
    bool HasTooMany = false;
};
