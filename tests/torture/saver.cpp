#include "buildfile/hdlbuildfile.h"
#include "services/ini/propcache.h"
#include "services/names/isfilename.h"
#include "settings/hpjfile.h"
#include "settings/projectsimsettings.h"
#include <iterator>
#include <string>

// saver <kind> <file>: changes and saves one file, as a program that is built on the library does.

namespace {

bool SaveBuild(const char* path) {
    THdlBuildFile build(ISFileName::NewISFileName(path));
    if (!build.HasBuildElement()) return false;
    build.SetDestinationLibrary("lib");
    return build.WriteToFile();
}

bool SaveProject(const char* path) {
    THpjFile file(ISFileName::NewISFileName(path));
    TProjectSimSettings settings;
    if (file.Read(&settings) != HPJ_FILE_DONE) return false;
    settings.GetConfiguration("Default")->GetGeneralConfiguration()->SetLogFileName("new.log");
    return file.Save(&settings) == HPJ_FILE_DONE;
}

bool SaveIni(const char* path) {
    // Its end would try again what failed.
    static TPropCache& cache = *new TPropCache(path, nullptr);
    cache.WritePrivatePropString("a", "b", "d");
    return cache.Flush();
}

constexpr struct {
    const char* Kind;
    bool (*Save)(const char*);
} kSaves[] = {{"build", SaveBuild}, {"project", SaveProject}, {"ini", SaveIni}};

}  // namespace

int main(int count, char** arguments) {
    if (count != 3) return 2;
    for (const auto& row : kSaves)
        if (arguments[1] == std::string(row.Kind)) return row.Save(arguments[2]) ? 0 : 3;
    return 2;
}
