#pragma once
#include "services/base/dlist.h"
#include "services/hdl/hdllanguage.h"
#include "services/names/isfilename.h"
#include <cstddef>
#include <iterator>
#include <memory>
#include <vector>

class IHdlSourceFile;
class THdlProjectSourceFile;
class TDependencyIndex;
class TElement;
class TXMLList;

/// Sources in insertion order, unique by name: the canonical file names compared without regard to
/// case. Serves as a language's group of a build and as the dependency list of a source.
///
/// The list does not own the sources; it drops pointers only. It knows each source by the name that
/// it had when added (or when a source was last assigned to), so searching and destroying a list
/// never touch its entries. A source without a name is always accepted and never found.
class HDLBUILDFILE_API TIHdlSourceFileList {
    // The list is a ring of links: its own one stands before the first entry and after the last.
    struct TLink {
        TLink* Previous;
        TLink* Next;
    };
    struct TEntry : TLink {
        IHdlSourceFile* File;
        TFileIdentity Name;  // that of no file for a source without a name
    };

public:
    /// A position in the list, valid while its entry stays.
    class const_iterator {
    public:
        using iterator_category = std::bidirectional_iterator_tag;
        using value_type = IHdlSourceFile*;
        using difference_type = std::ptrdiff_t;
        using pointer = IHdlSourceFile* const*;
        using reference = IHdlSourceFile* const&;

        const_iterator() = default;
        reference operator*() const { return static_cast<const TEntry*>(Link)->File; }
        pointer operator->() const { return &**this; }
        const_iterator& operator++() {
            Link = Link->Next;
            return *this;
        }
        const_iterator operator++(int) {
            const const_iterator former = *this;
            Link = Link->Next;
            return former;
        }
        const_iterator& operator--() {
            Link = Link->Previous;
            return *this;
        }
        const_iterator operator--(int) {
            const const_iterator former = *this;
            Link = Link->Previous;
            return former;
        }
        bool operator==(const const_iterator&) const = default;

    private:
        friend class TIHdlSourceFileList;
        explicit const_iterator(const TLink* link) : Link(link) {}
        const TLink* Link = nullptr;
    };

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

    const_iterator begin() const { return const_iterator(Ring.Next); }
    const_iterator end() const { return const_iterator(&Ring); }
    std::size_t size() const { return Count; }
    bool empty() const { return Count == 0; }

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
    friend class TCompileOrder;
    friend class TDependencyIndex;
    friend class THdlSourceFile;
    friend class TGroupsReading;
    friend class TSourceFileGroups;
    friend class TReadSourceFile;
    friend class TReadSources;
    struct TNames;
    // Whether the memory of a source that was read has the list, which then outlives the source.
    enum TSource : unsigned char { NO_SOURCE, HAS_SOURCE, HAD_SOURCE };

    bool AddSourceFile(const char* name);
    // AddSourceFile at the end for whoever knows the name of `file`...
    bool AddNamed(IHdlSourceFile* file, const TFileIdentity& name);
    // ... and knows that it is not listed.
    void AddUnlisted(IHdlSourceFile* file, const TFileIdentity& name) {
        Link(&Ring, file, name, false);
    }
    TNames& MadeNames() const;
    TEntry* Find(const TFileIdentity& name) const;
    TEntry* FindNamed(const TFileIdentity& name) const;
    TEntry* FindEntry(const ISFileName* name) const;
    void Link(TLink* before, IHdlSourceFile* file, const TFileIdentity& name, bool isShared);
    void Insert(TEntry* entry, TLink* before);
    void Unlink(TEntry* entry);
    void UnlinkEvery(const IHdlSourceFile* file);
    void Drop(TEntry* entry);
    void DropAll();
    void TakeAll(TIHdlSourceFileList* other);
    void RefreshNames() const;
    bool HasDistinctNames() const;
    void RebuildNames() const;
    void NameHandles() const;
    void MakePlaces() const;
    struct TNamedSource {
        IHdlSourceFile* File;
        const ISFileName* Name;
    };
    // Fills the empty list with sources whose names differ from each other. The names are looked
    // at when somebody asks for one: they outlive the list.
    void FillDistinct(const std::vector<TNamedSource>& sources);
    // Tells `index` what is listed, from then on every change.
    void ReportTo(TDependencyIndex* index);
    void StopReportingTo(TDependencyIndex* index);
    void ReportAllAsAdded(TDependencyIndex* index);
    void ReportAllAsRemoved(TDependencyIndex* index);
    using TReport = void (TDependencyIndex::*)(TIHdlSourceFileList*, IHdlSourceFile*,
                                               const TFileIdentity*);
    void ReportAll(TDependencyIndex* index, TReport report);
    // Whether a source was listed since the last ForgetFilling.
    bool WasFilled() const { return IsFilled; }
    void ForgetFilling() { IsFilled = false; }
    // Drops the entry that AddSourceFile added last.
    void UndoAdd(bool atHead);
    // How often this thread changed a list.
    static unsigned long long GetListChangeCount();

    TLink Ring{&Ring, &Ring};
    std::size_t Count = 0;
    mutable unsigned long long NameCount = 0;  // of changes of names when those here were looked at
    THdlLanguage Language = LANGUAGE_NONE;
    bool IsFilled = false;
    // Sources that were assigned names after they were added may share one: the first one has it.
    mutable bool AreNamesShared = false;
    TSource Source = NO_SOURCE;
    // Of long lists and those that an index watches.
    mutable std::unique_ptr<TNames> Names;
};
