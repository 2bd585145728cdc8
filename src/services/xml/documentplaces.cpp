#include "services/xml/documentplaces.h"

#include "services/xml/expatrun.h"
#include "services/xml/xmlprologue.h"
#include "services/xml/xmlreader.h"

namespace {

// The text was decoded: what the declaration says no longer holds.
TXMLEncoding MakeUtf8Encoding() {
    TXMLEncoding encoding;
    encoding.Name = "UTF-8";
    return encoding;
}

class TPlacesReader {
public:
    using TPlace = TDocumentPlaces::TPlace;
    using TIndex = TDocumentPlaces::TIndex;

    explicit TPlacesReader(std::vector<TPlace>* places)
        : Run(MakeUtf8Encoding(), this), Places(*places) {
        XML_SetElementHandler(Run.GetParser(), OnStart, OnEnd);
    }

    bool Read(std::string_view text, std::string* reason) {
        const TXMLPrologue prologue = ReadXMLPrologue(text, MakeUtf8Encoding());
        *reason = prologue.Reason;
        if (!reason->empty()) return false;
        const std::string beginning = BlankDocumentType(text, MakeUtf8Encoding(), prologue);
        if (Run.Feed(beginning, false) && Run.Feed(text.substr(beginning.size()), true))
            return true;
        *reason = Run.GetReason();
        return false;
    }

private:
    static TPlacesReader& From(void* userData) { return *static_cast<TPlacesReader*>(userData); }

    static void OnStart(void* userData, const XML_Char*, const XML_Char**) {
        From(userData).Start();
    }
    static void OnEnd(void* userData, const XML_Char*) { From(userData).End(); }

    void Start() {
        constexpr TIndex kNone = TDocumentPlaces::kNone;
        // One level is the root that a document type may name.
        if (Open.size() > kMaxXMLNesting || Places.size() == kNone)
            return Run.Refuse("more elements than can be edited");
        const std::size_t begin = Run.GetTokenBegin();
        const std::size_t end = begin + Run.GetTokenLength();
        const auto element = static_cast<TIndex>(Places.size());
        Places.push_back(
            {begin, end, end, end, Open.empty() ? kNone : Open.back(), kNone, kNone, kNone});
        if (!Open.empty()) LinkChild(&Places[Open.back()], element);
        Open.push_back(element);
    }

    void LinkChild(TPlace* parent, TIndex element) {
        if (parent->LastChild == TDocumentPlaces::kNone)
            parent->FirstChild = element;
        else
            Places[parent->LastChild].NextSibling = element;
        parent->LastChild = element;
    }

    // Of an empty-element tag the end is met behind it, with nothing in it.
    void End() {
        if (Open.empty()) return;
        TPlace& place = Places[Open.back()];
        place.ContentEnd = Run.GetTokenBegin();
        place.End = place.ContentEnd + Run.GetTokenLength();
        Open.pop_back();
    }

    TExpatRun Run;
    std::vector<TPlace>& Places;
    std::vector<TIndex> Open;
};

}  // namespace

bool TDocumentPlaces::Read(std::string_view text) {
    Text = text;
    Places.clear();
    if (TPlacesReader(&Places).Read(text, &Reason)) return true;
    Places.clear();
    return false;
}

std::string_view TDocumentPlaces::GetName(TIndex element) const {
    const std::size_t begin = Places[element].Begin;
    return Text.substr(begin + 1, FindNameEnd(Text, begin) - begin - 1);
}

std::vector<TTextPiece> TDocumentPlaces::FindPieces(TIndex element) const {
    const TPlace& place = Places[element];
    const bool hasChildren = place.FirstChild != kNone;
    return FindTextPieces(Text, place.ContentBegin,
                          hasChildren ? Places[place.FirstChild].Begin : place.ContentEnd);
}

std::vector<TDocumentPlaces::TIndex> TDocumentPlaces::GetChildren(TIndex element) const {
    std::vector<TIndex> children;
    for (TIndex child = Places[element].FirstChild; child != kNone;
         child = Places[child].NextSibling)
        children.push_back(child);
    return children;
}
