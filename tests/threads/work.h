#pragma once
#include "services/names/isfilename.h"
#include "tests/support/temporaryfolder.h"
#include <string>

/// What one thread works in. The files in `Shared` are named and looked at by all threads, and
/// written only where that is the work; `Own` is the thread's.
struct TWorkPlace {
    const TemporaryFolder& Shared;
    const TemporaryFolder& Own;
    int Number;     ///< of the thread, from 0 on
    int Round = 0;  ///< counts up
    std::string Thread = "thread" + std::to_string(Number);

    std::string RoundText() const { return std::to_string(Round); }
    const ISFileName* SharedHandle(const std::string& name) const {
        return ISFileName::NewISFileName(Shared.Path(name).c_str());
    }
    const ISFileName* OwnHandle(const std::string& name) const {
        return ISFileName::NewISFileName(Own.Path(name).c_str());
    }
};

/// Work of one round, which expects what it would get alone in the process.
using TWork = void (*)(const TWorkPlace& place);

/// The sources that all builds name: the even ones of so many are there.
inline constexpr int kSharedSources = 20;
inline std::string SharedSource(int number) {
    return "shared" + std::to_string(number) + ".vhd";
}

// Builds: read, ordered, edited, saved, reloaded and destroyed.
void ReadAndOrderABuild(const TWorkPlace& place);
void EditAndSaveABuild(const TWorkPlace& place);
void CopyABuild(const TWorkPlace& place);
void ReplaceABrokenBuildFile(const TWorkPlace& place);

// Names that all threads share, and lists of a thread's own.
void AskForNames(const TWorkPlace& place);
void RecordTimes(const TWorkPlace& place);
void RenameListedFiles(const TWorkPlace& place);
void ExpandVariables(const TWorkPlace& place);
void FailACheck(const TWorkPlace& place);

// Settings, in files of a thread's own, in one of all threads and in those of the process.
void SaveAProjectFile(const TWorkPlace& place);
void SaveTheCommonProjectFile(const TWorkPlace& place);
void SaveToTheIniFile(const TWorkPlace& place);
void SetTheHomeDirectory(const TWorkPlace& place);
void SaveSimulators(const TWorkPlace& place);
void AskForOptionTexts(const TWorkPlace& place);

// What the tool does with builds: documents edited in place, sources scanned, plans written for
// other tools and read from their files.
void EditADocumentInPlace(const TWorkPlace& place);
void ScanABuild(const TWorkPlace& place);
void ExportAndImport(const TWorkPlace& place);
