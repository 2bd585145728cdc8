#pragma once
#include "filenames/hdbsfilename.h"
#include "services/base/dlist.h"
#include <string>

/// A named list of tracked file names, which it owns.
///
/// A copy shares its source's elements; a shared element is deleted by the last list that lets go
/// of it. An element handed to the pointer forms of AddAtTail and AddAtHead becomes the list's and
/// must be in no other list. Flush and Remove know of the sharing: call them on this class, not
/// on the DList below it.
class HDLBUILDFILE_API THdbSFileNameList : public DList<THdbSFileName*>, public hdb::IHDBBase {
public:
    /// An empty list with an empty name.
    THdbSFileNameList() = default;
    THdbSFileNameList(const THdbSFileNameList& other);
    /// Flushes this list with deletion and appends new elements made from the canonical names of
    /// `other`. The list keeps its own name. Assigned to itself, it ends up empty.
    THdbSFileNameList& operator=(const THdbSFileNameList& other);
    ~THdbSFileNameList() override;

    using DList<THdbSFileName*>::AddAtTail;
    using DList<THdbSFileName*>::AddAtTailNoDup;
    using DList<THdbSFileName*>::AddAtHead;
    using DList<THdbSFileName*>::AddAtHeadNoDup;

    void ObjectAdded(THdbSFileName* file) override;
    void ObjectRemoved(THdbSFileName* file) override;
    /// Null counts as empty, here and below.
    virtual void SetListName(const char* name);
    /// Appends a new element made from `name`.
    virtual void AddAtTail(const char* name);
    /// The same: the new element cannot be listed yet, so names do repeat. Always 1.
    virtual int AddAtTailNoDup(const char* name);
    virtual void AddAtHead(const char* name);
    virtual int AddAtHeadNoDup(const char* name);

    /// Empties the list. With a non-zero argument, deletes the elements that no other list shares;
    /// with 0 these become the caller's.
    void Flush(int deleteItems);
    /// Takes out the first entry that is `file`; false when there is none. An element that no other
    /// list shares becomes the caller's.
    bool Remove(THdbSFileName* file);

    void Accept(IBaseVisitor* visitor) const override;
    /// The list's name; valid until it changes.
    const char* GetName() const override;
    TRope GetFullName() override;
    hdb::TItemKind GetHDBItemKind() override;
    THdlLanguage GetLanguage() override;
    const hdb::IHDBBase* GetSourceParent(bool reserved) const override;
    bool IsProtected() const override;

private:
    std::string Name;
};
