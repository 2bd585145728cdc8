#pragma once
#include "services/xml/xmllist.h"
#include <sstream>
#include <string>

/// The element stream as text, an element a line: "START Name attribute=value ...", "TEXT text",
/// "END Name".
inline std::string ElementsOf(const DList<TElement*>& list) {
    std::string lines;
    for (DListIterator<TElement*> element(list); element.NotAtTail(); ++element) {
        const TElement& current = *element.Current();
        if (current.ElemType == TElement::TEXT) {
            lines += "TEXT " + current.Text.Str() + "\n";
            continue;
        }
        lines += (current.ElemType == TElement::START ? "START " : "END ") + current.Name.Str();
        for (const auto& [name, value] : current.GetAttributes()) lines += " " + name + "=" + value;
        lines += "\n";
    }
    return lines;
}

/// What a writer, called with a list, pushes.
template <class Writer>
std::string ElementsWrittenBy(Writer writer) {
    TXMLList list;
    writer(&list);
    return ElementsOf(list);
}

/// The element under `position`, as in ElementsOf without the line end; "TAIL" at the tail.
inline std::string ElementAt(const DListIterator<TElement*>& position) {
    if (!position.NotAtTail()) return "TAIL";
    DList<TElement*> single;
    single.AddAtTail(position.Current());
    std::string line = ElementsOf(single);
    line.pop_back();
    return line;
}

/// Appends the elements of a text as ElementsOf writes it. Blanks end an attribute's value.
inline void PushElements(TXMLList* list, const std::string& text) {
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        std::string kind;
        std::string name;
        words >> kind;
        if (kind == "TEXT") {
            list->Psh("", nullptr, TElement::TEXT, line.size() > 5 ? line.c_str() + 5 : "");
            continue;
        }
        words >> name;
        TAttributeList attributes;
        for (std::string word; words >> word;) {
            const auto equals = word.find('=');
            attributes.Psh(word.substr(0, equals).c_str(), word.substr(equals + 1).c_str());
        }
        list->Psh(name.c_str(), kind == "START" ? &attributes : nullptr,
                  kind == "START" ? TElement::START : TElement::END, nullptr);
    }
}

/// The first `count` lines of a text that has as many: a stream cut short.
inline std::string FirstLines(const std::string& text, int count) {
    std::size_t end = 0;
    for (int i = 0; i < count; ++i) end = text.find('\n', end) + 1;
    return text.substr(0, end);
}
