#include "settings/projectsimconfiglist.h"
#include <algorithm>
#include <memory>
#include <utility>

TProjectSimConfigList::TProjectSimConfigList(const TProjectSimConfigList& other) {
    *this = other;
}

TProjectSimConfigList& TProjectSimConfigList::operator=(const TProjectSimConfigList& other) {
    if (this == &other) return *this;
    Clear();
    for (const TProjectSimConfig* configuration : other.Configurations) {
        AddConfiguration(new TProjectSimConfig(*configuration));
        if (configuration == other.Current) Current = Configurations.back();
    }
    return *this;
}

TProjectSimConfigList::~TProjectSimConfigList() {
    Clear();
}

void TProjectSimConfigList::AddConfiguration(TProjectSimConfig* configuration) {
    // It is handed over, whether there is memory for its place or not.
    std::unique_ptr<TProjectSimConfig> given(configuration);
    if (!given) return;
    Configurations.push_back(given.get());
    (void)given.release();
}

TProjectSimConfig* TProjectSimConfigList::Find(const char* name) {
    return const_cast<TProjectSimConfig*>(std::as_const(*this).Find(name));
}

const TProjectSimConfig* TProjectSimConfigList::Find(const char* name) const {
    const std::string_view wanted = name ? name : "";
    for (const TProjectSimConfig* configuration : Configurations)
        if (configuration->GetName() == wanted) return configuration;
    return nullptr;
}

bool TProjectSimConfigList::RemoveConfiguration(const char* name) {
    TProjectSimConfig* configuration = Find(name);
    if (!configuration) return false;
    Configurations.erase(std::find(Configurations.begin(), Configurations.end(), configuration));
    if (Current == configuration) Current = nullptr;
    delete configuration;
    return true;
}

void TProjectSimConfigList::Clear() {
    for (const TProjectSimConfig* configuration : ReleaseConfigurations()) delete configuration;
}

std::vector<TProjectSimConfig*> TProjectSimConfigList::ReleaseConfigurations() {
    Current = nullptr;
    return std::exchange(Configurations, {});
}

void TProjectSimConfigList::SelectCurrentConfig(const char* name) {
    Current = Find(name);
}

void TProjectSimConfigList::SelectCurrentConfig(const TProjectSimConfig* configuration) {
    Current = configuration ? Find(configuration->GetName()) : nullptr;
}

void TProjectSimConfigList::SelectCurrentConfig(std::nullptr_t) {
    Current = nullptr;
}

const char* TProjectSimConfigList::GetCurrentConfigName() const {
    return Current ? Current->GetName() : "";
}

void TProjectSimConfigList::SetProjectFileName(const ISFileName* file) {
    for (TProjectSimConfig* configuration : Configurations) configuration->SetProjectFileName(file);
}
