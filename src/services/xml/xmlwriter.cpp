#include "services/xml/xmlwriter.h"

#include <algorithm>
#include <memory>
#include <ostream>
#include <vector>

#include "services/logging/binarylog.h"
#include "services/xml/elementblocks.h"
#include "services/xml/printbuffer.h"
#include "services/xml/xmlprologue.h"
#include "services/xml/xmlreader.h"
#include "services/xml/xmltext.h"

namespace {

constexpr int kBlanksALevel = 2;
// Of an element, in bytes of the document.
constexpr std::size_t kUsualSize = 28;

enum TWriterCheck { CHECK_UNCLOSED_START, CHECK_STRAY_END, CHECK_UTF8 };

void FailCheck(TWriterCheck check) {
    static TCheckSite sites[] = {
        {"openElements.empty() && \"A START has no END.\"", "xmllist", 102},
        {"IsOpen(name) && \"An END has no START.\"", "xmllist", 103},
        {"IsUtf8(text)", "xmllist", 104},
    };
    sites[check].Report();
}

bool HasForbiddenCharacter(std::string_view text) {
    return FindForbiddenCharacter(text) != std::string_view::npos;
}

class TDocumentWriter {
public:
    TDocumentWriter(TXMLList* list, std::string* document)
        : List(*list), Document(*document), Stream(&Buffer) {}

    bool Write() {
        Buffer.Expect(List.GetCount() * kUsualSize);
        if (!WriteProlog()) return false;
        for (DListIterator<TElement*> element(List); element.NotAtTail(); ++element)
            if (element.Current() && !WriteElement(*element.Current())) return false;
        while (Open.size() > RootLevels) {
            FailCheck(CHECK_UNCLOSED_START);
            if (!CloseInnermost()) return false;
        }
        if (RootLevels > 0 && !CloseInnermost()) return false;
        if (!HasElement) return Fail("the document has no root element");
        if (HasForeignBytes) FailCheck(CHECK_UTF8);
        Buffer.Append("\n");
        Document = Buffer.TakeText();
        return true;
    }

    const std::string& GetError() const { return Error; }

private:
    bool Fail(std::string error) {
        Error = std::move(error);
        return false;
    }

    bool WriteProlog() {
        if (List.GetDocumentType().empty()) return true;
        HasForeignBytes = !IsUtf8(List.GetDocumentType());
        const std::string type = ToUtf8(List.GetDocumentType());
        const std::string name = GetDocumentTypeRoot(type);
        TElementSequence none;
        TXMLReadError error;
        if (!ReadXMLDocument(type, {}, &none, &error))
            return Fail("the document type is malformed: " + error.Reason);
        if (name.empty() || !none.IsEmpty()) return Fail("the document type names no root element");
        Buffer.Append(type);
        if (List.HoldsRoot()) return true;
        RootLevels = 1;
        Root = std::make_unique<TElement>(TElement::START, name, "");
        return OpenElement(*Root);
    }

    bool WriteElement(TElement& element) {
        HasForeignBytes =
            HasForeignBytes || (!TElementBlocks::PrintsAsIs(element) && HoldsForeignBytes(element));
        switch (element.ElemType) {
            case TElement::START:
                return OpenElement(element);
            case TElement::END:
                return CloseElement(element);
            case TElement::TEXT:
                return WriteText(element);
        }
        return true;
    }

    bool OpenElement(TElement& element) {
        if (Open.empty() && HasElement) return Fail("the document has more than one root element");
        const std::size_t heldLevels = List.HoldsRoot() ? 1 : 0;
        if (Open.size() == RootLevels + heldLevels + kMaxXMLNesting)
            return Fail("elements are nested deeper than " + std::to_string(kMaxXMLNesting));
        HasElement = true;
        const std::size_t size = Buffer.GetSize();
        if (!Save(element, GetIndent())) return false;
        Open.push_back(&element);
        AfterStart = Buffer.GetSize() > size && Buffer.GetLast() == '>';
        AfterText = false;
        return true;
    }

    bool CloseElement(TElement& element) {
        const auto isCalledSo = [&](const TElement* open) { return open->Name == element.Name; };
        if (Open.size() > RootLevels && isCalledSo(Open.back())) return CloseInnermost(&element);
        const auto outermost = Open.begin() + static_cast<std::ptrdiff_t>(RootLevels);
        if (std::none_of(outermost, Open.end(), isCalledSo)) {
            FailCheck(CHECK_STRAY_END);
            return true;
        }
        while (!isCalledSo(Open.back())) {
            FailCheck(CHECK_UNCLOSED_START);
            if (!CloseInnermost()) return false;
        }
        return CloseInnermost(&element);
    }

    // Turns a tag that nothing followed into an empty-element tag.
    bool CloseInnermost(TElement* end = nullptr) {
        const TElement& start = *Open.back();
        Open.pop_back();
        bool isDone = true;
        if (AfterStart) {
            Buffer.DropLast();
            Buffer.Append("/>");
        } else if (end) {
            isDone = Save(*end, GetIndent());
        } else {
            TElement missing(TElement::END, start.Name.View(), "");
            isDone = Save(missing, GetIndent());
        }
        AfterStart = AfterText = false;
        return isDone;
    }

    bool WriteText(TElement& element) {
        if (Open.empty()) return Fail("text stands outside the root element");
        if (!Save(element, -1)) return false;
        AfterStart = false;
        AfterText = true;
        return true;
    }

    // Nothing may be added next to a text, and nothing before the first line.
    int GetIndent() const {
        if (AfterText || Buffer.GetSize() == 0) return -1;
        return kBlanksALevel * static_cast<int>(Open.size());
    }

    bool Save(TElement& element, int indent) {
        List.SaveElement(&element, Stream, indent);
        return Stream.good() || Fail(DescribeFault(element));
    }

    static bool HoldsForeignBytes(const TElement& element) {
        const auto& attributes = element.GetAttributes();
        return !IsUtf8(element.Name.View()) || !IsUtf8(element.Text.View()) ||
               std::any_of(attributes.begin(), attributes.end(), [](const auto& attribute) {
                   return !IsUtf8(attribute.first) || !IsUtf8(attribute.second);
               });
    }

    std::string DescribeFault(const TElement& element) const {
        const bool isText = element.ElemType == TElement::TEXT;
        const TElement& owner = isText && !Open.empty() ? *Open.back() : element;
        const std::string place = "element \"" + owner.Name.Str() + "\"";
        if (HasForbiddenCharacter(element.Text.View()))
            return place + DescribeForbidden(element.Text.View());
        for (const auto& [name, value] : element.GetAttributes())
            if (HasForbiddenCharacter(value))
                return ("attribute \"" + name + "\" of ").append(place + DescribeForbidden(value));
        return place + " cannot be written";
    }

    static std::string DescribeForbidden(std::string_view text) {
        return " holds the character " + DescribeCharacter(text, FindForbiddenCharacter(text)) +
               ", which no XML document can hold";
    }

    TXMLList& List;
    std::string& Document;
    TPrintBuffer Buffer;
    std::ostream Stream;
    std::string Error;
    std::unique_ptr<TElement> Root;
    std::size_t RootLevels = 0;
    std::vector<const TElement*> Open;
    bool HasElement = false;
    bool HasForeignBytes = false;
    bool AfterStart = false;
    bool AfterText = false;
};

}  // namespace

bool WriteXMLDocument(TXMLList* list, std::string* document, std::string* error) {
    TDocumentWriter writer(list, document);
    if (writer.Write()) return true;
    document->clear();
    *error = writer.GetError();
    return false;
}
