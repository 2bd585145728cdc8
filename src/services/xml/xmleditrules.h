#pragma once
#include <functional>
#include <string>
#include <string_view>
#include <vector>

/// In TXMLElementRule::Identity, the text of the element.
inline constexpr const char* kIdentityText = "";

/// What an editor of documents knows about the elements of a name.
struct TXMLElementRule {
    std::string Name;
    /// The attributes, and kIdentityText, that tell an element from its siblings of the same name.
    /// Empty: an element has one sibling of that name at most, and all that a document has count
    /// as that one.
    std::vector<std::string> Identity;
    /// Its children are one value: it goes with the last of them, and comes whole.
    bool IsList = false;
    /// Its readers find it at every depth of a document.
    bool IsAnywhere = false;
    /// What elements of older documents are called, which are the same.
    std::vector<std::string> OlderNames = {};
};

/// The rules of one format. Elements without a rule are told apart by their place among the
/// siblings of the same name.
struct TXMLEditRules {
    std::vector<TXMLElementRule> Elements;
    /// Gives each spelling of one identity the same text; `part` is the name of the attribute, or
    /// kIdentityText. Without it, blanks around a text do not count, and nothing else is equal.
    std::function<std::string(std::string_view element, std::string_view part,
                              std::string_view text)>
        Normalise;
    /// Whether an element that the document lacks and a change needs comes with all that the wanted
    /// stream has in it. Without it only what tells it apart and what changes is inserted: the
    /// defaults stay out of the document.
    bool InsertsWhole = false;
};
