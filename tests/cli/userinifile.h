#pragma once
#include "services/files/directories.h"
#include "services/ini/inifilenames.h"
#include "services/ini/propcache.h"
#include "tests/support/temporaryfolder.h"
#include <string>

/// A user's INI file with the given text, and none of the system.
class UserIniFile {
public:
    explicit UserIniFile(const std::string& text) {
        SetIniFile(Folder.Write("user.ini", text).c_str());
        SetSystemIniFile(Folder.Path("system.ini").c_str());
    }
    ~UserIniFile() {
        SetIniFile(nullptr);
        SetSystemIniFile(nullptr);
    }
    UserIniFile(const UserIniFile&) = delete;
    UserIniFile& operator=(const UserIniFile&) = delete;

    /// What it holds after all changes of the cache are written.
    std::string Read() const {
        GetSystemPropCache()->Flush();
        return Folder.Read("user.ini");
    }

private:
    TemporaryFolder Folder;
};
