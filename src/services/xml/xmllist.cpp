#include "services/xml/xmllist.h"

#include <mutex>
#include <new>
#include <optional>
#include <unordered_map>

#include "services/base/fold.h"
#include "services/files/filelock.h"
#include "services/files/filereplace.h"
#include "services/files/filesave.h"
#include "services/files/filestatus.h"
#include "services/files/pathconventions.h"
#include "services/files/pathtext.h"
#include "services/logging/loglock.h"
#include "services/logging/usermessages.h"
#include "services/names/isfilename.h"
#include "services/xml/elementsequence.h"
#include "services/xml/xmlprint.h"
#include "services/xml/xmlprologue.h"
#include "services/xml/xmlreader.h"
#include "services/xml/xmltext.h"
#include "services/xml/xmlwriter.h"

namespace {

constexpr int kReadFailureLine = 105;

/// The files whose last read failed, whichever list read them: every read and every write has a
/// list of its own. Under each name is the file that it led to: a save goes through links, which
/// cannot be followed every time.
class TUnreadFiles {
public:
    static TUnreadFiles& GetInstance() {
        // Never destroyed: lists may be used until the process ends.
        static auto& files = *new TUnreadFiles;
        return files;
    }
    void Add(const std::string& name, const std::string& target) {
        const std::lock_guard guard(Lock);
        Targets[name] = Targets[target] = target;
    }
    void Remove(const std::string& name, const std::string& target) {
        const std::lock_guard guard(Lock);
        std::erase_if(Targets, [&](const auto& unread) {
            return unread.first == name || unread.second == target;
        });
    }
    bool Has(const std::string& name) {
        const std::lock_guard guard(Lock);
        return Targets.contains(name);
    }

private:
    std::mutex Lock;
    std::unordered_map<std::string, std::string> Targets;
};

std::string GetNameKey(const char* name) {
    return kPathsIgnoreCase ? FoldCase(name) : name;
}

void NoteRead(const ISFileName* file, bool succeeded) {
    const std::string name = GetNameKey(file->Canonical(false));
    const std::string target = GetNameKey(file->CanonicalWithExpandedLinks());
    if (succeeded)
        TUnreadFiles::GetInstance().Remove(name, target);
    else
        TUnreadFiles::GetInstance().Add(name, target);
}

// True also when the disk does not tell whether the file exists: making the backup shows it.
bool MustBeKept(const ISFileName* file) {
    TUnreadFiles& unread = TUnreadFiles::GetInstance();
    if (!unread.Has(GetNameKey(file->Canonical(false))) &&
        !unread.Has(GetNameKey(file->CanonicalWithExpandedLinks())))
        return false;
    const TFileStatus status = LookAtFile(file->Canonical(false));
    return status.Exists || status.IsUnknown;
}

std::string DescribeReadError(const char* path, const TXMLReadError& error) {
    std::string text = "\"" + std::string(path) + "\"";
    if (error.Line > 0)
        text += ", line " + std::to_string(error.Line) + ", column " + std::to_string(error.Column);
    return text + ": " + error.Reason;
}

void LogText(const std::string& text) {
    const TLogLock lock;
    TBinaryLogFile::GetInstance()->Write(text.c_str(), "xmllist", kReadFailureLine);
}

bool ReadBytes(const char* path, std::string* bytes, TXMLReadError* error) {
    const TFileReadResult result = ReadWholeFile(path, bytes, &error->Reason);
    if (result == FILE_READ_DONE) return true;
    error->Missing = result == FILE_READ_MISSING;
    if (error->Reason.empty())
        error->Reason = error->Missing ? "the file does not exist" : "the file cannot be read";
    return false;
}

/// The save of a document, which begins while a large one is printed.
class TDocumentSave {
public:
    TDocumentSave(const ISFileName* file, const char* path)
        : File(file), Path(CanonicalPath(path)) {}

    void Write(std::string_view part) {
        // So that the backup is of the very file that is replaced.
        if (!Lock) Lock.emplace(Path.c_str());
        if (!Save && Lock->IsHeld()) Save.emplace(Path, "");
        if (Save) Save->Write(part);
    }
    /// Without it the old file stays.
    bool Finish(const std::vector<std::string_view>& rest) {
        for (const std::string_view part : rest) Write(part);
        Reason = Lock->GetReason();
        if (!Save || (MustBeKept(File) && !KeepBackup(Path.c_str(), &Reason))) return false;
        if (!Save->Finish()) {
            Reason = Save->GetReason();
            return false;
        }
        NoteSave();
        return true;
    }
    const std::string& GetReason() const { return Reason; }

private:
    // Nothing of the file is lost without it: the next save may keep a copy that nobody needs.
    void NoteSave() const noexcept {
        try {
            NoteRead(File, true);
        } catch (const std::bad_alloc&) {
            return;
        }
    }

    const ISFileName* File;
    std::string Path;
    std::optional<TFileLock> Lock;
    std::optional<TFileSave> Save;
    std::string Reason;
};

/// The writer that takes what is pushed, until the end of its life, however that comes.
class TWriterTurn {
public:
    TWriterTurn(TXMLWriter** place, TXMLWriter* writer) : Place(place) { *place = writer; }
    ~TWriterTurn() { *Place = nullptr; }
    TWriterTurn(const TWriterTurn&) = delete;
    TWriterTurn& operator=(const TWriterTurn&) = delete;

private:
    TXMLWriter** Place;
};

bool PrintElements(TXMLList* list, TPrintBuffer* document, std::string* reason) {
    TXMLWriter writer(list, true, document);
    for (DListIterator<TElement*> element(*list); element.NotAtTail(); ++element)
        if (element.Current()) writer.Write(*element.Current());
    if (writer.Finish()) return true;
    *reason = writer.GetError();
    return false;
}

}  // namespace

TXMLString MakeXMLString(const char* text) {
    return TXMLList::MakeXMLString(text);
}

TXMLString TXMLList::MakeXMLString(const char* text) {
    return TXMLString(text ? text : "");
}

TXMLList::~TXMLList() {
    TXMLList::Flush(1);
    delete Blocks;
}

void TXMLList::Flush(int deleteItems) {
    DeleteUpTo({}, deleteItems != 0);
    if (Blocks) Blocks->Close();
}

void TXMLList::DeleteBefore(const DListIterator<TElement*>& position) {
    DeleteUpTo(position, true);
}

DListIterator<TElement*> TXMLList::GetFirst() {
    return WalkedOnce ? DListIterator<TElement*>::ForOneWalk(this)
                      : DListIterator<TElement*>(*this);
}

void TXMLList::DeleteUpTo(const DListIterator<TElement*>& position, bool deleteItems) {
    TReturnedParts returned;
    while (!IsEmpty() && DListIterator<TElement*>(*this) != position) {
        TElement* element = nullptr;
        if (UnlinkHead(&element)) returned.Add(element);
        ObjectRemoved(element);
        if (deleteItems) TElementBlocks::Delete(element, &returned);
    }
}

// Links one after the other, as whoever overrides ObjectAdded() expects.
void TXMLList::TakeOver(TElementSequence* elements) {
    while (!elements->IsEmpty()) AddAtTailWithNode(elements->TakeFirst());
}

void TXMLList::Psh(const char* name, const TAttributeList* attributes, TElement::ElemTypes type,
                   const char* text, const char*, bool) {
    PushChecked(name, attributes, type, text ? text : "");
}

void TXMLList::Psh(const char* name, const TAttributeList* attributes, TElement::ElemTypes type,
                   const TXMLString& text, const char*, bool) {
    PushChecked(name, attributes, type, text.GetPlain());
}

void TXMLList::PushChecked(const char* name, const TAttributeList* attributes,
                           TElement::ElemTypes type, std::string_view text) {
    if (type == TElement::TEXT) return Push(type, {}, text);
    std::vector<TAttributeView> views;
    if (attributes && type == TElement::START)
        views.assign(attributes->GetAttributes().begin(), attributes->GetAttributes().end());
    Push(type, name ? name : "", {}, views);
}

void TXMLList::Push(TElement::ElemTypes type, std::string_view name, std::string_view text,
                    std::span<const TAttributeView> attributes) {
    if (Writer) return Writer->Push(type, name, text, attributes);
    if (!Blocks) Blocks = new TElementBlocks;
    AddAtTailWithNode(Blocks->Make(type, name, text, attributes, true));
}

void TXMLList::PushTextElement(std::string_view name, std::string_view text,
                               std::span<const TAttributeView> attributes) {
    if (Writer && attributes.empty() && Writer->PushPlainTextElement(name, text)) return;
    Push(TElement::START, name, {}, attributes);
    Push(TElement::TEXT, {}, text);
    Push(TElement::END, name, {});
}

bool TXMLList::FindNext(DListIterator<TElement*>& position, const char* name,
                        const char* enclosing) {
    const std::string_view bound = enclosing ? enclosing : "";
    for (DListIterator<TElement*> next = position; next.NotAtTail(); ++next) {
        const TElement* element = next.Current();
        if (!element) continue;
        if (element->ElemType == TElement::START && element->Name == name) {
            position = next;
            return true;
        }
        if (element->ElemType == TElement::END && !bound.empty() && element->Name == bound)
            return false;
    }
    return false;
}

bool TXMLList::ReadFile(const char* path, const char*) {
    // The path may be a text of this list or of its last error.
    const std::string file = path ? path : "";
    SetFileName(file.c_str());
    Flush(1);
    ReadError = {};
    bool isRead = false;
    try {
        isRead = ReadDocument(file.c_str());
    } catch (...) {
        // What was not read must not look like an empty or missing file.
        ReadError = {};
        ReadError.Reason = "out of memory";
        throw;
    }
    ReadError.File = file;
    NoteRead(FileName, isRead || ReadError.Missing);
    if (isRead)
        (void)InterpretElements();
    else
        HandleMissingOrInvalidFile(file.c_str());
    return isRead;
}

// The bytes are gone before anybody makes something of the elements.
bool TXMLList::ReadDocument(const char* path) {
    std::string bytes;
    return ReadBytes(path, &bytes, &ReadError) && Parse(bytes, &bytes, &ReadError);
}

bool TXMLList::ReadFromText(const std::string& document, TXMLReadError* error) {
    return Parse(document, nullptr, error);
}

bool TXMLList::ReadFromText(const std::string& document, TXMLReadError* error, TXMLPlaces* places) {
    return Parse(document, nullptr, error, places);
}

bool TXMLList::Parse(std::string_view document, std::string* released, TXMLReadError* error) {
    return Parse(document, released, error, nullptr);
}

bool TXMLList::Parse(std::string_view document, std::string* released, TXMLReadError* error,
                     TXMLPlaces* places) {
    return Parse(document, released, error, places, nullptr);
}

bool TXMLList::Parse(std::string_view document, std::string* released, TXMLReadError* error,
                     TXMLPlaces* places, TDocumentPlaces* documentPlaces) {
    TElementSequence elements;
    TXMLReadError found;
    const std::string droppedRoot = RootHeld ? "" : GetDocumentTypeRoot(ToUtf8(DocumentType));
    const bool isRead =
        ReadXMLDocument(document, droppedRoot, &elements, &found,
                        RootHeld ? &DocumentType : nullptr, released, places, documentPlaces);
    // The document may have been a text of this list.
    Flush(1);
    TakeOver(&elements);
    if (error) *error = found;
    return isRead;
}

bool TXMLList::WriteFile(const char* path) {
    const std::string file = path ? path : "";
    SetFileName(file.c_str());
    Flush(1);
    std::string reason;
    if (Save(file.c_str(), &reason)) return true;
    TellSaveFailure(file, reason);
    return false;
}

bool TXMLList::Save(const char* path, std::string* reason) {
    TDocumentSave save(FileName, path);
    TPrintBuffer document([&save](std::string_view part) { save.Write(part); });
    if (!FillAndPrint(&document, reason)) return false;
    if (save.Finish(document.GetParts())) return true;
    *reason = save.GetReason();
    return false;
}

bool TXMLList::FillAndPrint(TPrintBuffer* document, std::string* reason) {
    if (!PrintedAtOnce) {
        FillElements();
        return PrintElements(this, document, reason);
    }
    TXMLWriter writer(this, false, document);
    {
        const TWriterTurn turn(&Writer, &writer);
        FillElements();
    }
    if (writer.Finish()) return true;
    *reason = writer.GetError();
    return false;
}

bool TXMLList::WriteToText(std::string* document, std::string* error) {
    TPrintBuffer printed;
    std::string reason;
    const bool isWritten = PrintElements(this, &printed, &reason);
    if (document) *document = isWritten ? printed.GetText() : std::string();
    if (error) *error = std::move(reason);
    return isWritten;
}

void TXMLList::SaveElement(TElement* element, std::ostream& stream, int indent) {
    if (element) PrintXMLElement(*element, stream, indent);
}

void TXMLList::SetDocumentType(const char* text) {
    DocumentType = text ? text : "";
}

void TXMLList::SetFileName(const char* path) {
    FileName = ISFileName::NewISFileName(path);
}

void TXMLList::FillElements() {}

bool TXMLList::InterpretElements() {
    return true;
}

void TXMLList::HandleMissingOrInvalidFile(const char* path) {
    if (ReadError.Missing) return;
    const std::string text = DescribeReadError(path ? path : "", ReadError);
    LogText(text);
    TellUser(text, "Cannot read file");
}
