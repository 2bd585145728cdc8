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
    /// Reads a build with this beginning and these sources.
    THdlBuildFile Read(const std::string& attributes, const std::string& sources,
                       const std::string& front = "") const {
        const std::string path =
            Folder.Write("b.xml", "<HdlBuildFileList><HdlBuildFile " + attributes + ">" + front +
                                      "<SourceFileGroup Language=\"VHDL\">" + sources +
                                      "</SourceFileGroup></HdlBuildFile></HdlBuildFileList>");
        return THdlBuildFile(ISFileName::NewISFileName(Folder.Path("b.xml").c_str()));
    }
    TemporaryFolder Folder;
    RecordingMessageBox Box;
};
