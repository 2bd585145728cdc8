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
    explicit TPlacesReader(TPlaceCollector* collector)
        : Run(MakeUtf8Encoding(), this), Collector(*collector) {
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
        TExpatRun& run = From(userData).Run;
        run.Guard([&] {
            const std::size_t begin = run.GetTokenBegin();
            if (!From(userData).Collector.MeetStart(begin, begin + run.GetTokenLength()))
                run.Refuse("more elements than can be edited");
        });
    }
    static void OnEnd(void* userData, const XML_Char*) {
        TExpatRun& run = From(userData).Run;
        run.Guard([&] {
            const std::size_t begin = run.GetTokenBegin();
            From(userData).Collector.MeetEnd(begin, begin + run.GetTokenLength());
        });
    }

    TExpatRun Run;
    TPlaceCollector& Collector;
};

}  // namespace

TPlaceCollector::TPlaceCollector(std::string_view text, TDocumentPlaces* places)
    : Places(places->Places) {
    places->Text = text;
    places->Reason.clear();
    Places.clear();
}

bool TPlaceCollector::MeetStart(std::size_t begin, std::size_t end) {
    constexpr TIndex kNone = TDocumentPlaces::kNone;
    // One level is the root that a document type may name.
    if (Open.size() > kMaxXMLNesting || Places.size() == kNone) return false;
    const auto element = static_cast<TIndex>(Places.size());
    Places.push_back(
        {begin, end, end, end, Open.empty() ? kNone : Open.back(), kNone, kNone, kNone});
    if (!Open.empty()) {
        TDocumentPlaces::TPlace& parent = Places[Open.back()];
        (parent.LastChild == kNone ? parent.FirstChild : Places[parent.LastChild].NextSibling) =
            element;
        parent.LastChild = element;
    }
    Open.push_back(element);
    return true;
}

void TPlaceCollector::MeetEnd(std::size_t begin, std::size_t end) {
    if (Open.empty()) return;
    TDocumentPlaces::TPlace& place = Places[Open.back()];
    place.ContentEnd = begin;
    place.End = end;
    Open.pop_back();
}

bool TDocumentPlaces::Read(std::string_view text) {
    TPlaceCollector collector(text, this);
    if (TPlacesReader(&collector).Read(text, &Reason)) return true;
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
