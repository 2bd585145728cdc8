#include "filenames/hdbsfilename.h"

#include "services/designdatabase/visitor.h"
#include "services/logging/binarylog.h"
#include <atomic>

namespace {

constexpr const char* kSource = "hdbsfilename";
constexpr const char* kHasHandle = "FileName";
constexpr const char* kRefused = "false";

// One count for all threads, not one for each: a model may be handed to another thread and back,
// changed in between.
std::atomic<unsigned long long> handleChangeCount = 0;

// The name that questions are passed to: the handle, or the blank name where there is none.
const ISFileName& HandleOrBlank(const ISFileName* handle) {
    return handle ? *handle : *ISFileName::BlankFileName;
}

const ISFileName& CheckedHandle(const ISFileName* handle, TCheckSite& site) {
    if (!handle) site.Report();
    return HandleOrBlank(handle);
}

// Handles are shared as const. Null for a missing one: the blank name is nobody's to change.
ISFileName* HandleToChange(const ISFileName* handle) {
    return const_cast<ISFileName*>(handle);
}

}  // namespace

THdbSFileName::THdbSFileName(const char* name) : FileName(ISFileName::NewISFileName(name)) {}

THdbSFileName::THdbSFileName(const ISFileName* handle) : FileName(handle) {}

THdbSFileName::THdbSFileName(const THdbSFileName& other) = default;

THdbSFileName& THdbSFileName::operator=(const THdbSFileName& other) {
    if (FileName != other.FileName) CountHandleChange();
    ISFileName::operator=(other);
    hdb::IHDBBase::operator=(other);
    FileName = other.FileName;
    return *this;
}

THdbSFileName::~THdbSFileName() = default;

void THdbSFileName::SetDateAndTimeFlag(const char* key) const {
    static TCheckSite site(kHasHandle, kSource, 44);
    CheckedHandle(FileName, site).SetDateAndTimeFlag(key);
}

void THdbSFileName::UpdateTimeFileLastLoaded(const char* key) const {
    static TCheckSite site(kHasHandle, kSource, 50);
    CheckedHandle(FileName, site).UpdateTimeFileLastLoaded(key);
}

void THdbSFileName::UpdateTimeFileLastCompiled(const char* key) const {
    static TCheckSite site(kHasHandle, kSource, 56);
    CheckedHandle(FileName, site).UpdateTimeFileLastCompiled(key);
}

bool THdbSFileName::IsFileModifiedSinceLastLoaded(const char* key, bool whenUnknown) const {
    static TCheckSite site(kHasHandle, kSource, 62);
    return CheckedHandle(FileName, site).IsFileModifiedSinceLastLoaded(key, whenUnknown);
}

bool THdbSFileName::IsFileModifiedSinceLastCompiled(const char* key, bool whenUnknown) const {
    static TCheckSite site(kHasHandle, kSource, 68);
    return CheckedHandle(FileName, site).IsFileModifiedSinceLastCompiled(key, whenUnknown);
}

unsigned long THdbSFileName::GetLastCompiledTimestamp(unsigned long* out) const {
    static TCheckSite site(kHasHandle, kSource, 87);
    return CheckedHandle(FileName, site).GetLastCompiledTimestamp(out);
}

bool THdbSFileName::IsFileModifiedSinceTimestamp(const unsigned long* const stamp) const {
    static TCheckSite site(kHasHandle, kSource, 93);
    return CheckedHandle(FileName, site).IsFileModifiedSinceTimestamp(stamp);
}

unsigned long THdbSFileName::GetFileModificationTime(unsigned long* out) const {
    static TCheckSite site(kHasHandle, kSource, 74);
    return CheckedHandle(FileName, site).GetFileModificationTime(out);
}

bool THdbSFileName::CompareModificationTimeTo(unsigned long low, unsigned long high) const {
    static TCheckSite site(kHasHandle, kSource, 81);
    return CheckedHandle(FileName, site).CompareModificationTimeTo(low, high);
}

bool THdbSFileName::IsEquivalent(const ISFileName& other) const {
    static TCheckSite site(kHasHandle, kSource, 113);
    return CheckedHandle(FileName, site).IsEquivalent(other);
}

const ISFileName* THdbSFileName::GetFileName() const {
    return FileName;
}

void THdbSFileName::Release() const {
    static TCheckSite site(kRefused, kSource, 20);
    site.Report();
}

IFileName* THdbSFileName::CloneFileName() const {
    return HandleOrBlank(FileName).CloneFileName();
}

const char* THdbSFileName::CanonicalWithExpandedLinks() const {
    return HandleOrBlank(FileName).CanonicalWithExpandedLinks();
}

void THdbSFileName::FormCanonicalName() {
    static TCheckSite site(kRefused, kSource, 128);
    site.Report();
}

const char* THdbSFileName::Canonical(bool reserved) const {
    return HandleOrBlank(FileName).Canonical(reserved);
}

const char* THdbSFileName::CanonicalWithoutFinalSlash() const {
    return HandleOrBlank(FileName).CanonicalWithoutFinalSlash();
}

const char* THdbSFileName::ShortName(bool reserved) const {
    return HandleOrBlank(FileName).ShortName(reserved);
}

TMyString THdbSFileName::OsFriendlyCanonical(bool reserved) const {
    return HandleOrBlank(FileName).OsFriendlyCanonical(reserved);
}

const char* THdbSFileName::Squeezed(int length, bool reserved) const {
    return HandleOrBlank(FileName).Squeezed(length, reserved);
}

const char* THdbSFileName::GetParts(unsigned int parts) const {
    return HandleOrBlank(FileName).GetParts(parts);
}

bool THdbSFileName::HasParts(unsigned int parts) const {
    return HandleOrBlank(FileName).HasParts(parts);
}

void THdbSFileName::SetPart(unsigned int, const std::string&) {
    static TCheckSite site(kRefused, kSource, 161);
    site.Report();
}

void THdbSFileName::StripParts(unsigned int) {
    static TCheckSite site(kRefused, kSource, 165);
    site.Report();
}

bool THdbSFileName::IsValid() const {
    return HandleOrBlank(FileName).IsValid();
}

bool THdbSFileName::IsUNC() const {
    return HandleOrBlank(FileName).IsUNC();
}

bool THdbSFileName::Exists() const {
    return HandleOrBlank(FileName).Exists();
}

bool THdbSFileName::IsReadable() const {
    return HandleOrBlank(FileName).IsReadable();
}

bool THdbSFileName::IsWritable() const {
    return HandleOrBlank(FileName).IsWritable();
}

bool THdbSFileName::IsAutoSaveTempFile() const {
    return HandleOrBlank(FileName).IsAutoSaveTempFile();
}

bool THdbSFileName::Remove() const {
    return HandleOrBlank(FileName).Remove();
}

int THdbSFileName::ChangeDir() const {
    return HandleOrBlank(FileName).ChangeDir();
}

int THdbSFileName::CreateDir() const {
    return HandleOrBlank(FileName).CreateDir();
}

std::string THdbSFileName::GetRelativeFileNameString(const IFileName* base, bool first,
                                                     bool second) const {
    static TCheckSite site(kHasHandle, kSource, 119);
    return CheckedHandle(FileName, site).GetRelativeFileNameString(base, first, second);
}

const char* THdbSFileName::GetFileNameRelativeTo(const char* directory, TMyString* out) const {
    static TCheckSite site(kHasHandle, kSource, 100);
    return CheckedHandle(FileName, site).GetFileNameRelativeTo(directory, out);
}

const char* THdbSFileName::GetDisplayFileName(int length, bool reserved) const {
    static TCheckSite site(kHasHandle, kSource, 107);
    return CheckedHandle(FileName, site).GetDisplayFileName(length, reserved);
}

void THdbSFileName::Pop() {
    static TCheckSite site(kRefused, kSource, 213);
    site.Report();
}

void THdbSFileName::PushFileName(const char*) {
    static TCheckSite site(kRefused, kSource, 217);
    site.Report();
}

void THdbSFileName::PushDirectory(const char*) {
    static TCheckSite site(kRefused, kSource, 221);
    site.Report();
}

void THdbSFileName::SetAsVirtualFile() {
    if (ISFileName* handle = HandleToChange(FileName)) handle->SetAsVirtualFile();
}

bool THdbSFileName::IsVirtualFile() const {
    return HandleOrBlank(FileName).IsVirtualFile();
}

bool THdbSFileName::ConvertVirtualFileToTempFile() {
    ISFileName* handle = HandleToChange(FileName);
    return handle && handle->ConvertVirtualFileToTempFile();
}

void THdbSFileName::StripVirtualState() {
    if (ISFileName* handle = HandleToChange(FileName)) handle->StripVirtualState();
}

char* THdbSFileName::GetNameNoExt() const {
    return HandleOrBlank(FileName).GetNameNoExt();
}

char* THdbSFileName::GetNameAndExt() const {
    return HandleOrBlank(FileName).GetNameAndExt();
}

char* THdbSFileName::GetFullFileName() const {
    return HandleOrBlank(FileName).GetFullFileName();
}

char* THdbSFileName::GetFullFileNameNoExt() const {
    return HandleOrBlank(FileName).GetFullFileNameNoExt();
}

char* THdbSFileName::GetPathOnly() const {
    return HandleOrBlank(FileName).GetPathOnly();
}

char* THdbSFileName::GetExtOnly() const {
    return HandleOrBlank(FileName).GetExtOnly();
}

char* THdbSFileName::GetNameOnly() const {
    return HandleOrBlank(FileName).GetNameOnly();
}

void THdbSFileName::Accept(IBaseVisitor* visitor) const {
    AcceptVisitor(visitor, this);
}

const char* THdbSFileName::GetName() const {
    return Canonical(false);
}

TRope THdbSFileName::GetFullName() {
    return GetName();
}

hdb::TItemKind THdbSFileName::GetHDBItemKind() {
    return hdb::ITEM_KIND_FILE;
}

THdlLanguage THdbSFileName::GetLanguage() {
    return LANGUAGE_NONE;
}

const hdb::IHDBBase* THdbSFileName::GetSourceParent(bool) const {
    return nullptr;
}

bool THdbSFileName::IsProtected() const {
    return false;
}

unsigned long long THdbSFileName::GetHandleChangeCount() {
    return handleChangeCount.load(std::memory_order_relaxed);
}

void CountHandleChange() {
    handleChangeCount.fetch_add(1, std::memory_order_relaxed);
}
