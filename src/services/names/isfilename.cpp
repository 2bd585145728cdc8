#include "services/names/isfilename.h"
#include "services/base/fetchahead.h"
#include "services/base/fold.h"
#include "services/base/sharedparts.h"
#include "services/logging/binarylog.h"
#include "services/names/filenamequeries.h"
#include "services/names/recordedstatus.h"
#include "services/names/timestamps.h"
#include <algorithm>
#include <atomic>
#include <mutex>
#include <new>
#include <typeinfo>
#include <utility>
#include <vector>

namespace {

// Objects of TRecordsTrusted.
thread_local int trustInRecords = 0;

/// The handle behind NewISFileName. Many callers share it, so that what would change it does
/// nothing.
class TSharedFileName final : public TFileNameQueries<ISFileName> {
public:
    /// `storedText` lives as long as the process; `first` is the handle that was the first one of
    /// all that differ in letter case alone, null for this one.
    TSharedFileName(std::string_view storedText, const TSharedFileName* first)
        : Number(first ? first->Number : NewNumber()), First(first ? first : this) {
        SetText(storedText);
    }

    std::string_view GetText() const { return View(); }
    const TSharedFileName* GetFirst() const { return First; }
    std::size_t GetNumber() const { return Number; }
    bool MarkLoaded(const char* key) const {
        if (IsBlank()) return false;
        const TFileStatus status = Look();
        GetStamps().Record(TFileStamps::LOADED, KeyText(key), status);
        TellObservers();
        return status.Exists;
    }
    std::optional<TFileStatus> FindLoaded(const char* key) const {
        return GetStamps().Find(TFileStamps::LOADED, KeyText(key));
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
        return TFileIdentity(First) == GetFileIdentity(&other);
    }
    const ISFileName* GetFileName() const override { return this; }

private:
    bool IsBlank() const { return View().empty(); }
    TFileStatus Look() const { return LookAtFile(Path()); }
    bool DiffersFrom(const std::optional<TFileStatus>& recorded, bool whenUnknown) const {
        return recorded ? !(Look() == *recorded) : whenUnknown;
    }
    /// Where case makes no difference, all spellings share one record.
    TFileStamps& GetStamps() const { return kPathsIgnoreCase ? First->Stamps : Stamps; }
    static const char* KeyText(const char* key) { return key ? key : ""; }
    void TellObservers() const {
        if (!HasObservers()) return;
        TNotifyOneArg<ASFileNameObserver, const ISFileName*> changed(
            &ASFileNameObserver::FileNameChanged, this);
        ForEach(changed);
    }

    static std::uint32_t NewNumber() {
        static std::atomic<std::uint32_t> last = 0;
        return ++last;
    }

    const std::uint32_t Number;  // first, as it fits behind what the base class has
    const TSharedFileName* First;
    mutable TFileStamps Stamps;
};

void TSharedFileName::SetDateAndTimeFlag(const char* key) const {
    if (IsBlank()) return;
    const TFileStatus status = Look();
    GetStamps().Record(TFileStamps::LOADED, KeyText(key), status);
    GetStamps().Record(TFileStamps::COMPILED, KeyText(key), status);
    TellObservers();
}

void TSharedFileName::UpdateTimeFileLastCompiled(const char* key) const {
    if (IsBlank()) return;
    GetStamps().Record(TFileStamps::COMPILED, KeyText(key), Look());
    TellObservers();
}

bool TSharedFileName::IsFileModifiedSinceLastLoaded(const char* key, bool whenUnknown) const {
    if (IsBlank()) return false;
    return DiffersFrom(GetStamps().Find(TFileStamps::LOADED, KeyText(key)), whenUnknown);
}

bool TSharedFileName::IsFileModifiedSinceLastCompiled(const char* key, bool whenUnknown) const {
    if (IsBlank()) return false;
    const auto compiled = GetStamps().Find(TFileStamps::COMPILED, KeyText(key));
    if (compiled) return DiffersFrom(compiled, whenUnknown);
    return IsFileModifiedSinceLastLoaded(key, whenUnknown);
}

unsigned long TSharedFileName::GetLastCompiledTimestamp(unsigned long* out) const {
    const auto compiled = GetStamps().FindLastCompiled();
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

static_assert(sizeof(TSharedFileName) <= 7 * sizeof(void*), "builds name files by the million");

/// Where handles and their texts lie, in the order in which a thread made them; nothing in it is
/// ever freed.
void* AllocateForever(std::size_t size) {
    constexpr std::size_t kFirstBlock = 4096;
    constexpr std::size_t kLargestBlock = 65536;
    thread_local std::byte* begin = nullptr;
    thread_local std::size_t left = 0;
    thread_local std::size_t block = kFirstBlock;
    size =
        (size + alignof(TSharedFileName) - 1) / alignof(TSharedFileName) * alignof(TSharedFileName);
    if (size > kLargestBlock / 4) return ::operator new(size);
    if (size > left) {
        begin = static_cast<std::byte*>(::operator new(block));
        left = block;
        block = std::min(2 * block, kLargestBlock);
    }
    left -= size;
    return std::exchange(begin, begin + size);
}

/// A part of all handles, those whose texts have certain hashes: an open-addressing table, because
/// builds name files by the million. Texts that differ in letter case alone have one hash.
class THandleTable {
public:
    /// Null when there is none yet.
    const TSharedFileName* Find(std::string_view text, std::size_t hash) {
        const std::lock_guard guard(Lock);
        return Slots[FindSlot(text, hash)].Handle;
    }
    void FetchSlot(std::size_t hash) {
        const std::lock_guard guard(Lock);
        FetchAhead(&Slots[FirstSlot(hash)]);
    }
    const TSharedFileName* FindOrMake(std::string_view text, std::size_t hash) {
        const std::lock_guard guard(Lock);
        std::size_t slot = FindSlot(text, hash);
        if (Slots[slot].Handle) return Slots[slot].Handle;
        if ((Count + 1) * 4 > Slots.size() * 3) {
            // First: a search in a table without a free slot would not end.
            Grow();
            slot = FindSlot(text, hash);
        }
        const auto* const handle = MakeHandle(text, FindFirst(text, hash));
        Slots[slot] = {hash, handle};
        ++Count;
        return handle;
    }

private:
    struct TSlot {
        std::size_t Hash = 0;
        const TSharedFileName* Handle = nullptr;
    };

    // A quarter of the slots are free. The lowest bits of the hash tell the table.
    std::size_t FirstSlot(std::size_t hash) const {
        return PlaceOfHash(static_cast<std::uint32_t>(hash / kSharedParts), Slots.size());
    }
    std::size_t After(std::size_t slot) const { return slot + 1 < Slots.size() ? slot + 1 : 0; }
    std::size_t FindSlot(std::string_view text, std::size_t hash) const {
        std::size_t i = FirstSlot(hash);
        while (Slots[i].Handle && !(Slots[i].Hash == hash && Slots[i].Handle->GetText() == text))
            i = After(i);
        return i;
    }
    const TSharedFileName* FindFirst(std::string_view text, std::size_t hash) const {
        for (std::size_t i = FirstSlot(hash); Slots[i].Handle; i = After(i))
            if (Slots[i].Hash == hash && EqualIgnoringCase(Slots[i].Handle->GetText(), text))
                return Slots[i].Handle->GetFirst();
        return nullptr;
    }
    /// With its text behind it, and a zero behind that.
    static const TSharedFileName* MakeHandle(std::string_view text, const TSharedFileName* first) {
        void* const place = AllocateForever(sizeof(TSharedFileName) + text.size() + 1);
        char* const copy = static_cast<char*>(place) + sizeof(TSharedFileName);
        text.copy(copy, text.size());
        copy[text.size()] = '\0';
        return new (place) TSharedFileName({copy, text.size()}, first);
    }
    void Grow() {
        std::vector<TSlot> former(Slots.size() / 2 * 3);
        former.swap(Slots);
        for (const TSlot& slot : former)
            if (slot.Handle) Slots[FindSlot(slot.Handle->GetText(), slot.Hash)] = slot;
    }

    std::mutex Lock;
    std::vector<TSlot> Slots = std::vector<TSlot>(64);
    std::size_t Count = 0;
};

THandleTable& TableOf(std::size_t hash) {
    return GetSharedPart<THandleTable>(hash);
}

bool IsShared(const ISFileName& file) {
    // Much cheaper than a dynamic_cast, for a class that nobody derives from.
    return typeid(file) == typeid(TSharedFileName);
}

/// The shared handle behind `file`. Null when there is none or when it is of a caller's own class.
const TSharedFileName* SharedHandleOf(const ISFileName* file) {
    if (!file || !IsShared(*file)) file = GetInnermostHandle(file);
    return file && IsShared(*file) ? static_cast<const TSharedFileName*>(file) : nullptr;
}

std::string CanonicalTextOf(const ISFileName* file) {
    if (const TSharedFileName* handle = SharedHandleOf(file)) return std::string(handle->GetText());
    return file ? file->Canonical(false) : "";
}

}  // namespace

const ISFileName* ISFileName::NewISFileName(const char* name) {
    const std::string_view text = name ? name : "";
    const std::size_t hash = HashIgnoringCase(text);
    // Most names come in canonical form, which needs no second look at the text.
    if (const TSharedFileName* handle = TableOf(hash).Find(text, hash)) return handle;
    return NewHandleOfCanonicalPath(CanonicalPath(text));
}

const ISFileName* const ISFileName::BlankFileName = ISFileName::NewISFileName("");

const ISFileName* NewHandleOfCanonicalPath(std::string_view path) {
    return NewHandleOfCanonicalPath(path, HashIgnoringCase(path));
}

const ISFileName* NewHandleOfCanonicalPath(std::string_view path, std::size_t hash) {
    return TableOf(hash).FindOrMake(path, hash);
}

void FetchPlaceOfHandle(std::size_t hash) {
    TableOf(hash).FetchSlot(hash);
}

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
    if (const TSharedFileName* handle = SharedHandleOf(file))
        return TFileIdentity(handle->GetFirst());
    const char* const text = file ? file->Canonical(false) : "";
    return TFileIdentity(SharedHandleOf(ISFileName::NewISFileName(text))->GetFirst());
}

std::size_t GetFileNumber(const ISFileName* file) {
    return GetFileIdentity(file).GetNumber();
}

std::size_t TFileIdentity::GetNumber() const {
    return static_cast<const TSharedFileName*>(First)->GetNumber();
}

bool IsSharedHandle(const ISFileName* file) {
    return file && IsShared(*file);
}

std::string_view GetSharedText(const ISFileName* sharedHandle) {
    return static_cast<const TSharedFileName*>(sharedHandle)->GetText();
}

void ReportNamesake(const ISFileName* listed, const ISFileName* file) {
    // Where case makes no difference, two spellings are one file.
    if (kPathsIgnoreCase || listed == file || !__BinaryLogDiagnosticGroupDefault.IsEnabled(1))
        return;
    const std::string kept = CanonicalTextOf(listed);
    const std::string other = CanonicalTextOf(file);
    if (kept == other || !LookAtFile(kept).Exists || !LookAtFile(other).Exists) return;
    LogDiagnostic(TBinaryLogMessageTwoArgs("[Default] File \"%1%\" is taken for \"%2%\"",
                                           other.c_str(), kept.c_str()));
}

bool MarkLoadedAndTestExists(const ISFileName* file, const char* key) {
    if (trustInRecords > 0)
        if (const auto status = FindStatusWhenLoaded(file, key)) return status->Exists;
    if (const TSharedFileName* handle = SharedHandleOf(file)) return handle->MarkLoaded(key);
    if (!file) return false;
    // A caller's own class keeps its record itself.
    file->UpdateTimeFileLastLoaded(key);
    return file->Exists();
}

std::optional<TFileStatus> FindStatusWhenLoaded(const ISFileName* file, const char* key) {
    const TSharedFileName* handle = SharedHandleOf(file);
    return handle ? handle->FindLoaded(key) : std::nullopt;
}

TRecordsTrusted::TRecordsTrusted() {
    ++trustInRecords;
}

TRecordsTrusted::~TRecordsTrusted() {
    --trustInRecords;
}
