#pragma once
#include "projectfiles/hdbobjectobserver.h"
#include "projectfiles/hdlprojectfile.h"
#include "projectfiles/hdlprojectfilelist.h"
#include "services/designdatabase/hdbbase.h"
#include "services/designdatabase/iprojectcomponent.h"
#include <string>
#include <utility>

/// The library only carries pointers to scopes.
class hdb::IStreamScope {};

/// A component with settings to hand out that records what it is asked and told.
class FakeComponent : public IProjectComponent {
public:
    TProjectSimLanguageConfig* GetProjectLanguageConfig(THdlLanguage language) override {
        Calls += "language " + std::to_string(language) + "\n";
        return LanguageConfig;
    }
    TProjectSimGeneralConfig* GetGeneralConfiguration() const override { return GeneralConfig; }
    void SetProjectModified(bool modified) override {
        Calls += std::string("modified ") + (modified ? "true" : "false") + "\n";
    }
    std::string Take() { return std::exchange(Calls, {}); }

    TProjectSimLanguageConfig* LanguageConfig = nullptr;
    TProjectSimGeneralConfig* GeneralConfig = nullptr;

private:
    std::string Calls;
};

/// Records the indexes it is told, each followed by a blank.
class RecordingObserver : public AHdbObjectObserver {
public:
    void FileInserted(int index) override { Indexes += std::to_string(index) + " "; }
    std::string Take() { return std::exchange(Indexes, {}); }

private:
    std::string Indexes;
};

/// A project file that writes its name to `grave` when it is deleted.
class MortalFile : public THdlProjectFile {
public:
    MortalFile(const char* name, std::string& grave)
        : THdlProjectFile(ISFileName::NewISFileName(name), nullptr, false), Grave(&grave) {}
    MortalFile(const MortalFile&) = default;
    MortalFile& operator=(const MortalFile&) = default;
    ~MortalFile() override { *Grave += std::string(ShortName(false)) + " "; }

private:
    std::string* Grave;
};

inline const ISFileName* Name(const std::string& name) {
    return ISFileName::NewISFileName(name.c_str());
}

/// A tracked name without a handle.
inline const THdbSFileName& HandlelessName() {
    static const ISFileName* const none = nullptr;
    static const THdbSFileName name(none);
    return name;
}

/// The names of the files in list order, each followed by a blank; "-" for one without a handle.
inline std::string NamesOf(const THdlProjectFileList& list) {
    std::string names;
    for (const THdlProjectFile* file : list)
        names += std::string(file->GetFileName() ? file->ShortName(false) : "-") + " ";
    return names;
}

/// Adds files "f0.v", "f1.v", ... by name, more than a list finds by walking.
inline constexpr int kManyFiles = 40;
inline void AddManyFiles(THdlProjectFileList& list) {
    for (int number = 0; number < kManyFiles; ++number)
        list.AddAtTailAndSetOwner(Name("f" + std::to_string(number) + ".v"));
}
