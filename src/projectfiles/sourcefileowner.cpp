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
    if (name && Request == FOR_CALLER) name->UpdateTimeFileLastLoaded(kDefaultTimeStampKey);
    return new TMadeSourceFile(name, &Made);
}

IHdlSourceFile* TSourceFileOwner::AskBuild(const char* name, TRequest request) {
    if (!Build) return nullptr;
    Request = request;
    IHdlSourceFile* source = Build->CreateOrGetSourceFile(name);
    Request = FOR_CALLER;
    return source;
}

IHdlSourceFile* TSourceFileOwner::GetOrMakeSourceFile(const char* name) {
    return AskBuild(name, FOR_DEPENDENCY);
}

IHdlSourceFile* TSourceFileOwner::GetOrMakeSourceFile(const char* name, THdlLanguage language) {
    IHdlSourceFile* source = AskBuild(name, FOR_LISTING);
    if (!source) return nullptr;
    if (auto* config = Build->GetProjectLanguageConfigForFileRead(language))
        source->SetProjectLanguageConfig(config);
    return source;
}

void TSourceFileOwner::TakeOverSpelling(IHdlSourceFile* dependency, const ISFileName* name) const {
    if (Request != FOR_LISTING || dependency->GetFileName() == name) return;
    auto* source = dynamic_cast<THdlSourceFile*>(dependency);
    if (!source) return;
    ReportNamesake(name, source->FileName);
    // Names are compared without regard to case, so no index of names changes.
    source->FileName = name;
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
