#pragma once
#include "filenames/hdbsfilename.h"

class IProjectComponent;
class THdlProjectFileList;

/// The text under which the checks of project files and their lists are logged.
inline constexpr const char* kProjectFileSource = "hdlprojectfile";

/// A file of a project: a tracked file name that knows its owner and its kind.
///
/// A file counts the lists that hold it. A list that deletes its files deletes this one only when
/// it is the last to hold it, so files may be in several lists and in copies of lists. A file
/// that no list holds is its maker's to delete. It is deleted only while no list holds it, and
/// after it was dropped from source file groups and dependency lists, which keep plain pointers.
class HDLBUILDFILE_API THdlProjectFile : public THdbSFileName {
public:
    enum TProjectFileType : int {
        FILE_TYPE_NONE = 0,  ///< made without a file name
        FILE_TYPE_SOURCE = 1,
        FILE_TYPE_DIAGRAM = 2,
        FILE_TYPE_STIMULUS_DIAGRAM = 3,  ///< a diagram with extension ".fp"
        FILE_TYPE_PROJECT = 4,           ///< extension ".hpj"
        FILE_TYPE_LOG = 5,               ///< extension ".log"
        FILE_TYPE_TEXT = 6,              ///< extension ".txt"
        FILE_TYPE_OTHER = 7
    };

    /// Wraps `file`, which must outlive this object, or the handle inside when `file` is a tracked
    /// name. Null gives a new handle of the empty name. Unless `typeGivenByCaller` the type follows
    /// from the extension, letter case included, and is FILE_TYPE_NONE for a missing handle;
    /// otherwise it starts as FILE_TYPE_NONE. `owner` may be null.
    THdlProjectFile(const ISFileName* file, IProjectComponent* owner, bool typeGivenByCaller);
    /// Shares the handle and copies owner and type. No list holds the copy.
    THdlProjectFile(const THdlProjectFile& other);
    /// The same for an existing file, also for one that is in lists: they go on holding it and
    /// find it under its new name.
    THdlProjectFile& operator=(const THdlProjectFile& other);
    ~THdlProjectFile() override;

    void Accept(IBaseVisitor* visitor) const override;

    virtual bool IsLibrary() const;
    /// Never null; valid until the name is set again.
    virtual const char* GetPrecompiledLibraryGroupName() const;
    virtual bool IsTemplateFile() const;
    /// Adds a source file of that name to the associated files. False when it is there already, or
    /// when files of this kind have no associated files.
    virtual bool AddAssociatedFileAtTail(const ISFileName* name);
    virtual bool AddAssociatedFileAtHead(const ISFileName* name);
    /// The associated files, a part of this file; null for kinds that have none.
    virtual const THdlProjectFileList* GetAssociatedFileList() const;
    virtual THdlProjectFileList* GetAssociatedFileList();

    IProjectComponent* GetOwningProjectComponent() const { return OwningProjectComponent; }
    /// Also becomes the owner of the associated list; the files in it keep theirs.
    void SetOwningProjectComponent(IProjectComponent* owner);
    TProjectFileType GetProjectFileType() const { return ProjectFileType; }
    void SetProjectFileType(TProjectFileType type) { ProjectFileType = type; }
    /// The canonical path, the key under which lists index the file; "" without a handle.
    const char* GetHashKey() const;

private:
    friend class THdlProjectFileList;
    /// One more list entry holds the file.
    void Hold() { ++HolderCount; }
    /// One entry less. True when none is left, also for a file whose holding was never counted.
    bool LetGo();

    IProjectComponent* OwningProjectComponent;
    TProjectFileType ProjectFileType = FILE_TYPE_NONE;
    unsigned HolderCount = 0;
};
