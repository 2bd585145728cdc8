#pragma once
#include "projectfiles/hdbobjectobserver.h"
#include "services/base/observer.h"
#include "services/designdatabase/hdbbase.h"
#include <functional>
#include <initializer_list>
#include <list>
#include <memory>
#include <utility>

class IProjectComponent;
class ISFileName;
class TCheckSite;
class THdlProjectFile;
class TProjectFileIndex;

/// A folder of a project: an ordered list of project files, no two of one name, with a list type
/// that names the folder and an owner that files added through it get.
///
/// Two files are the same when their canonical paths are equal ignoring case; a file without a
/// file-name handle equals none, and a walk that meets one logs a failed check.
///
/// The list owns its files: Flush and Remove with deletion and the destructor delete them, a file
/// that is in several lists when the last of them lets go. Copies share the files and
/// register the same observers, each for itself. A list is deleted as a list class or as
/// hdb::IHDBBase, not as std::list.
class HDLBUILDFILE_API THdlProjectFileList : public std::list<THdlProjectFile*>,
                                             public hdb::IHDBBase,
                                             public TEmbeddedObserverMgr<AHdbObjectObserver> {
public:
    enum TFileListType : int {
        LIST_TYPE_NONE = 0,
        LIST_TYPE_USER_SOURCE_FILES = 1,
        LIST_TYPE_COMMAND_LINE_SOURCE_FILES = 2,
        LIST_TYPE_FILE_INPUT = 3,
        LIST_TYPE_FILE_OUTPUT = 4,
        LIST_TYPE_INITIALIZED_VARIABLES = 5,
        LIST_TYPE_TRANSACTION_DIAGRAMS = 6,
        LIST_TYPE_TEMPLATE_DIAGRAM = 7,
        LIST_TYPE_STIMULUS_AND_RESULTS_ARCHIVE = 8,
        LIST_TYPE_ASSOCIATED_FILES = 9,
        LIST_TYPE_UTILITIES_FILES = 10,
        LIST_TYPE_SOURCE_CODE_LIBRARY_FILES = 11
    };
    /// The file that the list has under the name in question, and whether the call added it.
    using TAddResult = std::pair<THdlProjectFile*, bool>;

    /// An empty list; `owner` may be null.
    THdlProjectFileList(TFileListType type, IProjectComponent* owner);
    THdlProjectFileList(const THdlProjectFileList& other);
    /// Replaces the files by those of `other`. The former ones are not deleted: those that no list
    /// holds any more stay valid until the process ends or somebody deletes them, so flush first.
    THdlProjectFileList& operator=(const THdlProjectFileList& other);
    ~THdlProjectFileList() override;

    void Accept(IBaseVisitor* visitor) const override;
    /// The folder's name, as GetListTypeToString gives it.
    const char* GetName() const override;
    TRope GetFullName() override;
    hdb::TItemKind GetHDBItemKind() override;
    THdlLanguage GetLanguage() override;
    const hdb::IHDBBase* GetSourceParent(bool reserved) const override;
    bool IsProtected() const override;

    // Adding by name makes a file of the list's kind with the list's owner, unless one is listed;
    // null makes the file of the empty name. A `const THdlProjectFile*` counts as a name.
    //
    // Adding a file gives it the list's owner, also when it is refused for its name. Delete a
    // refused file only when `first` is another one: adding a listed file again gives that very
    // file. Null is refused with a null `first`.
    virtual TAddResult AddAtHeadAndSetOwner(const ISFileName* name);
    virtual TAddResult AddAtHeadAndSetOwner(THdlProjectFile* file);
    virtual TAddResult AddAtTailAndSetOwner(const ISFileName* name);
    virtual TAddResult AddAtTailAndSetOwner(THdlProjectFile* file);
    /// Adds `file` before or after the file named as `relativeTo`; at the tail when that is null or
    /// not listed.
    virtual TAddResult InsertFileAndSetOwner(THdlProjectFile* file,
                                             const THdlProjectFile* relativeTo, bool insertBefore);
    /// Chooses the listed file that AddAssociatedFileToScopeFile adds to, in lists that have
    /// scopes. False, with no scope set, when `name` is no listed user source file.
    virtual bool SetAssociatedFileScope(const ISFileName* name);
    /// Adds a file to the associated files of the scope; whether it was added.
    virtual bool AddAssociatedFileToScopeFile(const ISFileName* name);

    TFileListType GetListType() const { return ListType; }
    /// The name of a folder type; "" for types outside 1 to 11. Never null, static.
    static const char* GetListTypeToString(TFileListType type);
    /// The inverse, letter case included; LIST_TYPE_NONE for every other text and for null.
    static TFileListType GetListTypeFromString(const char* text);
    IProjectComponent* GetOwningProjectComponent() const { return OwningProjectComponent; }
    /// The owner of files added later; those in the list keep theirs.
    void SetOwningProjectComponent(IProjectComponent* owner) { OwningProjectComponent = owner; }

    /// The first and the last file; null in an empty list.
    THdlProjectFile* GetHead() { return empty() ? nullptr : front(); }
    const THdlProjectFile* GetHead() const { return empty() ? nullptr : front(); }
    THdlProjectFile* GetTail() { return empty() ? nullptr : back(); }
    const THdlProjectFile* GetTail() const { return empty() ? nullptr : back(); }
    /// The first file with that name; the end for none and for null.
    iterator FindFromISFileName(const ISFileName* name);
    const_iterator FindFromISFileName(const ISFileName* name) const;
    bool Contains(const ISFileName* name) const;
    /// Whether a file of that file's name is listed.
    bool Contains(THdlProjectFile* file) const;
    /// Takes out the file of that name, even if it is another object than `file`, and tells the
    /// owner that the project was modified, unless this is the utilities folder. False when there
    /// is none. Without `deleteFile` the file is the caller's once no list holds it.
    bool Remove(const ISFileName* name, bool deleteFile);
    bool Remove(const THdlProjectFile* file, bool deleteFile);
    /// Empties the list; tells neither owner nor observers.
    void Flush(bool deleteFiles);
    /// Whether a file changed since it was loaded; `whenUnknown` is the answer for a file never
    /// loaded.
    bool IsModified(bool whenUnknown) const;
    /// Whether files may be copied or moved between this folder and one of type `other`.
    bool IsCopyOrMoveCompatibleType(TFileListType other) const;

    // The changes that std::list offers, for entries as they come: names may repeat, owners stay
    // and nobody is told; a file taken out is the caller's once no list holds it. Null is never
    // listed. What goes through a reference to std::list or replaces `*position` is not counted: a
    // file that came that way belongs to this list alone.
    void push_back(THdlProjectFile* file) { Link(end(), file); }
    void push_front(THdlProjectFile* file) { Link(begin(), file); }
    void pop_back() { resize(empty() ? 0 : size() - 1); }
    void pop_front() { erase(begin(), empty() ? begin() : ++begin()); }
    void emplace_back(THdlProjectFile* file = nullptr) { push_back(file); }
    void emplace_front(THdlProjectFile* file = nullptr) { push_front(file); }
    iterator emplace(const_iterator position, THdlProjectFile* file) {
        return Link(position, file);
    }
    iterator insert(const_iterator position, THdlProjectFile* file) { return Link(position, file); }
    iterator insert(const_iterator position, size_type count, THdlProjectFile* file);
    iterator insert(const_iterator position, std::initializer_list<THdlProjectFile*> files);
    template <class Iterator>
    iterator insert(const_iterator position, Iterator first, Iterator last) {
        return LinkAll(position, std::list<THdlProjectFile*>(first, last));
    }
    iterator erase(const_iterator position) { return Unlink(position); }
    iterator erase(const_iterator first, const_iterator last);
    void clear() { Flush(false); }
    void assign(size_type count, THdlProjectFile* file);
    void assign(std::initializer_list<THdlProjectFile*> files);
    template <class Iterator>
    void assign(Iterator first, Iterator last) {
        AssignAll(std::list<THdlProjectFile*>(first, last));
    }
    THdlProjectFileList& operator=(std::initializer_list<THdlProjectFile*> files);
    void resize(size_type count, THdlProjectFile* file = nullptr);
    size_type remove(THdlProjectFile* file);
    template <class Predicate>
    size_type remove_if(Predicate isToGo) {
        size_type removed = 0;
        for (auto place = begin(); place != end();)
            if (isToGo(*place))
                place = Unlink(place), ++removed;
            else
                ++place;
        return removed;
    }
    size_type unique();
    template <class Predicate>
    size_type unique(Predicate isSame) {
        THdlProjectFile* former = nullptr;
        return remove_if([&](THdlProjectFile* file) {
            if (former && isSame(former, file)) return true;
            former = file;
            return false;
        });
    }
    void splice(const_iterator position, THdlProjectFileList& other);
    void splice(const_iterator position, THdlProjectFileList& other, const_iterator place);
    void splice(const_iterator position, THdlProjectFileList& other, const_iterator first,
                const_iterator last);
    template <class Order = std::less<>>
    void merge(THdlProjectFileList& other, Order order = {}) {
        DropIndexes(other);
        std::list<THdlProjectFile*>::merge(other, order);
    }
    template <class Order = std::less<>>
    void sort(Order order = {}) {
        DropIndexes(*this);
        std::list<THdlProjectFile*>::sort(order);
    }
    void reverse();
    /// Swaps the files, nothing else.
    void swap(THdlProjectFileList& other);

protected:
    // Add without touching the file's owner; otherwise as the operations above.
    TAddResult push_back_no_dup(THdlProjectFile* file);
    TAddResult push_front_no_dup(THdlProjectFile* file);
    /// The listed file of that name when it is found without a walk, so that an add by name need
    /// not make a file just to delete it; null means unknown.
    THdlProjectFile* FindWithoutWalk(const ISFileName* name) const;
    /// The result of adding `refused` while `listed` has its name. Writes a diagnostic line
    /// when the two names differ in letter case only.
    static TAddResult Refused(const ISFileName* refused, THdlProjectFile* listed);
    /// Ends an add by name: deletes the file made for it unless it was added.
    static TAddResult DeleteUnlessAdded(THdlProjectFile* made, TAddResult result);
    /// The listed file with that address, which is all that is looked at: what was there may be
    /// deleted already. `name` is where to look first. Null when there is none.
    THdlProjectFile* FindByAddress(const THdlProjectFile* file, const ISFileName* name) const;

private:
    const_iterator Find(const ISFileName* name, TCheckSite& nameless) const;
    const_iterator Walk(const ISFileName* handle, TCheckSite& nameless) const;
    iterator AsMutable(const_iterator place) {
        return std::list<THdlProjectFile*>::erase(place, place);
    }
    TAddResult InsertAndNotify(const_iterator position, THdlProjectFile* file);
    iterator Link(const_iterator position, THdlProjectFile* file);
    iterator Unlink(const_iterator place);
    iterator LinkAll(const_iterator position, const std::list<THdlProjectFile*>& files);
    iterator LinkEntries(const_iterator position, std::list<THdlProjectFile*>* made);
    void AssignAll(const std::list<THdlProjectFile*>& files);
    void DropIndexes(const THdlProjectFileList& other) const;

    IProjectComponent* OwningProjectComponent;
    TFileListType ListType;
    const std::unique_ptr<TProjectFileIndex> Index;
};
