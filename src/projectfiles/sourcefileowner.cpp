#include "projectfiles/sourcefileowner.h"
#include "projectfiles/ibuildmanager.h"
#include "projectfiles/languageconfigmap.h"
#include "projectfiles/readsources.h"
#include "services/names/isfilename.h"
#include <new>
#include <utility>

namespace {

void KeepWithDependencies(TKeeper* keeper, THdlSourceFile* source) {
    const void* const object = source;
    try {
        keeper->Keep(object, [](const void* kept) {
            DeleteWithDependencies(
                const_cast<THdlSourceFile*>(static_cast<const THdlSourceFile*>(kept)));
        });
    } catch (const std::bad_alloc&) {
        DeleteWithDependencies(source);
        throw;
    }
}

}  // namespace

TSourceFileOwner::TSourceFileOwner(IBuildManager* build) : Build(build) {}

TSourceFileOwner::~TSourceFileOwner() = default;

IHdlSourceFile* TSourceFileOwner::MakeSourceFile(const ISFileName* name) {
    if (Request != FOR_CALLER) {
        if (!Read) Read = std::make_unique<TReadSources>();
        return Read->Make(name);
    }
    if (name) name->UpdateTimeFileLastLoaded(kDefaultTimeStampKey);
    auto* source = new THdlSourceFile(name);
    KeepWithDependencies(CallersShare.get(), source);
    return source;
}

IHdlSourceFile* TSourceFileOwner::AskBuild(const char* name, TRequest request) {
    if (!Build) return nullptr;
    Request = request;
    try {
        IHdlSourceFile* source = Build->CreateOrGetSourceFile(name);
        Request = FOR_CALLER;
        return source;
    } catch (...) {
        Request = FOR_CALLER;
        throw;
    }
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
    return found == Records.end() || !found->second ? nullptr : found->second->Config;
}

void TSourceFileOwner::Clear() {
    // Somebody may list the sources: they stay when memory runs out.
    CallersShare->Keep(Read.get());
    (void)Read.release();
    Records.clear();
}
