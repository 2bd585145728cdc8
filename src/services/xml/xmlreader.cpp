#include "services/xml/xmlreader.h"

#include <algorithm>
#include <optional>
#include <vector>

#include "services/base/progress.h"
#include "services/xml/expatrun.h"
#include "services/xml/longtags.h"
#include "services/xml/openelement.h"
#include "services/xml/xmlname.h"
#include "services/xml/xmlprologue.h"
#include "services/xml/xmltext.h"

namespace {

constexpr std::size_t kBytesAReport = std::size_t{1} << 16;

/// What becomes of the elements: they are kept, with their places unless that is null, or visited.
struct TElementTarget {
    TElementSequence* Elements = nullptr;
    TXMLPlaces* Places = nullptr;
    TDocumentPlaces* DocumentPlaces = nullptr;
    const TElementVisit* Visit = nullptr;  // null: they are kept
    TProgressWork Work = PROGRESS_READ_DOCUMENT;

    void Clear() const {
        if (Elements) Elements->Clear();
        if (Places) Places->clear();
    }
};

class TDocumentReader {
public:
    TDocumentReader(std::string_view document, const TXMLEncoding& encoding,
                    std::string_view droppedRoot, bool holdsRoot, const TElementTarget& target)
        : Run(encoding, this),
          Rest(document),
          UnitSize(encoding.UnitSize),
          DroppedRoot(droppedRoot),
          MaxLevels(kMaxXMLNesting + (holdsRoot ? 1 : 0)),
          ChecksNames(TakesMoreInNames(document, encoding)),
          Elements(target.Elements),
          Places(target.Places),
          Visit(target.Visit),
          Progress(target.Work, document.size(), kBytesAReport) {
        XML_Parser parser = Run.GetParser();
        XML_SetElementHandler(parser, Progress.IsObserved() ? OnObservedStart : OnStart, OnEnd);
        XML_SetCharacterDataHandler(parser, OnText);
        XML_SetStartCdataSectionHandler(parser, OnCdataSection);
        if (Places) NotePlaces();
        if (target.DocumentPlaces) CollectTags(document, target.DocumentPlaces);
        if (Visit) NoteBeginOfTexts();
        XML_SetDefaultHandler(parser, OnTokenBeforeRoot);
    }

    /// `prologue` replaces the first bytes of the document. A document type
    /// without any element is accepted, though Expat refuses it; the reader of the prologue has
    /// refused other documents without elements.
    bool Read(std::string_view prologue, std::string* released) {
        const std::size_t size = Rest.size();
        if (Run.Feed(prologue, false) && ReadRest(prologue.size(), released)) {
            Progress.Reach(size);
            return true;
        }
        return Run.GetError() == XML_ERROR_NO_ELEMENTS && !RootSeen;
    }

    std::string GetReason() const {
        if (Run.GetError() != XML_ERROR_NO_ELEMENTS || !RootSeen) return Run.GetReason();
        return "the document ends inside element \"" +
               (Open.empty() ? std::string(DroppedRoot) : GetNameOfInnermost()) + "\"";
    }
    bool HasWrongEnd() const { return Run.GetError() == XML_ERROR_TAG_MISMATCH; }
    std::size_t GetFailurePlace() const { return Run.GetFailurePlace(); }
    /// The document behind the prologue, which may be elsewhere by now.
    std::string_view GetRest() const { return Rest; }

private:
    bool ReadRest(std::size_t begin, std::string* released) {
        RestBegin = begin;
        Rest.remove_prefix(begin);
        const std::size_t tag = UnitSize == 1 ? FindOverfullTag(Rest, 0) : std::string_view::npos;
        if (tag != std::string_view::npos) return ReadToOverfullTag(tag);
        const std::string_view copy = released ? Run.Copy(Rest) : std::string_view();
        if (copy.empty()) return Run.Feed(Rest, true);
        Rest = copy;
        std::string().swap(*released);
        return Run.ParseCopy(copy, true);
    }

    /// The parser gets what is in front of the tag at `place`, and the tag as well when it is none.
    bool ReadToOverfullTag(std::size_t place) {
        XML_SetEndCdataSectionHandler(Run.GetParser(), OnCdataEnd);
        std::size_t fed = 0;
        for (; place != std::string_view::npos; place = FindOverfullTag(Rest, place + 1)) {
            if (place > fed && !Run.Feed(Rest.substr(fed, place - fed), false)) return false;
            fed = place;
            // In a comment, say, the token would have begun before.
            if (!RootSeen || IsInCdata || Run.GetTokenBegin() != RestBegin + place) continue;
            RefuseAttributes();
            return false;
        }
        return Run.Feed(Rest.substr(fed), true);
    }

    void RefuseAttributes() {
        Run.Refuse("an element has more than " + std::to_string(kMaxXMLAttributes) + " attributes");
    }

    std::string GetNameOfInnermost() const {
        return Visit ? VisitedNames.back() : Open.back()->Name.Str();
    }

    // Handlers of their own: most documents are read without places.
    void NotePlaces() {
        XML_SetElementHandler(Run.GetParser(), OnPlacedStart, OnPlacedEnd);
        NoteBeginOfTexts();
    }

    // Whoever wants these wants no places of elements, and is no observer.
    void CollectTags(std::string_view document, TDocumentPlaces* places) {
        Collector.emplace(document, places);
        XML_SetElementHandler(Run.GetParser(), OnCollectedStart, OnCollectedEnd);
    }

    static void OnCollectedStart(void* userData, const XML_Char* name,
                                 const XML_Char** attributes) {
        TDocumentReader& reader = From(userData);
        reader.Run.Guard([&] {
            const std::size_t begin = reader.Run.GetTokenBegin();
            if (!reader.Collector->MeetStart(begin, begin + reader.Run.GetTokenLength()))
                reader.Run.Refuse("more elements than can be edited");
        });
        OnObservedStart(userData, name, attributes);
    }

    static void OnCollectedEnd(void* userData, const XML_Char* name) {
        TDocumentReader& reader = From(userData);
        reader.Run.Guard([&] {
            const std::size_t begin = reader.Run.GetTokenBegin();
            reader.Collector->MeetEnd(begin, begin + reader.Run.GetTokenLength());
        });
        OnEnd(userData, name);
    }

    void NoteBeginOfTexts() {
        XML_SetCharacterDataHandler(Run.GetParser(), OnPlacedText);
        XML_SetStartCdataSectionHandler(Run.GetParser(), OnPlacedCdataSection);
    }

    static void OnPlacedStart(void* userData, const XML_Char* name, const XML_Char** attributes) {
        TDocumentReader& reader = From(userData);
        reader.Run.Guard([&] { reader.PlaceText(); });
        OnObservedStart(userData, name, attributes);
        reader.Run.Guard([&] { reader.PlaceElement(); });
    }

    static void OnPlacedEnd(void* userData, const XML_Char* name) {
        TDocumentReader& reader = From(userData);
        reader.Run.Guard([&] { reader.PlaceText(); });
        OnEnd(userData, name);
        reader.Run.Guard([&] { reader.PlaceElement(); });
    }

    static void OnPlacedText(void* userData, const XML_Char* text, int length) {
        From(userData).BeginText();
        OnText(userData, text, length);
    }

    static void OnPlacedCdataSection(void* userData) {
        From(userData).BeginText();
        OnCdataSection(userData);
    }

    // Only what was pushed has a place: the dropped root and a refused element are not.
    void PlaceElement() {
        if (Places->size() < Elements->GetCount()) AddPlace(Run.GetTokenBegin());
    }

    void BeginText() {
        if (Text.empty() && !TextCounts) TextBegin = Run.GetTokenBegin();
    }

    void PlaceText() {
        if (TextCounts) AddPlace(TextBegin);
    }

    void AddPlace(std::size_t place) { Places->push_back(PlaceOf(place)); }
    static std::uint32_t PlaceOf(std::size_t place) {
        return static_cast<std::uint32_t>(std::min<std::size_t>(place, kNoXMLPlace));
    }

    static TDocumentReader& From(void* userData) {
        return *static_cast<TDocumentReader*>(userData);
    }

    static void OnStart(void* userData, const XML_Char* name, const XML_Char** attributes) {
        TDocumentReader& reader = From(userData);
        reader.Run.Guard([&] { reader.Start(name, attributes); });
    }

    // Expat is given the whole document at once: only its handlers know how far it is.
    static void OnObservedStart(void* userData, const XML_Char* name, const XML_Char** attributes) {
        TDocumentReader& reader = From(userData);
        reader.Run.Guard([&] { reader.Progress.Reach(reader.Run.GetTokenBegin()); });
        OnStart(userData, name, attributes);
    }

    static void OnEnd(void* userData, const XML_Char*) {
        TDocumentReader& reader = From(userData);
        reader.Run.Guard([&] { reader.End(); });
    }

    static void OnText(void* userData, const XML_Char* text, int length) {
        TDocumentReader& reader = From(userData);
        reader.Run.Guard([&] { reader.AddText({text, static_cast<std::size_t>(length)}); });
    }

    static void OnCdataSection(void* userData) {
        From(userData).TextCounts = true;
        From(userData).IsInCdata = true;
    }
    static void OnCdataEnd(void* userData) { From(userData).IsInCdata = false; }

    static void OnTokenBeforeRoot(void* userData, const XML_Char* text, int length) {
        TExpatRun& run = From(userData).Run;
        run.Guard([&] {
            if (std::string_view(text, static_cast<std::size_t>(length)) == kXMLDocumentType)
                run.Refuse("more than one document type");
        });
    }

    void Start(const XML_Char* name, const XML_Char** attributes) {
        FinishText();
        const bool isDroppedRoot = !RootSeen && !DroppedRoot.empty() && name == DroppedRoot;
        if (!RootSeen) XML_SetDefaultHandler(Run.GetParser(), nullptr);
        RootSeen = true;
        if (ChecksNames && !AreNamesWritable(name, attributes))
            return Run.Refuse(XML_ErrorString(XML_ERROR_INVALID_TOKEN));
        if (isDroppedRoot) return;
        if (Open.size() == MaxLevels)
            return Run.Refuse("elements are nested deeper than " + std::to_string(kMaxXMLNesting));
        Attributes.clear();
        for (; attributes[0]; attributes += 2)
            Attributes.emplace_back(attributes[0], attributes[1]);
        if (Attributes.size() > kMaxXMLAttributes) return RefuseAttributes();
        if (Visit) return VisitStart(name);
        Open.push_back(Elements->Push(TElement::START, name, {}, Attributes));
    }

    // What could only be written under another name is not well-formed in UTF-8.
    static bool AreNamesWritable(const XML_Char* name, const XML_Char** attributes) {
        if (!IsXMLName(name)) return false;
        for (; attributes[0]; attributes += 2)
            if (!IsXMLName(attributes[0])) return false;
        return true;
    }

    void End() {
        FinishText();
        if (Open.empty()) return;  // the dropped root
        if (Visit)
            VisitEnd();
        else
            Elements->PushEnd(*Open.back());
        Open.pop_back();
    }

    void VisitStart(std::string_view name) {
        Open.push_back(nullptr);
        VisitedNames.emplace_back(name);
        (*Visit)({TElement::START, name, {}, Attributes, PlaceOf(Run.GetTokenBegin())});
    }

    void VisitEnd() {
        (*Visit)({TElement::END, VisitedNames.back(), {}, {}, PlaceOf(Run.GetTokenBegin())});
        VisitedNames.pop_back();
    }

    void AddText(std::string_view text) {
        if (!TextCounts) TextCounts = !IsXMLBlank(text) || (text.size() == 1 && IsReference());
        Text += text;
    }

    void FinishText() {
        if (TextCounts) PushText();
        Text.clear();
        TextCounts = false;
    }

    void PushText() {
        if (Visit)
            (*Visit)({TElement::TEXT, {}, Text, {}, PlaceOf(TextBegin)});
        else
            Elements->Push(TElement::TEXT, {}, Text);
    }

    // Whether blank text at the present token was written as a reference.
    bool IsReference() const {
        const std::string_view begin = Rest.substr(Run.GetTokenBegin() - RestBegin, UnitSize);
        return begin.find('&') != std::string_view::npos;
    }

    TExpatRun Run;
    std::string_view Rest;  // of the document, behind the prologue
    std::size_t RestBegin = 0;
    std::size_t UnitSize;
    std::string_view DroppedRoot;
    std::size_t MaxLevels;
    bool ChecksNames;
    TElementSequence* Elements;  // null when they are visited
    TXMLPlaces* Places;          // null: nobody wants them
    std::optional<TPlaceCollector> Collector;
    const TElementVisit* Visit;
    std::size_t TextBegin = 0;
    TProgress Progress;
    std::vector<const TElement*> Open;       // null ones when they are visited
    std::vector<std::string> VisitedNames;   // of the open ones
    std::vector<TAttributeView> Attributes;  // of the present tag
    std::string Text;
    bool TextCounts = false;
    bool IsInCdata = false;  // known when there are tags of too many attributes
    bool RootSeen = false;
};

bool Fail(std::string_view document, const TXMLEncoding& encoding, std::size_t place,
          std::string reason, TXMLReadError* error) {
    error->Reason = std::move(reason);
    LocateInDocument(document, encoding, place, &error->Line, &error->Column);
    return false;
}

bool Read(std::string_view document, std::string_view droppedRoot, const TElementTarget& target,
          TXMLReadError* error, std::string* documentType, std::string* released) {
    target.Clear();
    if (documentType) documentType->clear();
    const TXMLEncoding encoding = DetectXMLEncoding(document);
    if (encoding.Refusal) return Fail(document, encoding, 0, encoding.Refusal, error);
    std::string refused;
    if (HasLoneHighSurrogate(document, encoding, &refused)) document = refused;
    const TXMLPrologue prologue = ReadXMLPrologue(document, encoding);
    if (!prologue.Reason.empty())
        return Fail(document, encoding, prologue.FailurePlace, prologue.Reason, error);
    if (documentType) *documentType = prologue.DocumentType;
    TDocumentReader reader(document, encoding, droppedRoot, documentType != nullptr, target);
    const std::string beginning(document.substr(0, prologue.DocumentTypeEnd));
    const std::string blanked = BlankDocumentType(document, encoding, prologue);
    if (reader.Read(blanked, released)) return true;
    std::string reason = reader.GetReason();
    target.Clear();
    std::string whole;
    if (released && released->empty()) {
        whole = beginning + std::string(reader.GetRest());
        document = whole;
    }
    if (reader.HasWrongEnd())
        reason += ": " + DescribeOpenElement(document, encoding, blanked) + " is still open";
    return Fail(document, encoding, reader.GetFailurePlace(), reason, error);
}

}  // namespace

bool ReadXMLDocument(std::string_view document, std::string_view droppedRoot,
                     TElementSequence* elements, TXMLReadError* error, std::string* documentType,
                     std::string* released, TXMLPlaces* places, TDocumentPlaces* documentPlaces) {
    return Read(document, droppedRoot, {elements, places, documentPlaces}, error, documentType,
                released);
}

bool VisitXMLDocument(std::string_view document, std::string_view droppedRoot, TProgressWork work,
                      const TElementVisit& visit, TXMLReadError* error, std::string* released) {
    return Read(document, droppedRoot, {nullptr, nullptr, nullptr, &visit, work}, error, nullptr,
                released);
}
