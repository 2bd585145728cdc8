#pragma once
#include "tests/cli/toolrun.h"

/// A copy of the shipped project of VHDL and Verilog, whose folder is the current directory
/// meanwhile.
class SensorsExample {
public:
    explicit SensorsExample(const std::string& folderName = "sensors") {
        std::filesystem::copy(HDLBUILDFILE_SOURCE_DIR "/examples/sensors", folderName,
                              std::filesystem::copy_options::recursive);
        std::filesystem::current_path(folderName);
        Prefix = folderName + "/";
    }

    std::string Read(const std::string& name) const { return Folder.Read(Prefix + name); }

private:
    WorkingFolder Folder;
    std::string Prefix;
};
