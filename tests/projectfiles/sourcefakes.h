#pragma once
#include "projectfiles/hdlsourcefile.h"
#include "projectfiles/ibuildmanager.h"
#include "projectfiles/ihdlsourcefilelist.h"
#include "projectfiles/sourcefilegroups.h"
#include "projectfiles/sourcefileowner.h"
#include "services/names/isfilename.h"
#include <deque>
#include <map>
#include <string>

inline const ISFileName* Handle(const std::string& name) {
    return ISFileName::NewISFileName(name.c_str());
}

/// A source's name without its directory; "<null>" for null, "<nameless>" for one without a name.
inline std::string NameOf(const IHdlSourceFile* source) {
    if (!source) return "<null>";
    return source->GetFileName() ? source->GetFileName()->GetNameAndExt() : "<nameless>";
}

/// The names of a list's sources, each followed by a blank.
inline std::string NamesOf(const TIHdlSourceFileList& list) {
    std::string names;
    for (const IHdlSourceFile* source : list) names += NameOf(source) + " ";
    return names;
}

/// Plain sources that live as long as the test.
class Sources {
public:
    THdlSourceFile* Make(const std::string& name) { return &Files.emplace_back(name.c_str()); }
    THdlSourceFile* MakeNameless() {
        return &Files.emplace_back(static_cast<const ISFileName*>(nullptr));
    }

private:
    std::deque<THdlSourceFile> Files;
};

/// A build that finds sources as the groups do and takes relative names against a directory.
class FakeBuild : public IBuildManager {
public:
    explicit FakeBuild(std::string directory) : Directory(std::move(directory)) {}

    IHdlSourceFile* CreateOrGetSourceFile(const char* fileName) override {
        const ISFileName* name = Handle(Directory + "/" + fileName);
        if (IHdlSourceFile* listed = Groups.GetSourceFile(name)) return listed;
        IHdlSourceFile* dependency = Groups.GetDependency(name);
        if (!dependency) return Owner.MakeSourceFile(name);
        Owner.TakeOverSpelling(dependency, name);
        return dependency;
    }
    TProjectSimLanguageConfig* GetProjectLanguageConfigForFileRead(THdlLanguage language) override {
        return Configs[language];
    }
    TProjectSimLanguageConfig* GetProjectLanguageConfig(THdlLanguage) override { return nullptr; }
    std::string GetCompileOptions(THdlLanguage) override { return {}; }
    std::string GetElaboratorOptions(THdlLanguage) override { return {}; }
    std::string GetRuntimeOptions(THdlLanguage) override { return {}; }

    std::string Directory;
    std::map<THdlLanguage, TProjectSimLanguageConfig*> Configs;
    TSourceFileOwner Owner{this};
    TSourceFileGroups Groups{&Owner};
};

/// All groups, one a line: the language, then each source with its flags and dependencies.
inline std::string GroupsOf(const TSourceFileGroups& groups) {
    std::string lines;
    for (const THdlLanguage language : groups.GetLanguages()) {
        lines += std::string(GetStringFromHdlLanguage(language)) + ":";
        for (const IHdlSourceFile* source : *groups.FindGroup(language)) {
            lines += " " + NameOf(source);
            if (source->IsLibrary()) lines += "!";
            if (*source->GetPrecompiledLibraryGroupName())
                lines += "@" + std::string(source->GetPrecompiledLibraryGroupName());
            if (const auto* dependencies = source->GetDependencyList(); dependencies->size())
                lines += "(" + NamesOf(*dependencies) + ")";
        }
        lines += "\n";
    }
    return lines;
}
