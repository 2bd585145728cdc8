#include "services/xml/xmlprint.h"

#include <algorithm>
#include <ostream>
#include <streambuf>
#include <unordered_map>
#include <vector>

#include "services/logging/binarylog.h"
#include "services/xml/elementblocks.h"
#include "services/xml/plainprint.h"
#include "services/xml/printbuffer.h"
#include "services/xml/xmlname.h"
#include "services/xml/xmltext.h"

namespace {

// Up to so many attributes are compared pair by pair.
constexpr std::size_t kFewAttributes = 8;

using TAttributes = std::vector<TAttributeList::TAttribute>;

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

    // The attributes under names that XML accepts; of equal names the first place and the last
    // value.
    const TAttributes& GetDistinctAttributes() {
        const TAttributes& given = Element.GetAttributes();
        const auto isPrintable = [](const auto& attribute) {
            return CanBePrinted(attribute.first);
        };
        const bool arePrintable = std::all_of(given.begin(), given.end(), isPrintable);
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

}  // namespace

void PrintXMLElement(const TElement& element, std::ostream& stream, int indent) {
    TPrintBuffer* const buffer = TPrintBuffer::Of(stream);
    if (buffer && TElementBlocks::PrintsAsIs(element) &&
        PrintAsItIs(buffer, indent, element.ElemType, element.Name.View(), element.Text.View(),
                    TElementBlocks::GetEntries(element)))
        return;
    for (std::size_t faults = CountNameFaults(element); faults > 0; --faults) ReportNameFault();
    PrintXMLElementUnchecked(element, stream, indent);
}

std::size_t CountNameFaults(const TElement& element) {
    if (element.ElemType != TElement::START) return 0;
    const TAttributes& attributes = element.GetAttributes();
    const auto isName = [](const auto& attribute) { return IsXMLName(attribute.first); };
    const bool areNames = std::all_of(attributes.begin(), attributes.end(), isName);
    return (IsXMLName(element.Name.View()) ? 0U : 1U) + (areNames ? 0U : 1U);
}

void ReportNameFault() {
    static TCheckSite site("IsXMLName(name)", "xmllist", 101);
    site.Report();
}

void PrintXMLElementUnchecked(const TElement& element, std::ostream& stream, int indent) {
    TElementPrinter(element, stream).Print(indent);
}
