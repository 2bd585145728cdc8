#include "services/xml/xmlelement.h"

#include "services/base/booltext.h"
#include "services/base/fold.h"
#include "services/xml/xmltext.h"

std::string TXMLString::GetEscaped() const {
    std::string escaped;
    AppendEscaped(Plain, TXMLEscapes::kAnywhere, [&](std::string_view part) { escaped += part; });
    return escaped;
}

void TAttributeList::Psh(const char* name, const char* value) {
    Psh(name, TXMLString(value ? value : ""));
}

void TAttributeList::Psh(const char* name, const TXMLString& value) {
    const std::string_view key = name ? name : "";
    for (TAttribute& attribute : Attributes) {
        if (attribute.first != key) continue;
        attribute.second = value.GetPlain();
        return;
    }
    Attributes.emplace_back(key, value.GetPlain());
}

void TAttributeList::PushBool(const char* name, bool value) {
    Psh(name, ConvertBooleanToStringBool(value));
}

const std::vector<TAttributeList::TAttribute>& TElement::GetAttributes() const {
    static const std::vector<TAttributeList::TAttribute> none;
    return Attributes ? *Attributes : none;
}

void TElement::SetAttributes(std::vector<TAttributeList::TAttribute> attributes) {
    Attributes.reset();
    if (attributes.empty()) return;
    Attributes = std::make_unique<std::vector<TAttributeList::TAttribute>>(std::move(attributes));
}

const char* TElement::GetAttribute(const char* name) const {
    const std::string_view key = name ? name : "";
    for (const auto& [attribute, value] : GetAttributes())
        if (attribute == key) return value.c_str();
    return "";
}

bool TElement::HasAttribute(const char* name) const {
    const std::string_view key = name ? name : "";
    for (const auto& attribute : GetAttributes())
        if (attribute.first == key) return true;
    return false;
}

bool TElement::GetAttributeBool(const char* name, bool missing) const {
    const char* text = GetAttribute(name);
    return TrimmedView(text).empty() ? missing : ConvertStringBoolToBoolean(text);
}
