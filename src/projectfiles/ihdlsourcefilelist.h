#pragma once
#include "services/base/dlist.h"
#include "services/hdl/hdllanguage.h"
#include <cstddef>
#include <list>
#include <memory>

class IHdlSourceFile;
class ISFileName;
class THdlProjectSourceFile;
class TDependencyIndex;
class TElement;
class TXMLList;
struct TSourceName;

/// Sources in insertion order, unique by name: the canonical file names compared without regard to
/// case. Serves as a language's group of a build and as the dependency list of a source.
///
/// The list does not own the sources; it drops pointers only. It knows each source by the name that
/// it had when added (or when a source was last assigned to), so searching and destroying a list
/// never touch its entries. A source without a name is always accepted and never found.
class HDLBUILDFILE_API TIHdlSourceFileList {
public:
    using const_iterator = std::list<IHdlSourceFile*>::const_iterator;

    /// An empty list of LANGUAGE_NONE.
    TIHdlSourceFileList();
    /// The same sources and language.
    TIHdlSourceFileList(const TIHdlSourceFileList& other);
    TIHdlSourceFileList& operator=(const TIHdlSourceFileList& other);
    ~TIHdlSourceFileList();

    THdlLanguage GetLanguage() const { return Language; }
    void SetLanguage(THdlLanguage language) { Language = language; }

    /// False, with the list unchanged, for null and for a name that is listed.
    bool AddSourceFile(IHdlSourceFile* file, bool atHead);

    /// The source of that name; null when there is none and for a null name.
    IHdlSourceFile* GetSourceFile(const ISFileName* name);
    const IHdlSourceFile* GetSourceFile(const ISFileName* name) const;
    /// The source of that name, else the first dependency of that name that an entry has, asked in
    /// order. Dependencies of dependencies are not searched.
    IHdlSourceFile* GetSourceFileOrDependency(const ISFileName* name);
    const IHdlSourceFile* GetSourceFileOrDependency(const ISFileName* name) const;

    /// False for null and when no entry has the name of `file`. Otherwise drops `file` itself: a
    /// different source of its name stays, and the result is true all the same.
    bool RemoveSourceFile(IHdlSourceFile* file);
    /// A project source is a source and a file name: it is taken as a source.
    bool RemoveSourceFile(THdlProjectSourceFile* file);
    /// Drops the source of that name; false when there is none.
    bool RemoveSourceFile(const ISFileName* name);
    /// Drops all entries.
    void Flush();

    const_iterator begin() const { return Entries.begin(); }
    const_iterator end() const { return Entries.end(); }
    std::size_t size() const { return Entries.size(); }
    bool empty() const { return Entries.empty(); }

    /// Reads a run of `elementName` elements (null and "": "File") and adds a new source for each;
    /// these live until the process ends, unless a caller deletes them. Relative names are taken
    /// against the working directory. False when the stream ends inside an element, or with the
    /// source added, when a file does not exist; the rest is not read.
    bool ReadFromFile(DListIterator<TElement*>& element, const char* elementName);
    /// Pushes one element per source with its path relative to the directory of `relativeTo` (null:
    /// the full path). A null document and an empty list write nothing.
    void WriteToFile(TXMLList* document, const char* elementName,
                     const ISFileName* relativeTo) const;

private:
    friend class TDependencyIndex;
    friend class TSourceFileGroups;
    struct TNames;
    using TPlace = const_iterator;

    bool AddSourceFile(const char* name);
    TNames& MadeNames() const;
    TPlace Find(const TSourceName& name) const;
    void Link(TPlace before, IHdlSourceFile* file, const TSourceName* name);
    void Unlink(TPlace place, const TSourceName& name);
    void UnlinkEvery(const IHdlSourceFile* file);
    void RebuildNames() const;
    // Tells `index` what is listed, from then on every change.
    void ReportTo(TDependencyIndex* index);
    void StopReportingTo(TDependencyIndex* index);
    void ReportAllAsAdded(TDependencyIndex* index);
    void ReportAllAsRemoved(TDependencyIndex* index);
    // Whether a source was listed since the last ForgetFilling.
    bool WasFilled() const;
    void ForgetFilling();

    std::list<IHdlSourceFile*> Entries;
    THdlLanguage Language = LANGUAGE_NONE;
    // Behind a pointer, as most lists are those of sources without dependencies.
    mutable std::unique_ptr<TNames> Names;
};
