#pragma once
#include "tests/support/temporaryfolder.h"
#include <functional>
#include <memory>
#include <string>
#include <vector>

/// Something that callers of the library do, with all objects and files that it needs.
class IWork {
public:
    virtual ~IWork() = default;
    /// What runs out of memory. It may be done again, with the same result, whether it has ended
    /// before or not. False when an operation says that it failed.
    virtual bool Do() = 0;
    /// Everything that it made, in words.
    virtual std::string GetResult() = 0;
    /// Whether the file or the object that it changes is whole: as it was, or as it is to be.
    virtual bool IsWhole() { return true; }
};

struct TWorkRow {
    const char* Name;
    std::function<std::unique_ptr<IWork>()> Make;
    std::ptrdiff_t MostLost = 0;  ///< allocations that a library below this one may lose
};

/// One folder for all work: names of files stay in memory until the process ends. Empty again.
inline const TemporaryFolder& GetEmptyFolder() {
    static const TemporaryFolder folder;
    for (const auto& entry : std::filesystem::directory_iterator(folder.Path()))
        std::filesystem::remove_all(entry);
    return folder;
}

std::vector<TWorkRow> MakeXmlWorks();
std::vector<TWorkRow> MakeBuildWorks();
std::vector<TWorkRow> MakeEditWorks();
std::vector<TWorkRow> MakeProjectFileWorks();
std::vector<TWorkRow> MakeSettingsWorks();
/// In a program of their own.
std::vector<TWorkRow> MakeScanWorks();

template <class TWork>
TWorkRow WorkRow(const char* name, std::ptrdiff_t mostLost = 0) {
    return {name, [] { return std::make_unique<TWork>(); }, mostLost};
}
