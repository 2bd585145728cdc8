#pragma once
#include "services/base/api.h"
#include "services/hdl/hdllanguage.h"
#include <string>

class IHdlSourceFile;
class TProjectSimLanguageConfig;

/// What source files and simulation code may ask of their build.
class HDLBUILDFILE_SHARED_TYPE IBuildManager {
public:
    IBuildManager() = default;
    /// There is nothing to copy.
    IBuildManager(const IBuildManager&) {}
    IBuildManager& operator=(const IBuildManager&) { return *this; }
    virtual ~IBuildManager() = default;

    /// The source of that name, or a new one that is in no group yet. It stays the build's.
    virtual IHdlSourceFile* CreateOrGetSourceFile(const char* fileName) = 0;
    /// The configuration that a source read from a file takes; null when there is none.
    virtual TProjectSimLanguageConfig* GetProjectLanguageConfigForFileRead(
        THdlLanguage language) = 0;
    /// Null when there is none.
    virtual TProjectSimLanguageConfig* GetProjectLanguageConfig(THdlLanguage language) = 0;
    /// The options of one step of the simulation, with variables resolved; "" without a
    /// configuration.
    virtual std::string GetCompileOptions(THdlLanguage language) = 0;
    virtual std::string GetElaboratorOptions(THdlLanguage language) = 0;
    virtual std::string GetRuntimeOptions(THdlLanguage language) = 0;
};
