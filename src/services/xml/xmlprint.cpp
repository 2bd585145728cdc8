#include "services/xml/xmlprint.h"

#include <algorithm>
#include <cstring>
#include <ostream>
#include <streambuf>
#include <unordered_map>
#include <vector>

#include "services/logging/binarylog.h"
#include "services/xml/elementblocks.h"
#include "services/xml/printbuffer.h"
#include "services/xml/xmlname.h"
#include "services/xml/xmltext.h"

namespace {

// Up to so many attributes are compared pair by pair.
constexpr std::size_t kFewAttributes = 8;

void ReportNoName() {
    static TCheckSite site("IsXMLName(name)", "xmllist", 101);
    site.Report();
}

bool CanBePrinted(std::string_view name) {
    return IsXMLName(name) && IsUtf8(name);
}

// Prints one element straight into a stream's buffer.
class TElementPrinter {
public:
    TElementPrinter(const TElement& element, std::ostream& stream)
        : Element(element), Stream(stream), Buffer(*stream.rdbuf()) {}

    void Print(int indent) {
        if (indent >= 0) Append("\n" + std::string(static_cast<std::size_t>(indent), ' '));
        switch (Element.ElemType) {
            case TElement::START:
                return PrintStart();
            case TElement::END:
                return PrintEnd();
            case TElement::TEXT:
                return PrintText(Element.Text.View());
        }
    }

private:
    void Append(std::string_view part) {
        Buffer.sputn(part.data(), static_cast<std::streamsize>(part.size()));
    }

    void AppendName(std::string_view name) {
        if (CanBePrinted(name))
            Append(name);
        else
            Append(ToXMLName(name));
    }

    void AppendValue(std::string_view value, const TXMLEscapes& escapes) {
        if (FindForbiddenCharacter(value) != std::string_view::npos)
            return Stream.setstate(std::ios_base::failbit);
        const auto append = [this](std::string_view part) { Append(part); };
        if (IsUtf8(value))
            AppendEscaped(value, escapes, append);
        else
            AppendEscaped(ToUtf8(value), escapes, append);
    }

    void PrintStart() {
        if (!IsXMLName(Element.Name.View())) ReportNoName();
        Append("<");
        AppendName(Element.Name.View());
        for (const auto& [name, value] : GetDistinctAttributes()) {
            Append(" ");
            Append(name);
            Append("=\"");
            AppendValue(value, TXMLEscapes::kAttribute);
            Append("\"");
        }
        Append(">");
    }

    void PrintEnd() {
        Append("</");
        AppendName(Element.Name.View());
        Append(">");
    }

    void PrintText(std::string_view text) {
        if (text.empty()) return Append("<![CDATA[]]>");
        if (IsXMLBlank(text)) {
            // Written as it is, it would be taken for the blanks between two tags.
            Append("&#" + std::to_string(static_cast<int>(text[0])) + ";");
            text.remove_prefix(1);
        }
        AppendValue(text, TXMLEscapes::kText);
    }

    using TAttributes = std::vector<TAttributeList::TAttribute>;

    static bool HasRepeatedName(const TAttributes& attributes) {
        const auto isRepeated = [&](const auto& attribute) {
            return std::any_of(&attribute + 1, attributes.data() + attributes.size(),
                               [&](const auto& other) { return other.first == attribute.first; });
        };
        return std::any_of(attributes.begin(), attributes.end(), isRepeated);
    }

    // The attributes under names that XML accepts; of equal names the first place and the last
    // value.
    const TAttributes& GetDistinctAttributes() {
        const TAttributes& given = Element.GetAttributes();
        const auto isName = [](const auto& attribute) { return IsXMLName(attribute.first); };
        const auto isPrintable = [](const auto& attribute) {
            return CanBePrinted(attribute.first);
        };
        const bool arePrintable = std::all_of(given.begin(), given.end(), isPrintable);
        if (!arePrintable && !std::all_of(given.begin(), given.end(), isName)) ReportNoName();
        if (arePrintable && given.size() <= kFewAttributes && !HasRepeatedName(given)) return given;
        std::unordered_map<std::string, std::size_t> places;
        for (const auto& [name, value] : given) {
            std::string written = ToXMLName(name);
            const auto [place, isNew] = places.emplace(written, Distinct.size());
            if (isNew)
                Distinct.emplace_back(std::move(written), value);
            else
                Distinct[place->second].second = value;
        }
        return Distinct;
    }

    const TElement& Element;
    std::ostream& Stream;
    std::streambuf& Buffer;
    TAttributes Distinct;
};

char* Put(char* place, std::string_view text) {
    std::memcpy(place, text.data(), text.size());
    return place + text.size();
}

std::size_t SizeOf(std::span<const TElementAttributes::TEntry> attributes) {
    constexpr std::size_t kSigns = std::string_view(" =\"\"").size();
    std::size_t size = 0;
    for (const auto& [name, value] : attributes) size += kSigns + name.Length() + value.Length();
    return size;
}

char* PutTag(char* place, const TElement& element,
             std::span<const TElementAttributes::TEntry> attributes) {
    *place++ = '<';
    if (element.ElemType == TElement::END) *place++ = '/';
    place = Put(place, element.Name.View());
    for (const auto& [name, value] : attributes) {
        *place++ = ' ';
        place = Put(place, name.View());
        *place++ = '=';
        *place++ = '"';
        place = Put(place, value.View());
        *place++ = '"';
    }
    *place++ = '>';
    return place;
}

// False, with nothing printed, for more than the buffer takes at a time.
bool PrintAsItIs(const TElement& element, TPrintBuffer* buffer, int indent) {
    constexpr std::size_t kSigns = std::string_view("\n</>").size();
    const auto blanks = static_cast<std::size_t>(std::max(indent, 0));
    const auto attributes = TElementBlocks::GetEntries(element);
    char* place = buffer->Reserve(kSigns + blanks + element.Name.Length() + element.Text.Length() +
                                  SizeOf(attributes));
    if (!place) return false;
    if (indent >= 0) {
        *place++ = '\n';
        place = std::fill_n(place, blanks, ' ');
    }
    const bool isText = element.ElemType == TElement::TEXT;
    buffer->Advance(isText ? Put(place, element.Text.View()) : PutTag(place, element, attributes));
    return true;
}

}  // namespace

void PrintXMLElement(const TElement& element, std::ostream& stream, int indent) {
    TPrintBuffer* const buffer = TPrintBuffer::Of(stream);
    if (buffer && TElementBlocks::PrintsAsIs(element) && PrintAsItIs(element, buffer, indent))
        return;
    TElementPrinter(element, stream).Print(indent);
}
