#pragma once
#include "buildfile/hdlbuildfile.h"
#include "services/names/isfilename.h"
#include "tests/support/recorders.h"
#include "tests/support/temporaryfolder.h"
#include <gtest/gtest.h>
#include <string>

/// A folder with a build and its VHDL sources.
class ScannedFolder : public testing::Test {
protected:
    /// Writes a build with this beginning and these sources.
    const ISFileName* Write(const std::string& attributes, const std::string& sources,
                            const std::string& front = "") const {
        return ISFileName::NewISFileName(
            Folder
                .Write("b.xml", "<HdlBuildFileList><HdlBuildFile " + attributes + ">" + front +
                                    "<SourceFileGroup Language=\"VHDL\">" + sources +
                                    "</SourceFileGroup></HdlBuildFile></HdlBuildFileList>")
                .c_str());
    }
    /// The same, read.
    THdlBuildFile Read(const std::string& attributes, const std::string& sources,
                       const std::string& front = "") const {
        return THdlBuildFile(Write(attributes, sources, front));
    }
    TemporaryFolder Folder;
    RecordingMessageBox Box;
};
