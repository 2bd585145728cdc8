#pragma once
#include "services/files/directories.h"
#include "tests/support/temporaryfolder.h"
#include <string>

/// An application-data directory of the tests' own. The process asks for the default simulators
/// file once: all tests share it.
class AppDataDirectory {
public:
    AppDataDirectory() { SetTalveraAppDataDirectory((Path() + "/").c_str()); }
    ~AppDataDirectory() { SetTalveraAppDataDirectory(nullptr); }
    AppDataDirectory(const AppDataDirectory&) = delete;
    AppDataDirectory& operator=(const AppDataDirectory&) = delete;

    /// The directory, or a file in it. It need not exist.
    static std::string Path(const std::string& name = {}) {
        static const TemporaryFolder folder;
        return folder.Path(name.empty() ? "data" : "data/" + name);
    }
};
