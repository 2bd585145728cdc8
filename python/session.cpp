#include "python/session.h"
#include "flows/buildchanges.h"
#include "flows/diagnosticrules.h"
#include "services/names/isfilename.h"

namespace {

bool IsUnderstood(const THdlBuildFile& build) {
    const THdlBuildFileReadResults result = build.GetReadResult();
    return build.HasBuildElement() && (result == READ_NO_ERROR || result == READ_FILES_MISSING);
}

std::string ReasonOf(const THdlBuildFile& build) {
    if (!build.HasBuildElement()) return GetDiagnosticText({DIAGNOSTIC_NO_BUILD, {}});
    return THdlBuildFile::GetErrorString(build.GetReadResult());
}

}  // namespace

bool TSession::Read(TXMLReadError* error) {
    auto edit = std::make_unique<TBuildEdit>(File);
    if (!edit->Read(error)) return false;
    if (!IsUnderstood(*edit->GetBuild())) {
        *error = {};
        error->File = File->Canonical(false);
        error->Reason = ReasonOf(*edit->GetBuild());
        return false;
    }
    Edit = std::move(edit);
    Removed.clear();
    ++ReadCount;
    return true;
}

std::string TSession::Make(THdlLanguage language) {
    auto edit = std::make_unique<TBuildEdit>(File);
    std::string reason = edit->Make(language, false);
    if (reason.empty()) {
        Edit = std::move(edit);
        Removed.clear();
        ++ReadCount;
    }
    return reason;
}

std::string TSession::Write(TBuildLock* lock, bool* isChanged) {
    *isChanged = false;
    if (HasLock()) lock = Lock.get();
    if (!lock || !lock->IsHeld()) return "the file is not locked";
    std::string reason = Edit->FindEdits();
    if (reason.empty() && Edit->IsChanged())
        lock->Run([&] {
            TEditedFile& file = Edit->GetFile();
            file.TakeLock();
            reason = file.Save();
            file.DropLock();
        });
    if (!reason.empty()) return reason;
    *isChanged = Edit->IsChanged();
    Edit->GoOn();
    return "";
}

std::string TSession::Compare(std::string* difference) {
    std::string reason = Edit->FindEdits();
    if (reason.empty() && Edit->IsChanged())
        *difference = Edit->GetFile().GetUnifiedDiff(File->ShortName(false));
    return reason;
}

void TSession::Remove(const std::vector<IHdlSourceFile*>& sources) {
    RemoveSources(GetBuild(), sources);
    Removed.insert(sources.begin(), sources.end());
}

IHdlSourceFile* TSession::Rename(IHdlSourceFile* source, const ISFileName* file) {
    RenameSource(GetBuild(), *source, file);
    Removed.insert(source);
    IHdlSourceFile* const renamed = FindListed(GetBuild(), file).Source;
    Origins[renamed->GetFileName()] = GetOrigin(source->GetFileName());
    return renamed;
}

void TSession::SetBusy(bool busy) {
    {
        const std::lock_guard guard(Mutex);
        Busy = busy;
    }
    if (!busy) Idle.notify_all();
}

void TSession::WaitUntilIdle() {
    std::unique_lock guard(Mutex);
    Idle.wait(guard, [this] { return !Busy; });
}
