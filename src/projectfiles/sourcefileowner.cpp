#include "projectfiles/sourcefileowner.h"
#include "projectfiles/ibuildmanager.h"
#include "projectfiles/languageconfigmap.h"
#include "services/names/isfilename.h"
#include <utility>

/// A source that takes itself out of its owner's list when somebody else deletes it.
class TSourceFileOwner::TMadeSourceFile : public THdlSourceFile {
public:
    TMadeSourceFile(const ISFileName* name, std::list<TMadeSourceFile*>* made)
        : THdlSourceFile(name), Made(made), Place(made->insert(made->end(), this)) {}
    TMadeSourceFile(const TMadeSourceFile&) = delete;
    TMadeSourceFile& operator=(const TMadeSourceFile&) = delete;
    ~TMadeSourceFile() override { Made->erase(Place); }

private:
    std::list<TMadeSourceFile*>* Made;
    std::list<TMadeSourceFile*>::iterator Place;
};

TSourceFileOwner::~TSourceFileOwner() {
    while (!Made.empty()) DeleteWithDependencies(Made.front());
}

IHdlSourceFile* TSourceFileOwner::MakeSourceFile(const ISFileName* name) {
    if (name && !IsReading) name->UpdateTimeFileLastLoaded(kDefaultTimeStampKey);
    return new TMadeSourceFile(name, &Made);
}

IHdlSourceFile* TSourceFileOwner::GetOrMakeSourceFile(const char* name) {
    if (!Build) return nullptr;
    IsReading = true;
    IHdlSourceFile* source = Build->CreateOrGetSourceFile(name);
    IsReading = false;
    return source;
}

IHdlSourceFile* TSourceFileOwner::GetOrMakeSourceFile(const char* name, THdlLanguage language) {
    IHdlSourceFile* source = GetOrMakeSourceFile(name);
    if (!source) return nullptr;
    if (auto* config = Build->GetProjectLanguageConfigForFileRead(language))
        source->SetProjectLanguageConfig(config);
    return source;
}

void TSourceFileOwner::RecordLanguageConfig(const IHdlSourceFile* source,
                                            std::shared_ptr<const TLanguageConfigSlot> slot) {
    Records[source] = std::move(slot);
}

const TProjectSimLanguageConfig* TSourceFileOwner::GetRecordedLanguageConfig(
    const IHdlSourceFile* source) const {
    const auto found = Records.find(source);
    return found == Records.end() ? nullptr : found->second->Config;
}
