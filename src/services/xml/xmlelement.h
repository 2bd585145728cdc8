#pragma once
#include "services/base/mystring.h"
#include <memory>
#include <string>
#include <utility>
#include <vector>

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
    std::vector<TAttribute> Attributes;
};

/// One event of a document: an element opens or closes, or there is character data between.
class HDLBUILDFILE_API TElement {
public:
    enum ElemTypes : int { START = 0, END = 1, TEXT = 2 };

    TElement(ElemTypes type, std::string_view name, std::string_view text)
        : Name(name), Text(text), ElemType(type) {}

    TMyString Name;  ///< empty for character data
    TMyString Text;  ///< the character data; empty for START and END
    ElemTypes ElemType;

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
    // Most elements have none: one pointer instead of an empty vector.
    std::unique_ptr<std::vector<TAttributeList::TAttribute>> Attributes;
};
