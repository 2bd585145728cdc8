#include "projectfiles/sourcefileowner.h"
#include "projectfiles/ibuildmanager.h"
#include "projectfiles/languageconfigmap.h"
#include "services/names/isfilename.h"
#include <utility>

namespace {

void KeepWithDependencies(TKeeper* keeper, THdlSourceFile* source) {
    const void* const object = source;
    keeper->Keep(object, [](const void* kept) {
        DeleteWithDependencies(
            const_cast<THdlSourceFile*>(static_cast<const THdlSourceFile*>(kept)));
    });
}

}  // namespace

/// A source that was read. It is in its owner's list, and takes itself out when it is deleted: that
/// costs less for each source than an entry in a keeper.
class TSourceFileOwner::TReadSourceFile : public THdlSourceFile {
public:
    TReadSourceFile(const ISFileName* name, std::list<TReadSourceFile*>* list)
        : THdlSourceFile(name), List(list), Place(list->insert(list->end(), this)) {}
    TReadSourceFile(const TReadSourceFile&) = delete;
    TReadSourceFile& operator=(const TReadSourceFile&) = delete;
    ~TReadSourceFile() override { LeaveList(); }

    void LeaveList() {
        if (List) List->erase(Place);
        List = nullptr;
    }

private:
    std::list<TReadSourceFile*>* List;
    std::list<TReadSourceFile*>::iterator Place;
};

TSourceFileOwner::~TSourceFileOwner() {
    while (!Read.empty()) DeleteWithDependencies(Read.front());
}

IHdlSourceFile* TSourceFileOwner::MakeSourceFile(const ISFileName* name) {
    if (Request != FOR_CALLER) return new TReadSourceFile(name, &Read);
    if (name) name->UpdateTimeFileLastLoaded(kDefaultTimeStampKey);
    auto* source = new THdlSourceFile(name);
    KeepWithDependencies(CallersShare.get(), source);
    return source;
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

void TSourceFileOwner::Clear() {
    Records.clear();
    while (!Read.empty()) {
        TReadSourceFile* source = Read.front();
        source->LeaveList();
        KeepWithDependencies(CallersShare.get(), source);
    }
}
