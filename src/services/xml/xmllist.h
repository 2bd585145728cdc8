#pragma once
#include "services/base/dlist.h"
#include "services/xml/xmlelement.h"
#include <cstdint>
#include <iosfwd>
#include <span>
#include <string>
#include <string_view>
#include <vector>

class ISFileName;
class TDocumentPlaces;
class TElementBlocks;
class TElementSequence;
class TPrintBuffer;
class TXMLWriter;

/// Why a file could not be read.
struct TXMLReadError {
    bool Missing = false;  ///< the file does not exist
    std::string File;      ///< the path as it was given
    int Line = 0;          ///< 1-based; 0 when the file could not be opened or read
    int Column = 0;        ///< 1-based, in bytes
    std::string Reason;    ///< empty when the last read succeeded
    bool IsError() const { return !Reason.empty(); }
};

/// Where each element of a stream begins in the document that it was read from, in bytes: the n-th
/// place is that of the n-th element. The END of an empty-element tag is behind it.
using TXMLPlaces = std::vector<std::uint32_t>;
/// The place of an element behind the first 4 GiB.
inline constexpr std::uint32_t kNoXMLPlace = 0xffffffff;

/// The element stream of one document, with the file it is read from or written to. Texts in the
/// stream are plain; WriteFile escapes each once. The list owns its elements: reading, writing and
/// the destructor delete them.
///
/// A file always has one root: WriteFile wraps the pushed elements in the root that the document
/// type names, and ReadFile drops a root of that name again, so a document reads back to the same
/// stream.
class HDLBUILDFILE_API TXMLList : public DList<TElement*> {
public:
    TXMLList() = default;
    ~TXMLList() override;
    TXMLList(const TXMLList&) = delete;
    TXMLList& operator=(const TXMLList&) = delete;

    /// Appends one element. Null texts count as empty, null attributes as none; attributes are
    /// copied. The last two arguments are reserved: no effect.
    void Psh(const char* name, const TAttributeList* attributes, TElement::ElemTypes type,
             const char* text, const char* = nullptr, bool = false);
    void Psh(const char* name, const TAttributeList* attributes, TElement::ElemTypes type,
             const TXMLString& text, const char* = nullptr, bool = false);

    /// Appends one element; everything is copied. A TEXT has no name, START and END have no text,
    /// and only a START has attributes, whose names differ.
    void Push(TElement::ElemTypes type, std::string_view name, std::string_view text,
              std::span<const TAttributeView> attributes = {});

    /// START with the attributes, TEXT and END, each pushed as above.
    void PushTextElement(std::string_view name, std::string_view text,
                         std::span<const TAttributeView> attributes = {});

    /// Null gives the empty text.
    static TXMLString MakeXMLString(const char* text);

    /// DList::Flush.
    void Flush(int deleteItems);
    /// Unlinks and deletes the elements before `position`, a place in this list.
    void DeleteBefore(const DListIterator<TElement*>& position);

    /// Whether what ReadFile read is walked once, by InterpretElements: elements that a reader is
    /// done with are then deleted (see DropWhatWasRead), so that a long document needs no memory
    /// beside what is made of it.
    bool IsWalkedOnce() const { return WalkedOnce; }
    void SetWalkedOnce(bool once) { WalkedOnce = once; }
    /// At the first element; an iterator for one walk when the list is walked once.
    DListIterator<TElement*> GetFirst();

    /// Moves `position` to the first START element called `name` at or after it; stops without
    /// success at an END called `enclosing` (null or empty: no bound) or at the tail. False: not
    /// moved.
    static bool FindNext(DListIterator<TElement*>& position, const char* name,
                         const char* enclosing);

    /// Replaces the elements by those of the file, all or nothing, then calls InterpretElements;
    /// true whatever that answers. A null path counts as empty: a missing file. On failure the list
    /// is empty, HandleMissingOrInvalidFile has been called once, GetReadError() tells why, and the
    /// result is false. The second argument is reserved: no effect.
    bool ReadFile(const char* path, const char* = nullptr);

    /// Empties the list, calls FillElements, and replaces the file whole, through links and keeping
    /// its permissions. On failure a message box names path and reason, the old file stays as it
    /// was, and the result is false. A file whose last read failed is first kept beside as ".bak".
    bool WriteFile(const char* path);

    /// Whether WriteFile prints what FillElements pushes at once and never makes an element of it,
    /// so that a long document needs no memory beside its text. For a list that nobody but
    /// FillElements sees: it only pushes, the list stays empty, and SaveElement is not called.
    bool IsPrintedAtOnce() const { return PrintedAtOnce; }
    void SetPrintedAtOnce(bool atOnce) { PrintedAtOnce = atOnce; }

    /// ReadFile's parsing of a document in memory, all or nothing: nothing is interpreted, no
    /// message is shown. `error` may be null.
    bool ReadFromText(const std::string& document, TXMLReadError* error);
    /// The same, with the places of the elements; none on failure. `places` may be null.
    bool ReadFromText(const std::string& document, TXMLReadError* error, TXMLPlaces* places);
    /// Prints the elements as WriteFile would, without filling. False, with `*document` empty, for
    /// a stream that no XML document can hold. Adjacent texts are read back as one. Null pointers
    /// are allowed.
    bool WriteToText(std::string* document, std::string* error);

    /// Prints one element; called for each by WriteFile and WriteToText. `indent` counts blanks,
    /// put behind a line end in front of the element; a negative one puts nothing there. Sets the
    /// stream's failbit for a text that XML cannot hold. Null is ignored.
    virtual void SaveElement(TElement* element, std::ostream& stream, int indent);

    /// The document type line, for example '<!DOCTYPE Root SYSTEM "root.dtd">'. Empty text: neither
    /// that line nor a root is written.
    const std::string& GetDocumentType() const { return DocumentType; }
    void SetDocumentType(const char* text);

    /// Whether the stream holds the root itself, as the document of several components needs, whose
    /// root has attributes of its own: a read then drops no root and takes over the file's document
    /// type line, empty when it has none, and a write adds no root.
    bool HoldsRoot() const { return RootHeld; }
    void SetHoldsRoot(bool held) { RootHeld = held; }

    /// The file last given to ReadFile, WriteFile or SetFileName, null before. The handle is
    /// shared.
    const ISFileName* GetFileName() const { return FileName; }
    void SetFileName(const char* path);

    /// Of the last ReadFile.
    const TXMLReadError& GetReadError() const { return ReadError; }

protected:
    /// Pushes the whole document; called by WriteFile on the empty list.
    virtual void FillElements();
    /// Walks what ReadFile parsed. The result says whether it made sense; ReadFile passes it over.
    virtual bool InterpretElements();
    /// Silent for a missing file; for an unreadable or malformed one shows a message box, style 0,
    /// with the path in double quotes, line, column and reason, and logs it.
    virtual void HandleMissingOrInvalidFile(const char* path);

private:
    friend class TDocumentEdit;
    void PushChecked(const char* name, const TAttributeList* attributes, TElement::ElemTypes type,
                     std::string_view text);
    bool Save(const char* path, std::string* reason);
    bool FillAndPrint(TPrintBuffer* document, std::string* reason);
    void DeleteUpTo(const DListIterator<TElement*>& position, bool deleteItems);
    bool ReadDocument(const char* path);
    bool Parse(std::string_view document, std::string* released, TXMLReadError* error);
    bool Parse(std::string_view document, std::string* released, TXMLReadError* error,
               TXMLPlaces* places);
    bool Parse(std::string_view document, std::string* released, TXMLReadError* error,
               TXMLPlaces* places, TDocumentPlaces* documentPlaces);
    void TakeOver(TElementSequence* elements);

    TElementBlocks* Blocks = nullptr;  // where pushed elements lie; null: nothing was pushed yet
    std::string DocumentType;
    bool RootHeld = false;
    bool WalkedOnce = false;
    bool PrintedAtOnce = false;
    TXMLWriter* Writer = nullptr;  // of the WriteFile under way, when it prints at once
    const ISFileName* FileName = nullptr;
    TXMLReadError ReadError;
};

/// TXMLList::MakeXMLString.
HDLBUILDFILE_API TXMLString MakeXMLString(const char* text);
