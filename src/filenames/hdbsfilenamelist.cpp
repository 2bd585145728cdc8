#include "filenames/hdbsfilenamelist.h"

#include "services/designdatabase/visitor.h"
#include <cstddef>
#include <memory>
#include <mutex>
#include <new>
#include <unordered_map>

namespace {

/// For each element that is in more than one list, how many hold it beside one.
class TExtraHolders {
public:
    static TExtraHolders& GetInstance() {
        // Never destroyed: lists may outlive this file's static objects.
        static auto& holders = *new TExtraHolders;
        return holders;
    }
    void Add(const THdbSFileName* file) {
        const std::lock_guard guard(Lock);
        ++Counts[file];
    }
    void AddAll(const DList<THdbSFileName*>& files) {
        DListIterator<THdbSFileName*> next(files);
        try {
            for (; next.NotAtTail(); ++next) Add(next.Current());
        } catch (const std::bad_alloc&) {
            for (DListIterator<THdbSFileName*> file(files); !(file == next); ++file)
                LetGoOf(file.Current());
            throw;
        }
    }
    /// Whether no list holds `file` any more.
    bool LetGoOf(const THdbSFileName* file) {
        const std::lock_guard guard(Lock);
        const auto entry = Counts.find(file);
        if (entry == Counts.end()) return true;
        if (--entry->second == 0) Counts.erase(entry);
        return false;
    }

private:
    std::mutex Lock;
    std::unordered_map<const THdbSFileName*, std::size_t> Counts;
};

}  // namespace

THdbSFileNameList::THdbSFileNameList(const THdbSFileNameList& other)
    : DList<THdbSFileName*>(other), hdb::IHDBBase(other), Name(other.Name) {
    TExtraHolders::GetInstance().AddAll(*this);
}

THdbSFileNameList& THdbSFileNameList::operator=(const THdbSFileNameList& other) {
    Flush(1);
    for (DListIterator<THdbSFileName*> file(other); file.NotAtTail(); ++file)
        AddAtTail(file.Current()->Canonical(false));
    return *this;
}

THdbSFileNameList::~THdbSFileNameList() {
    Flush(1);
}

void THdbSFileNameList::ObjectAdded(THdbSFileName*) {}

void THdbSFileNameList::ObjectRemoved(THdbSFileName*) {}

void THdbSFileNameList::SetListName(const char* name) {
    Name = name ? name : "";
}

void THdbSFileNameList::AddAtTail(const char* name) {
    auto file = std::make_unique<THdbSFileName>(name);
    AddAtTail(file.get());
    (void)file.release();
}

int THdbSFileNameList::AddAtTailNoDup(const char* name) {
    auto file = std::make_unique<THdbSFileName>(name);
    AddAtTail(file.get());
    (void)file.release();
    return 1;
}

void THdbSFileNameList::AddAtHead(const char* name) {
    auto file = std::make_unique<THdbSFileName>(name);
    AddAtHead(file.get());
    (void)file.release();
}

int THdbSFileNameList::AddAtHeadNoDup(const char* name) {
    auto file = std::make_unique<THdbSFileName>(name);
    AddAtHead(file.get());
    (void)file.release();
    return 1;
}

void THdbSFileNameList::Flush(int deleteItems) {
    while (!IsEmpty()) {
        THdbSFileName* file = DListIterator<THdbSFileName*>(*this).Current();
        DList<THdbSFileName*>::Remove(file);
        if (TExtraHolders::GetInstance().LetGoOf(file) && deleteItems) delete file;
    }
}

bool THdbSFileNameList::Remove(THdbSFileName* file) {
    if (!DList<THdbSFileName*>::Remove(file)) return false;
    TExtraHolders::GetInstance().LetGoOf(file);
    return true;
}

void THdbSFileNameList::Accept(IBaseVisitor* visitor) const {
    AcceptVisitor(visitor, this);
}

const char* THdbSFileNameList::GetName() const {
    return Name.c_str();
}

TRope THdbSFileNameList::GetFullName() {
    return Name;
}

hdb::TItemKind THdbSFileNameList::GetHDBItemKind() {
    return hdb::ITEM_KIND_FILE;
}

THdlLanguage THdbSFileNameList::GetLanguage() {
    return LANGUAGE_NONE;
}

const hdb::IHDBBase* THdbSFileNameList::GetSourceParent(bool) const {
    return nullptr;
}

bool THdbSFileNameList::IsProtected() const {
    return false;
}
