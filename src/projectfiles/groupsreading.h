#pragma once
#include "projectfiles/hdlsourcefile.h"
#include "projectfiles/ihdlsourcefilelist.h"
#include "projectfiles/namesahead.h"
#include "projectfiles/sourcenotes.h"
#include "services/base/progress.h"
#include "services/xml/xmlstream.h"
#include <memory>
#include <string>
#include <string_view>

/// What is known while the groups are read.
///
/// A read asks for each name whether the build has it. An index of all dependencies that is kept up
/// to date with every change would cost more than the rest of the read; as long as nobody but the
/// read changes a list, its own notes answer.
class TGroupsReading {
public:
    /// `sourceCount` sources will be read.
    TGroupsReading(bool isBuildEmpty, std::size_t sourceCount)
        : Progress(PROGRESS_READ_SOURCES, sourceCount, kSourcesAReport),
          Notes(sourceCount),
          AreNotesComplete(isBuildEmpty) {}

    /// What is known under `name`; false when the notes do not tell what the build has there.
    bool Find(const ISFileName* name, TSourceNote* note);

    /// Adds `source`, which was read for the group.
    void AddTo(TIHdlSourceFileList* group, IHdlSourceFile* source);
    /// Adds `dependency`, which was read for `source`, the one last added to a group.
    void AddTo(IHdlSourceFile* source, IHdlSourceFile* dependency);
    /// Adds what the build has under `name`, the one that is being read. False, with nothing done,
    /// when it has none, or has to be asked.
    bool AddKnown(std::string_view name, IHdlSourceFile* source);

    /// Names are taken against the directory of `file`, a shared handle: those that follow are
    /// looked for ahead of the reader. Whether the build is asked for those that are known as well
    /// is up to `asksForAll`.
    void LookAheadFrom(const ISFileName* file, bool asksForAll);
    /// The reader is at the beginning of a group's sources.
    void BeginGroup(const TElementIterator& element);
    /// The reader has put the text at `element` into Text, and is done with it.
    void MeetText(const TElementIterator& element);
    void LeaveText();
    /// The reader passes elements over: names are not looked for ahead any more.
    void LoseTrack() { Ahead.reset(); }
    /// The handle of the name that is being read; null when it has to be looked for.
    const ISFileName* FindHandle(const char* name, const ISFileName* file);

    /// The text that is being read: kept here for its memory.
    std::string Text;

    /// Advances with each source.
    TProgress Progress;

    /// Whether the file is met for the first time; not for a source without a name.
    bool IsNew(const IHdlSourceFile& source);

private:
    // Few, as a disk may be slow.
    static constexpr std::size_t kSourcesAReport = 16;

    // To be called before and after the read changes a list.
    void Expect() { AreNotesComplete = AreNotesComplete && IsUnchanged(); }
    void CatchUp();
    TSourceNote* NoteOf(IHdlSourceFile* source);
    bool Take(TIHdlSourceFileList* group, IHdlSourceFile* source);
    bool IsUnchanged() const;
    void AnnounceMore();

    TSourceNotes Notes;
    std::unique_ptr<TNamesAhead> Ahead;
    bool AsksForAll = true;
    bool IsAtName = false;
    TElementIterator Announced;      // the first element that was not looked at for names ahead
    bool IsSourceAnnounced = false;  // by the last START before it
    bool AreNotesComplete;
    unsigned long long ListChanges = TIHdlSourceFileList::GetListChangeCount();
    unsigned long long NameChanges = THdlSourceFile::GetHandleChangeCount();
};
