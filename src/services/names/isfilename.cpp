#include "services/names/isfilename.h"
#include "services/base/fold.h"
#include "services/logging/binarylog.h"
#include "services/names/filenamequeries.h"
#include "services/names/timestamps.h"
#include <functional>
#include <memory_resource>
#include <new>
#include <typeinfo>
#include <vector>

namespace {

/// Where handles and their texts live; nothing in it is ever freed.
std::pmr::memory_resource& HandleStore() {
    static auto& store = *new std::pmr::monotonic_buffer_resource;
    return store;
}

/// `text` with a zero after it, for the life of the process.
std::string_view StoredText(std::string_view text) {
    char* const copy = static_cast<char*>(HandleStore().allocate(text.size() + 1, 1));
    text.copy(copy, text.size());
    copy[text.size()] = '\0';
    return {copy, text.size()};
}

bool IsFolded(std::string_view text) {
    for (const char c : text)
        if (FoldChar(c) != c) return false;
    return true;
}

/// The handle behind NewISFileName. Many callers share it, so that what would change it does
/// nothing.
class TSharedFileName final : public TFileNameQueries<ISFileName> {
public:
    explicit TSharedFileName(std::string_view storedText) { SetText(storedText); }

    std::string_view GetText() const { return View(); }
    TFileIdentity GetIdentity() const {
        if (!Folded) {
            Folded = IsFolded(View()) ? View().data() : StoredText(FoldCase(View())).data();
            Hash = HashIgnoringCase(View());
        }
        return {View(), {Folded, View().size()}, Hash};
    }
    bool MarkLoaded(const char* key) const {
        if (IsBlank()) return false;
        const TFileStatus status = Look();
        RecordLoaded(GetStampedFile(), KeyText(key), status);
        TellObservers();
        return status.Exists;
    }

    void Release() const override {}
    IFileName* CloneFileName() const override { return NewOwnFileName(View()); }
    void FormCanonicalName() override {}
    void SetPart(unsigned int, const std::string&) override {}
    void StripParts(unsigned int) override {}
    void Pop() override {}
    void PushFileName(const char*) override {}
    void PushDirectory(const char*) override {}

    void SetDateAndTimeFlag(const char* key) const override;
    void UpdateTimeFileLastLoaded(const char* key) const override { MarkLoaded(key); }
    void UpdateTimeFileLastCompiled(const char* key) const override;
    bool IsFileModifiedSinceLastLoaded(const char* key, bool whenUnknown) const override;
    bool IsFileModifiedSinceLastCompiled(const char* key, bool whenUnknown) const override;
    unsigned long GetLastCompiledTimestamp(unsigned long* out) const override;
    bool IsFileModifiedSinceTimestamp(const unsigned long* stamp) const override;
    unsigned long GetFileModificationTime(unsigned long* out) const override;
    bool CompareModificationTimeTo(unsigned long low, unsigned long high) const override;
    bool IsEquivalent(const ISFileName& other) const override {
        return GetIdentity() == GetFileIdentity(&other);
    }
    const ISFileName* GetFileName() const override { return this; }

private:
    bool IsBlank() const { return View().empty(); }
    TFileStatus Look() const { return LookAtFile(Path()); }
    bool DiffersFrom(const std::optional<TFileStatus>& recorded, bool whenUnknown) const {
        return recorded ? !(Look() == *recorded) : whenUnknown;
    }
    /// Where case makes no difference, all spellings share one record.
    TStampedFile GetStampedFile() const {
        const TFileIdentity identity = GetIdentity();
        return {kPathsIgnoreCase ? identity.Folded : identity.Canonical, identity.Hash};
    }
    static std::string_view KeyText(const char* key) { return key ? key : ""; }
    void TellObservers() const {
        if (!HasObservers()) return;
        TNotifyOneArg<ASFileNameObserver, const ISFileName*> changed(
            &ASFileNameObserver::FileNameChanged, this);
        ForEach(changed);
    }

    mutable const char* Folded = nullptr;  // null until somebody asks
    mutable std::size_t Hash = 0;
};

void TSharedFileName::SetDateAndTimeFlag(const char* key) const {
    if (IsBlank()) return;
    const TFileStatus status = Look();
    RecordLoaded(GetStampedFile(), KeyText(key), status);
    RecordCompiled(GetStampedFile(), KeyText(key), status);
    TellObservers();
}

void TSharedFileName::UpdateTimeFileLastCompiled(const char* key) const {
    if (IsBlank()) return;
    RecordCompiled(GetStampedFile(), KeyText(key), Look());
    TellObservers();
}

bool TSharedFileName::IsFileModifiedSinceLastLoaded(const char* key, bool whenUnknown) const {
    if (IsBlank()) return false;
    const TTimeStamps* stamps = FindTimeStamps(GetStampedFile(), KeyText(key));
    return DiffersFrom(stamps ? stamps->Loaded : std::nullopt, whenUnknown);
}

bool TSharedFileName::IsFileModifiedSinceLastCompiled(const char* key, bool whenUnknown) const {
    if (IsBlank()) return false;
    const TTimeStamps* stamps = FindTimeStamps(GetStampedFile(), KeyText(key));
    if (!stamps) return whenUnknown;
    return DiffersFrom(stamps->Compiled ? stamps->Compiled : stamps->Loaded, whenUnknown);
}

unsigned long TSharedFileName::GetLastCompiledTimestamp(unsigned long* out) const {
    const TFileStatus* compiled = FindLastCompiled(GetStampedFile());
    const unsigned long time = compiled ? TimeWordOf(*compiled) : 0;
    if (out) *out = time;
    return time;
}

bool TSharedFileName::IsFileModifiedSinceTimestamp(const unsigned long* stamp) const {
    if (IsBlank()) return false;
    return !stamp || TimeWordOf(Look()) != *stamp;
}

unsigned long TSharedFileName::GetFileModificationTime(unsigned long* out) const {
    const unsigned long time = IsBlank() ? 0 : TimeWordOf(Look());
    if (out) *out = time;
    return time;
}

bool TSharedFileName::CompareModificationTimeTo(unsigned long low, unsigned long high) const {
    return !IsBlank() && high == 0 && TimeWordOf(Look()) == low;
}

/// All handles by their canonical texts: an open-addressing table, because builds name files by the
/// million.
class THandleTable {
public:
    const TSharedFileName* Find(std::string_view text) const {
        return Slots[FindSlot(text, HashOf(text))].Handle;
    }
    const TSharedFileName* FindOrMake(std::string_view text) {
        const std::size_t hash = HashOf(text);
        TSlot& slot = Slots[FindSlot(text, hash)];
        if (slot.Handle) return slot.Handle;
        void* const place =
            HandleStore().allocate(sizeof(TSharedFileName), alignof(TSharedFileName));
        const TSharedFileName* const handle = new (place) TSharedFileName(StoredText(text));
        slot = {hash, handle};
        if (++Count * 2 > Slots.size()) Grow();
        return handle;
    }

private:
    struct TSlot {
        std::size_t Hash = 0;
        const TSharedFileName* Handle = nullptr;
    };

    static std::size_t HashOf(std::string_view text) { return std::hash<std::string_view>()(text); }
    std::size_t FindSlot(std::string_view text, std::size_t hash) const {
        // The number of slots is a power of two, and at least half of them are free.
        std::size_t i = hash & (Slots.size() - 1);
        while (Slots[i].Handle && !(Slots[i].Hash == hash && Slots[i].Handle->GetText() == text))
            i = (i + 1) & (Slots.size() - 1);
        return i;
    }
    void Grow() {
        std::vector<TSlot> former(Slots.size() * 2);
        former.swap(Slots);
        for (const TSlot& slot : former)
            if (slot.Handle) Slots[FindSlot(slot.Handle->GetText(), slot.Hash)] = slot;
    }

    std::vector<TSlot> Slots = std::vector<TSlot>(1024);
    std::size_t Count = 0;
};

/// The shared handle behind `file`. Null when there is none or when it is of a caller's own class.
const TSharedFileName* SharedHandleOf(const ISFileName* file) {
    const ISFileName* const handle = GetInnermostHandle(file);
    // Much cheaper than a dynamic_cast, for a class that nobody derives from.
    const bool isShared = handle && typeid(*handle) == typeid(TSharedFileName);
    return isShared ? static_cast<const TSharedFileName*>(handle) : nullptr;
}

}  // namespace

const ISFileName* ISFileName::NewISFileName(const char* name) {
    // Never destroyed: handles live until the process ends.
    static THandleTable& handles = *new THandleTable;
    const std::string_view text = name ? name : "";
    // Most names come in canonical form, which needs no second look at the text.
    if (const TSharedFileName* handle = handles.Find(text)) return handle;
    return handles.FindOrMake(CanonicalPath(text));
}

const ISFileName* const ISFileName::BlankFileName = ISFileName::NewISFileName("");

const ISFileName* GetInnermostHandle(const ISFileName* file) {
    // A handle gives itself, a tracked name what it wraps.
    while (file) {
        const ISFileName* const wrapped = file->GetFileName();
        if (wrapped == file) break;
        file = wrapped;
    }
    return file;
}

TFileIdentity GetFileIdentity(const ISFileName* file) {
    if (const TSharedFileName* handle = SharedHandleOf(file)) return handle->GetIdentity();
    const char* const text = file ? file->Canonical(false) : "";
    return SharedHandleOf(ISFileName::NewISFileName(text))->GetIdentity();
}

void ReportNamesake(const ISFileName* listed, const ISFileName* file) {
    // Where case makes no difference, two spellings are one file.
    if (kPathsIgnoreCase || listed == file || !__BinaryLogDiagnosticGroupDefault.IsEnabled(1))
        return;
    const std::string kept(GetFileIdentity(listed).Canonical);
    const std::string other(GetFileIdentity(file).Canonical);
    if (kept == other || !LookAtFile(kept).Exists || !LookAtFile(other).Exists) return;
    LogDiagnostic(TBinaryLogMessageTwoArgs("[Default] File \"%1%\" is taken for \"%2%\"",
                                           other.c_str(), kept.c_str()));
}

bool MarkLoadedAndTestExists(const ISFileName* file, const char* key) {
    if (const TSharedFileName* handle = SharedHandleOf(file)) return handle->MarkLoaded(key);
    if (!file) return false;
    // A caller's own class keeps its record itself.
    file->UpdateTimeFileLastLoaded(key);
    return file->Exists();
}
