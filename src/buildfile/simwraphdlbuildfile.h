#pragma once
#include "buildfile/hdlbuildfile.h"

/// A build file that owns its configurations: its end deletes the language configurations and the
/// general configuration, also one that a caller set or the reader made. Copies delete them once,
/// with the last of them. A general configuration that a caller set and that was then replaced,
/// cleared or reloaded away is the caller's again.
class HDLBUILDFILE_API TSimWrapHdlBuildFile : public THdlBuildFile {
public:
    TSimWrapHdlBuildFile();
    /// Reads the file at once, as THdlBuildFile does.
    explicit TSimWrapHdlBuildFile(const ISFileName* name);
    TSimWrapHdlBuildFile(const TSimWrapHdlBuildFile& other);
    TSimWrapHdlBuildFile& operator=(const TSimWrapHdlBuildFile& other) = default;
    ~TSimWrapHdlBuildFile() override;
};
