#pragma once
#include <string>
#include <vector>

inline constexpr const char* kWasRead = "read";
inline constexpr const char* kWasRefused = "refused";
inline constexpr const char* kHoldsNothing = "holds no sources";

/// Whether that is a result that any bytes may have; else it tells what went wrong.
bool IsSurvival(const std::string& result);

/// A kind of file that is read.
struct TFileReader {
    std::string Name;
    std::string Sample;
    /// Whether a save writes it.
    bool IsSaved;
    /// Reads bytes in place of the sample. kWasRefused when that was with a reason, kWasRead when
    /// they gave a model that a save writes and a read finds again, kHoldsNothing for a list to
    /// import that ends before its first source; else what went wrong.
    std::string (*Read)(const TFileReader& reader, const std::string& bytes);
};

/// Build file, project file, file of simulators, INI file, and all that `import` reads. The build
/// has about 4 KiB.
const std::vector<TFileReader>& GetFileReaders();
/// Null for an unknown name.
const TFileReader* FindFileReader(const std::string& name);
