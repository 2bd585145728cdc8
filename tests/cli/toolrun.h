#pragma once
#include "cli/commands.h"
#include "tests/support/temporaryfolder.h"
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

/// What one run of the tool gave.
struct TToolRun {
    int Status;
    std::string Out;
    std::string Err;
};

inline TToolRun RunHdlbuild(const std::vector<std::string>& arguments, bool colorErrors = false) {
    std::ostringstream out;
    std::ostringstream err;
    const int status = RunTool(arguments, {out, err, colorErrors});
    return {status, out.str(), err.str()};
}

/// The status, if it is not 0, and both streams.
inline std::string ResultOf(const std::vector<std::string>& arguments) {
    const TToolRun run = RunHdlbuild(arguments);
    return (run.Status ? std::to_string(run.Status) + "\n" : "") + run.Out + run.Err;
}

/// A folder of its own that is the current directory meanwhile.
class WorkingFolder : public TemporaryFolder {
public:
    WorkingFolder() : Former(std::filesystem::current_path()) {
        const std::string path = Path();
        std::filesystem::current_path(
            std::filesystem::path(std::u8string(path.begin(), path.end())));
    }
    ~WorkingFolder() { std::filesystem::current_path(Former); }

private:
    std::filesystem::path Former;
};

/// A build file around the given sections, with VHDL as its language.
inline std::string BuildText(const std::string& sections) {
    return "<!DOCTYPE HdlBuildFileList SYSTEM \"hdl-buildfile.dtd\">\n"
           "<HdlBuildFileList>\n"
           "<HdlBuildFile TopLevelLanguage=\"VHDL\" HvlLanguage=\"VHDL\" HdlLanguage=\"VHDL\" "
           "DestinationLibrary=\"work\">\n" +
           sections + "</HdlBuildFile>\n</HdlBuildFileList>\n";
}

inline std::string SourceText(const std::string& path,
                              const std::vector<std::string>& dependencies = {},
                              const std::string& attributes = "") {
    std::string text = "<SourceFile " + attributes + ">" + path;
    for (const std::string& dependency : dependencies)
        text += "<Dependency>" + dependency + "</Dependency>";
    return text + "</SourceFile>\n";
}
