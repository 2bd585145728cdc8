#include "services/xml/xmlelement.h"

#include <memory>

#include "services/base/booltext.h"
#include "services/base/countedblock.h"
#include "services/base/fold.h"
#include "services/xml/elementblocks.h"
#include "services/xml/xmltext.h"

namespace {

// Up to so many attributes are looked for one after the other.
constexpr std::size_t kFewNames = 16;

}  // namespace

std::string TXMLString::GetEscaped() const {
    std::string escaped;
    AppendEscaped(Plain, TXMLEscapes::kAnywhere, [&](std::string_view part) { escaped += part; });
    return escaped;
}

void TAttributeList::Psh(const char* name, const char* value) {
    Psh(name, TXMLString(value ? value : ""));
}

void TAttributeList::Psh(const char* name, const TXMLString& value) {
    ValueOf(name ? name : "") = value.GetPlain();
}

// The value of the attribute, which is made when there is none of the name.
std::string& TAttributeList::ValueOf(const char* name) {
    if (Attributes.size() < kFewNames) {
        for (auto& [known, value] : Attributes)
            if (known == name) return value;
        return Attributes.emplace_back(name, "").second;
    }
    if (Places.empty())
        for (const TAttribute& attribute : Attributes)
            Places.emplace(attribute.first, Places.size());
    const auto [place, isNew] = Places.emplace(name, Attributes.size());
    if (isNew) Attributes.emplace_back(name, "");
    return Attributes[place->second].second;
}

void TAttributeList::PushBool(const char* name, bool value) {
    Psh(name, ConvertBooleanToStringBool(value));
}

TElement::TElement(ElemTypes type, std::string_view name, std::string_view text) : ElemType(type) {
    if (name.empty() && text.empty()) return;
    const std::size_t nameSize = TFixedText::SizeOf(name.size());
    auto* const texts =
        static_cast<std::byte*>(::operator new(nameSize + TFixedText::SizeOf(text.size())));
    Name = TFixedText::Store(name, texts);
    Text = TFixedText::Store(text, texts + nameSize);
    Flags = OWNS_TEXTS;
}

// NOLINTNEXTLINE(performance-noexcept-move-constructor): a copy takes memory.
TElement::TElement(TElement&& other)
    : TElement(other.ElemType, other.Name.View(), other.Text.View()) {
    CopyAttributes(other);
}

// NOLINTNEXTLINE(performance-noexcept-move-constructor): a copy takes memory.
TElement& TElement::operator=(TElement&& other) {
    if (this == &other) return *this;
    TElement copy(std::move(other));
    std::swap(Name, copy.Name);
    std::swap(Text, copy.Text);
    std::swap(Attributes, copy.Attributes);
    std::swap(Flags, copy.Flags);
    ElemType = copy.ElemType;
    return *this;
}

TElement::~TElement() {
    if (Attributes) DropAttributes();
    if (Flags & OWNS_TEXTS) ::operator delete(const_cast<void*>(Name.GetMemory()));
}

void TElement::operator delete(TElement* element, std::destroying_delete_t) {
    const TCountedBlock::TDistance distance = element->Distance;
    element->~TElement();
    if (distance == 0) return ::operator delete(element);
    TCountedBlock::Of(new (element) TCountedBlock::TDistance(distance))->GiveBack(1);
}

void TElement::CopyAttributes(const TElement& other) {
    if (other.Attributes) SetAttributes(other.GetAttributes());
}

void TElement::DropAttributes() {
    delete Attributes->All;
    if (!Attributes->IsInBlock()) delete Attributes;
    Attributes = nullptr;
}

const std::vector<TAttributeList::TAttribute>& TElement::GetAttributes() const {
    static const std::vector<TAttributeList::TAttribute> none;
    if (!Attributes) return none;
    if (!Attributes->All) {
        auto all = std::make_unique<std::vector<TAttributeList::TAttribute>>();
        all->reserve(Attributes->Count);
        for (const auto& [name, value] : Attributes->GetEntries())
            all->emplace_back(name.View(), value.View());
        Attributes->All = all.release();
    }
    return *Attributes->All;
}

void TElement::SetAttributes(std::vector<TAttributeList::TAttribute> attributes) {
    if (Attributes) DropAttributes();
    Flags = static_cast<std::uint8_t>(Flags & ~PRINTS_AS_IS);
    if (attributes.empty()) return;
    auto all = std::make_unique<std::vector<TAttributeList::TAttribute>>(std::move(attributes));
    Attributes = new TElementAttributes;
    Attributes->All = all.release();
}

// Null when there is none. Entries come first: their texts live as long as the element, whatever
// was asked before.
const char* TElement::FindAttribute(const char* name) const {
    if (!Attributes) return nullptr;
    if (!name) name = "";
    for (const TElementAttributes::TEntry& entry : Attributes->GetEntries())
        if (entry.Name == name) return entry.Value;
    if (Attributes->IsInBlock()) return nullptr;
    for (const auto& [known, value] : *Attributes->All)
        if (known == name) return value.c_str();
    return nullptr;
}

const char* TElement::GetAttribute(const char* name) const {
    const char* const value = FindAttribute(name);
    return value ? value : "";
}

bool TElement::HasAttribute(const char* name) const {
    return FindAttribute(name) != nullptr;
}

bool TElement::GetAttributeBool(const char* name, bool missing) const {
    const char* text = GetAttribute(name);
    return TrimmedView(text).empty() ? missing : ConvertStringBoolToBoolean(text);
}
