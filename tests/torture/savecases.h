#pragma once
#include "tests/support/temporaryfolder.h"
#include <map>
#include <string>
#include <utility>
#include <vector>

/// One save of the library or the tool, as a command that changes or makes one file.
struct TSaveCase {
    const char* Label;
    std::vector<std::pair<std::string, std::string>> Files;  ///< names and bytes
    std::string Program;
    std::string Arguments;
    std::string Target;  ///< one of the files, or one that the command makes
};

/// Every kind of save: the library's own, edits of the tool, and the files that it makes.
const std::vector<TSaveCase>& SaveCases();

/// A run of a simulation with a report, by programs of the shell in the place of a simulator.
TSaveCase ReportCase();
/// Why the tool cannot run builds here; "" when it can.
std::string WhyNoRun();

/// The text of a report with times as "T": they differ each time.
std::string WithoutTimes(const std::string& text);

/// A folder in which a save can be tried again and again.
class TSavePlace {
public:
    explicit TSavePlace(const TSaveCase& save) : Save(save) {}

    /// Puts the files back, with nothing beside them, or beside what tries have left.
    void Restore() const;
    void RestoreTarget() const;
    /// Puts other files in their place.
    void Put(const std::map<std::string, std::string>& files) const;
    /// All files, by their paths.
    std::map<std::string, std::string> Files() const;
    /// The save behind the words of `prefix`; the status of a shell, 128 + signal for one that a
    /// signal ended. Its results are thrown away.
    int Run(const std::string& prefix = {}) const;
    /// What the last Run() has printed on standard error.
    std::string Errors() const { return Home.Read("errors"); }

    std::string Path(const std::string& name = {}) const { return Folder.Path(name); }
    std::string Target() const;
    /// The bytes of the file that is saved, without times.
    std::string Read() const;
    std::string List() const;
    /// Whether the save works and leaves nothing but what it is to make. Called before any fault,
    /// it says what that is.
    bool Saves();

    const std::string& Old() const { return OldBytes; }
    const std::string& New() const { return NewBytes; }
    const std::string& ListBefore() const { return OldList; }
    const std::string& ListAfter() const { return NewList; }

    /// Whether the file is whole, and the one that the status tells of: the new one for 0, the old
    /// one for a failure. Killed programs tell nothing, and for 1 the build had problems, such as a
    /// source that cannot be read: then what was made of the rest may stand there.
    bool IsAsTold(int status) const;
    /// Whether nothing stays beside the file but a lock file, which means nothing.
    bool IsCleanBeside() const;
    /// Whether the next save works after whatever went before, and cleans up behind it.
    bool SavesAgain() const;

private:
    const TSaveCase& Save;
    TemporaryFolder Folder;
    TemporaryFolder Home;  // where the log goes
    std::string OldBytes;
    std::string OldList;
    std::string NewBytes;
    std::string NewList;
};
