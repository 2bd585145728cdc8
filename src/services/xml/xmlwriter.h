#pragma once
#include "services/xml/printbuffer.h"
#include "services/xml/xmllist.h"
#include "services/xml/xmlname.h"
#include <array>
#include <ostream>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// Prints a document element by element: the document type line, the root that it names and every
/// element, two blanks a level. Line breaks are added only between two tags, so that they never
/// become text. A START without END is closed with what encloses it, an END without START is left
/// out, each with a logged check.
///
/// A fault makes everything after it go unprinted, and Finish() fail.
class TXMLWriter {
public:
    /// Begins a document of the list's type and root in the empty `document`. With `isSaved`, every
    /// element goes through the list's SaveElement; else none does, and checks that fail are logged
    /// by Finish(), behind all that is logged until then. Both outlive the writer.
    TXMLWriter(TXMLList* list, bool isSaved, TPrintBuffer* document);
    TXMLWriter(const TXMLWriter&) = delete;
    TXMLWriter& operator=(const TXMLWriter&) = delete;

    /// Prints an element that is there.
    void Write(TElement& element);
    /// Prints one that was never made; as TXMLList::Push.
    void Push(TElement::ElemTypes type, std::string_view name, std::string_view text,
              std::span<const TAttributeView> attributes);

    /// Prints START, TEXT and END at once. False, with nothing done, when they must be pushed one
    /// by one: where no element may begin, or with anything to escape, convert or refuse.
    bool PushPlainTextElement(std::string_view name, std::string_view text);

    /// Closes what is open. False for what no XML document can hold: GetError() then says why.
    bool Finish();
    const std::string& GetError() const { return Error; }

private:
    enum TCheck { CHECK_NAME, CHECK_UNCLOSED_START, CHECK_STRAY_END, CHECK_UTF8 };

    // The names of the elements that are open.
    class TOpenNames {
    public:
        bool IsEmpty() const { return Begins.empty(); }
        std::size_t GetCount() const { return Begins.size(); }
        std::string_view GetInnermost() const { return Get(Begins.size() - 1); }
        bool Contains(std::string_view name, std::size_t from) const;
        void Open(std::string_view name);
        void CloseInnermost();

    private:
        std::string_view Get(std::size_t index) const;

        std::string Names;
        std::vector<std::size_t> Begins;
    };

    // One element; the rest is not used when there is an Element.
    struct TEvent {
        TElement::ElemTypes Type;
        std::string_view Name;
        std::string_view Text = {};
        std::span<const TAttributeView> Attributes = {};
        TElement* Element = nullptr;
    };

    bool WriteProlog();
    void WriteEvent(const TEvent& event);
    bool IsNestedDeepest() const;
    bool OpenElement(const TEvent& event);
    bool CloseElement(const TEvent& event);
    bool CloseInnermost(const TEvent* end);
    bool WriteText(const TEvent& event);
    bool Complete();
    int GetIndent() const;
    bool Print(const TEvent& event, int indent);
    bool PrintPlain(const TEvent& event, int indent);
    bool PrintElement(TElement& element, int indent);
    bool IsPlainName(std::string_view name);
    std::string DescribeFault(const TElement& element) const;
    bool Fail(std::string error);
    void NoteCheck(TCheck check);
    static void ReportCheck(TCheck check);

    TXMLList& List;
    const bool IsSaved;
    TPrintBuffer& Buffer;
    std::ostream Stream;
    std::string Error;
    std::vector<TCheck> LateChecks;
    std::size_t RootLevels = 0;
    TOpenNames Open;
    std::array<std::string, kNamePlaces> PlainNames;
    bool HasFailed = false;
    bool HasElement = false;
    bool HasForeignBytes = false;
    bool AfterStart = false;
    bool AfterText = false;
};
