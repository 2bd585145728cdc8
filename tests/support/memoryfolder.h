#pragma once
#include "tests/services/names/hostform.h"
#include "tests/support/memoryfilesystem.h"
#include <string>

/// A folder in memory, with the operations of TemporaryFolder: for tests of what is in files, not
/// of the disk. While it lives the library sees no other files: a test has one at a time.
class MemoryFolder {
public:
    // The name is new each time: handles of file names live until the process ends.
    MemoryFolder() : Root("/memory" + std::to_string(NextNumber())) { System.PutFolder(Root); }

    /// The full path of a file or folder in it, in the host's form; "" gives the folder itself.
    std::string Path(const std::string& name = {}) const { return HostForm(Inner(name)); }
    /// Writes a file, making its folders, and returns its path.
    std::string Write(const std::string& name, const std::string& bytes) const {
        System.Put(Inner(name), bytes);
        return Path(name);
    }
    void Remove(const std::string& name) const { System.Remove(Inner(name)); }
    /// The bytes of a file; "<missing>" without one.
    std::string Read(const std::string& name) const { return System.Text(Inner(name)); }
    bool Exists(const std::string& name) const { return System.GetStatus(Inner(name)).Exists; }
    /// The names of the files in the folder, sorted, one a line: shows left-over files.
    std::string List() const {
        std::vector<std::string> names;
        System.ListFolder(Root, &names);
        std::string lines;
        for (const std::string& name : names) lines += name + "\n";
        return lines;
    }

private:
    static int NextNumber() {
        static int number = 0;
        return ++number;
    }
    std::string Inner(const std::string& name) const {
        return name.empty() ? Root : Root + "/" + name;
    }

    std::string Root;
    // As on the disk, a file changes without its folder.
    mutable MemoryFileSystem System;
};
