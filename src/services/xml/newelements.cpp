#include "services/xml/newelements.h"

#include <algorithm>

#include "services/xml/xmlname.h"
#include "services/xml/xmltext.h"

std::string TNewElements::Print(TIndex wanted, const TInsertionPlace& place) {
    const auto breakLine = [&](const std::string& indent) {
        return place.LineEnd.empty() ? std::string() : place.LineEnd + indent;
    };
    std::string printed;
    std::vector<TOpen> open;
    open.push_back(Open(wanted, ComesWhole(wanted), place.Indent));
    PrintStart(open.back(), &printed);
    while (!open.empty()) {
        TOpen& innermost = open.back();
        const bool isFirst = innermost.NextChild == 0;
        if (innermost.NextChild < innermost.Children.size()) {
            const TIndex child = innermost.Children[innermost.NextChild++];
            TOpen inner =
                Open(child, innermost.IsWhole || ComesWhole(child), innermost.Indent + place.Step);
            // A line end behind a text would be part of it.
            if (!isFirst || !HasPrintedText(innermost)) printed += breakLine(inner.Indent);
            PrintStart(inner, &printed);
            open.push_back(std::move(inner));
            continue;
        }
        if (!isFirst) printed += breakLine(innermost.Indent);
        if (!isFirst || HasPrintedText(innermost))
            printed.append("</").append(Wanted.GetName(innermost.Node)).append(1, '>');
        open.pop_back();
    }
    return printed;
}

TNewElements::TOpen TNewElements::Open(TIndex wanted, bool isWhole, std::string indent) const {
    std::vector<TIndex> children = Wanted.GetChildren(wanted);
    if (!isWhole)
        std::erase_if(children, [this](TIndex child) {
            return !Difference.IsNew(child) && !Difference.IsChanged(child);
        });
    return {wanted, isWhole, std::move(children), 0, std::move(indent)};
}

bool TNewElements::ComesWhole(TIndex wanted) const {
    return Difference.IsNew(wanted) || Identity.InsertsWhole(Wanted.GetName(wanted)) ||
           Base.MakeKey(Difference.GetBase(wanted), Identity) != Wanted.MakeKey(wanted, Identity);
}

bool TNewElements::IsPart(TIndex wanted, std::string_view part) const {
    const TXMLElementRule* const rule = Identity.FindRule(Wanted.GetName(wanted));
    return rule &&
           std::find(rule->Identity.begin(), rule->Identity.end(), part) != rule->Identity.end();
}

void TNewElements::PrintStart(const TOpen& open, std::string* printed) {
    printed->append(1, '<').append(CheckName(Wanted.GetName(open.Node)));
    for (const TAttributeList::TAttribute& attribute : Wanted[open.Node].Start->GetAttributes()) {
        if (!IsPrinted(open, attribute)) continue;
        printed->append(1, ' ').append(CheckName(attribute.first)).append("=\"");
        printed->append(PrintValue(attribute.second, '"')).append(1, '"');
    }
    const bool hasText = HasPrintedText(open);
    printed->append(hasText || !open.Children.empty() ? ">" : "/>");
    if (hasText) printed->append(PrintText(Wanted.GetText(open.Node)));
}

bool TNewElements::HasPrintedText(const TOpen& open) const {
    if (!Wanted[open.Node].Text) return false;
    return open.IsWhole || IsPart(open.Node, kIdentityText) ||
           Base.GetText(Difference.GetBase(open.Node)) != Wanted.GetText(open.Node);
}

bool TNewElements::IsPrinted(const TOpen& open, const TAttributeList::TAttribute& attribute) const {
    if (open.IsWhole || IsPart(open.Node, attribute.first)) return true;
    const TElement& base = *Base[Difference.GetBase(open.Node)].Start;
    return !base.HasAttribute(attribute.first.c_str()) ||
           base.GetAttribute(attribute.first.c_str()) != attribute.second;
}

std::string TNewElements::PrintText(std::string_view text) {
    if (text.empty()) return "<![CDATA[]]>";
    const std::string checked = CheckText(text);
    std::string printed;
    text = checked;
    if (IsXMLBlank(text)) {
        // Written as it is, it would be taken for the blanks between two tags.
        printed = "&#" + std::to_string(static_cast<int>(text[0])) + ";";
        text.remove_prefix(1);
    }
    AppendEscaped(text, TXMLEscapes::kText, [&](std::string_view part) { printed += part; });
    return Document.WithReferences(printed);
}

std::string TNewElements::PrintValue(std::string_view value, char quote) {
    const TXMLEscapes& escapes =
        quote == '\'' ? TXMLEscapes::kSingleQuoted : TXMLEscapes::kAttribute;
    std::string printed;
    AppendEscaped(CheckText(value), escapes, [&](std::string_view part) { printed += part; });
    return Document.WithReferences(printed);
}

std::string_view TNewElements::CheckName(std::string_view name) {
    if (Reason.empty() && (!IsXMLName(name) || Document.WithReferences(name) != name))
        Reason = "\"" + std::string(name) + "\" cannot be a name in the document";
    return name;
}

std::string TNewElements::CheckText(std::string_view text) {
    std::string converted = ToUtf8(text);
    const std::size_t place = FindForbiddenCharacter(converted);
    if (Reason.empty() && place != std::string_view::npos)
        Reason = "no document can hold the character " + DescribeCharacter(converted, place);
    return converted;
}
