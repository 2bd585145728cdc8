#pragma once
#include "projectfiles/dependencyindex.h"
#include "projectfiles/ihdlsourcefilelist.h"
#include "services/hdl/hdllanguage.h"
#include <map>
#include <memory>
#include <vector>

class TGroupsReading;
class TProjectSimGeneralConfig;
class TSourceFileOwner;
class TXMLList;

/// The sources of a build in one list per language, and the "SourceFileGroup" elements of a build
/// file. The lists are owned, the sources are not.
class HDLBUILDFILE_API TSourceFileGroups {
    struct TGroup;

public:
    /// `owner` makes the sources that are read and must outlive the groups. Outside a build there
    /// is none to pass: with null, sources are added, none are read.
    explicit TSourceFileGroups(TSourceFileOwner* owner);
    ~TSourceFileGroups();
    TSourceFileGroups(const TSourceFileGroups&) = delete;
    TSourceFileGroups& operator=(const TSourceFileGroups&) = delete;

    /// The list of `language`, made when missing; it stays in place as long as the groups.
    TIHdlSourceFileList* GetOrCreateGroup(THdlLanguage language);
    /// The same list, but a group that was only looked up counts as missing until it is filled.
    TIHdlSourceFileList* LookUpGroup(THdlLanguage language);
    /// Null when the language has no group.
    TIHdlSourceFileList* FindGroup(THdlLanguage language);
    const TIHdlSourceFileList* FindGroup(THdlLanguage language) const;
    /// The languages that have a group, also an empty one, in numeric order.
    std::vector<THdlLanguage> GetLanguages() const;

    /// Adds to the group of the source's own language, as TIHdlSourceFileList::AddSourceFile does.
    bool AddSourceFile(IHdlSourceFile* source, bool atHead);
    /// The same, and what undoes it as long as nothing else is added.
    struct TAddition {
        TGroup* Group = nullptr;
        bool AtHead = false;
        bool WasAdded = false;
        bool WasGroupStored = false;
    };
    bool AddSourceFile(IHdlSourceFile* source, bool atHead, TAddition* addition);
    void Undo(const TAddition& addition);
    /// Empties every list. The lists stay; none counts as a group until it is filled again.
    void Flush();

    /// The first hit in numeric order of the languages; null when there is none.
    IHdlSourceFile* GetSourceFile(const ISFileName* name);
    const IHdlSourceFile* GetSourceFile(const ISFileName* name) const;
    /// As TIHdlSourceFileList::GetSourceFileOrDependency, one group after the other: a dependency
    /// hides an entry of a later group.
    IHdlSourceFile* GetSourceFileOrDependency(const ISFileName* name);
    /// The first dependency of that name, which no group lists; null when there is none.
    IHdlSourceFile* GetDependency(const ISFileName* name);

    /// What GetSourceFile, `*isListed`, or else GetDependency finds, by a shorter way. False when a
    /// read is not under way, or others change the build meanwhile.
    bool FindWhileReading(const ISFileName* name, IHdlSourceFile** source, bool* isListed);

    /// Whether a source changed on disk since it was compiled or, when it never was, since it was
    /// read.
    bool IsAnySourceFileModifiedSinceLastCompiled() const;

    /// Reads a run of "SourceFileGroup" elements into the groups and marks the files as loaded. A
    /// file that does not exist is told to the user, once, and kept. The group is the one of the
    /// element's language; a source's own language follows from its extension. Names are trimmed;
    /// an element without a name makes no source. False when the stream ends inside an element.
    bool ReadSourceFileGroups(DListIterator<TElement*>& element);
    /// The same when the owner's build takes relative names against the directory of `buildFile`, a
    /// shared handle, as far as it asks FindHandleWhileReading for them. Null: it does not. Without
    /// `asksForAll` the build is not asked for dependencies that it is known to have.
    bool ReadSourceFileGroups(DListIterator<TElement*>& element, const ISFileName* buildFile,
                              bool asksForAll);
    /// The handle of the name that is being read, taken against the directory of `buildFile`; null
    /// when it has to be looked for.
    const ISFileName* FindHandleWhileReading(const char* name, const ISFileName* buildFile);
    /// Whether the last read listed a file that does not exist.
    bool GetFilesMissing() const { return FilesMissing; }

    /// Pushes the group of `topLanguage` and those whose files `general` (may be null) compiles,
    /// with paths relative to the directory of `buildFileName` (null: full paths). Other groups and
    /// the exclusion of sources from the build are not stored.
    void WriteSourceFileGroups(TXMLList* document, const ISFileName* buildFileName,
                               THdlLanguage topLanguage,
                               const TProjectSimGeneralConfig* general) const;

private:
    struct TGroup {
        TIHdlSourceFileList List;
        TDependencyIndex Dependencies{&List};
        bool IsCreated = false;
        bool IsStored() const { return IsCreated || List.WasFilled(); }
    };
    TGroup& GroupOf(THdlLanguage language);
    static IHdlSourceFile* FindDependency(TGroup* group, const ISFileName* name);
    bool ReadGroups(DListIterator<TElement*>& element);
    bool ReadSources(DListIterator<TElement*>& element, THdlLanguage language);
    bool ReadDependencies(DListIterator<TElement*>& element, IHdlSourceFile* source);
    void ReadDependency(const std::string& name, IHdlSourceFile* source);
    IHdlSourceFile* ReadSource(const TElement& start, const std::string& name,
                               THdlLanguage language);
    void TestExists(const IHdlSourceFile& source);
    bool IsAnythingListed() const;

    TSourceFileOwner* SourceFileOwner;
    std::map<THdlLanguage, TGroup> Groups;
    bool FilesMissing = false;
    std::unique_ptr<TGroupsReading> Reading;  // null unless a read is under way
};
