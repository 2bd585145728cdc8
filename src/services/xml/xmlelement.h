#pragma once
#include "services/base/fixedtext.h"
#include "services/base/mystring.h"
#include <cstdint>
#include <new>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

struct TElementAttributes;

/// A text as TXMLList::MakeXMLString gives it, ready for an XML document. Pushing it stores the
/// plain text that it was made from, so that the writer of a file escapes every value exactly once.
class HDLBUILDFILE_API TXMLString {
public:
    explicit TXMLString(std::string plain) : Plain(std::move(plain)) {}
    /// The text that it was made from.
    const std::string& GetPlain() const { return Plain; }
    /// The text with & < > " ' as the five named references.
    std::string GetEscaped() const;

private:
    std::string Plain;
};

/// An attribute, as views of texts that are somebody else's.
using TAttributeView = std::pair<std::string_view, std::string_view>;

/// The attributes of one START element, in the order pushed. A name pushed again keeps its first
/// place and takes the last value.
class HDLBUILDFILE_API TAttributeList {
public:
    using TAttribute = std::pair<std::string, std::string>;

    /// Copies both texts; null counts as empty.
    void Psh(const char* name, const char* value);
    void Psh(const char* name, const TXMLString& value);
    /// Pushes the text of ConvertBooleanToStringBool.
    void PushBool(const char* name, bool value);

    const std::vector<TAttribute>& GetAttributes() const { return Attributes; }

private:
    std::string& ValueOf(const char* name);

    std::vector<TAttribute> Attributes;
    std::unordered_map<std::string, std::size_t> Places;  // by name; empty while they are few
};

/// One event of a document: an element opens or closes, or there is character data between.
///
/// The elements that a TXMLList makes lie in blocks with their texts. Each may be taken off its
/// list and deleted like any other, on another thread, too; a block is freed when no element is
/// left in it.
class HDLBUILDFILE_API TElement {
public:
    enum ElemTypes : int { START = 0, END = 1, TEXT = 2 };

    /// Copies both texts.
    TElement(ElemTypes type, std::string_view name, std::string_view text);
    /// As a copy: `other` stays what it is.
    // NOLINTNEXTLINE(performance-noexcept-move-constructor): a copy takes memory.
    TElement(TElement&& other);
    // NOLINTNEXTLINE(performance-noexcept-move-constructor)
    TElement& operator=(TElement&& other);
    ~TElement();
    void operator delete(TElement* element, std::destroying_delete_t);

private:
    friend class TElementBlocks;
    friend class TElementPrinter;
    enum TFlags : std::uint8_t {
        OWNS_TEXTS = 1,    // Name and Text are memory of its own, which begins with the name
        PRINTS_AS_IS = 2,  // names and values are printed as they are: nothing to escape or convert
    };
    TElement(ElemTypes type, std::uint16_t distance) : Distance(distance), ElemType(type) {}
    void CopyAttributes(const TElement& other);
    void DropAttributes();

    std::uint16_t Distance = 0;  // a TCountedBlock's; 0 outside of one
    std::uint8_t Flags = 0;

public:
    ElemTypes ElemType;
    TFixedText Name;  ///< empty for character data
    TFixedText Text;  ///< the character data; empty for START and END

    /// The attribute's text; "" when absent, on END and on character data. Lives as long as the
    /// element.
    const char* GetAttribute(const char* name) const;
    bool HasAttribute(const char* name) const;
    /// `missing` when the attribute is absent or blank, else ConvertStringBoolToBoolean of its
    /// text.
    bool GetAttributeBool(const char* name, bool missing) const;
    bool GetBool(const char* name, bool missing) const { return GetAttributeBool(name, missing); }

    const std::vector<TAttributeList::TAttribute>& GetAttributes() const;
    /// Replaces all attributes.
    void SetAttributes(std::vector<TAttributeList::TAttribute> attributes);

private:
    const char* FindAttribute(const char* name) const;

    TElementAttributes* Attributes = nullptr;  // most elements have none
};
