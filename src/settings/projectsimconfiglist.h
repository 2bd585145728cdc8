#pragma once
#include "settings/projectsimconfig.h"

/// Settings configurations in order, owned by the list, and the current one among them.
///
/// Names compare byte for byte; several entries may share a name, of which the first is found. Null
/// names count as empty.
class HDLBUILDFILE_API TProjectSimConfigList {
public:
    TProjectSimConfigList() = default;
    /// Copies every configuration; the copy of the current one becomes current.
    TProjectSimConfigList(const TProjectSimConfigList& other);
    TProjectSimConfigList& operator=(const TProjectSimConfigList& other);
    ~TProjectSimConfigList();

    /// Appends and takes ownership; null is ignored. The configuration must not be in a list yet.
    void AddConfiguration(TProjectSimConfig* configuration);
    /// Null when there is none of that name.
    TProjectSimConfig* Find(const char* name);
    const TProjectSimConfig* Find(const char* name) const;
    /// Destroys the first configuration of that name; false when there is none. A removed current
    /// one leaves no current.
    bool RemoveConfiguration(const char* name);
    /// Destroys all; no current is left.
    void Clear();

    /// An unknown name leaves no current.
    void SelectCurrentConfig(const char* name);
    /// By the name of `configuration`, which may be a copy; null leaves no current.
    void SelectCurrentConfig(const TProjectSimConfig* configuration);
    void SelectCurrentConfig(std::nullptr_t);
    /// Null when there is none.
    TProjectSimConfig* GetCurrentConfig() { return Current; }
    const TProjectSimConfig* GetCurrentConfig() const { return Current; }
    /// "" when there is none.
    const char* GetCurrentConfigName() const;

    /// Passed on to every configuration.
    void SetProjectFileName(const ISFileName* file);

    /// In list order; valid until the list changes.
    const std::vector<TProjectSimConfig*>& GetConfigurations() const { return Configurations; }

protected:
    /// Empties the list without destroying anything, and gives the caller the former entries.
    std::vector<TProjectSimConfig*> ReleaseConfigurations();

private:
    std::vector<TProjectSimConfig*> Configurations;
    TProjectSimConfig* Current = nullptr;
};
