#include "settings/directoryresolution.h"
#include "services/base/fold.h"
#include "services/files/directories.h"
#include "services/files/pathtext.h"
#include "services/ini/inifilenames.h"
#include "services/logging/binarylog.h"
#include "services/names/isfilename.h"
#include "services/names/utilfilename.h"
#include "settings/projectsettingsconfigurationsdata.h"

namespace {

using namespace ProjectSettingsConfigurationsData;

constexpr unsigned kFilePart = PART_NAME | PART_EXTENSION;

bool IsIniFileText(const char* path) {
    return EqualIgnoringCase(path, GetIniFile()->Canonical(false)) ||
           EqualIgnoringCase(path, GetSystemIniFile()->Canonical(false));
}

std::string ResolveRelative(const char* directory, const char* base) {
    TUtilFileName path(base);
    // Templates and diagrams are kept in the INI file. Its folder may be any: the directories that
    // they name belong to the installed environment, so they are relative to the home directory.
    if (IsIniFileText(path.Canonical())) path = TUtilFileName(GetOrvaneHomeDirectory());
    if (path.HasParts(kFilePart)) path.StripParts(kFilePart);
    path.PushDirectory(*directory ? directory : ".");
    return path.CanonicalWithoutFinalSlash();
}

}  // namespace

bool IsIniFileName(const ISFileName* file) {
    return file && IsIniFileText(file->Canonical(false));
}

std::string BaseDirectoryOf(const ISFileName* file) {
    return IsIniFileName(file) ? GetOrvaneHomeDirectory() : file->GetPathOnly();
}

std::string ResolveDirectoryAgainst(const char* directory, const char* base) {
    if (!(directory && base && base[0])) {
        static TCheckSite site("directory && relativeToDirectory && relativeToDirectory[0]",
                               kSource, kResolveDirectory);
        site.Report();
        // Never against the working directory, which has nothing to do with the project.
        if (!directory || IsRelativePath(directory)) return directory ? directory : "";
    }
    if (IsRelativePath(directory)) return ResolveRelative(directory, base);
    std::string absolute = directory;
    if (!IsPathDelimiter(absolute.back())) absolute += '\\';
    return absolute;
}
