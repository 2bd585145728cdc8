#include "buildfile/simwraphdlbuildfile.h"

TSimWrapHdlBuildFile::TSimWrapHdlBuildFile() {
    OwnConfigurations();
}

TSimWrapHdlBuildFile::TSimWrapHdlBuildFile(const ISFileName* name) : THdlBuildFile(name) {
    OwnConfigurations();
}

TSimWrapHdlBuildFile::TSimWrapHdlBuildFile(const TSimWrapHdlBuildFile& other)
    : THdlBuildFile(other) {
    OwnConfigurations();
}

TSimWrapHdlBuildFile::~TSimWrapHdlBuildFile() {
    DeleteConfigurations();
}
