#pragma once
#include "services/base/fold.h"
#include "services/xml/xmleditrules.h"
#include <string>
#include <string_view>
#include <unordered_map>

/// Looks the rules of a format up, and makes of an element what tells it apart among its siblings.
class TElementIdentity {
public:
    /// `rules` must outlive the object.
    explicit TElementIdentity(const TXMLEditRules& rules) : Rules(rules) {
        for (const TXMLElementRule& rule : rules.Elements) {
            RuleOf.emplace(rule.Name, &rule);
            for (const std::string& name : rule.OlderNames) RuleOf.emplace(name, &rule);
        }
    }

    /// Null without one.
    const TXMLElementRule* FindRule(std::string_view name) const {
        const auto found = RuleOf.find(name);
        return found == RuleOf.end() ? nullptr : found->second;
    }

    /// Equal for elements that are the same. `getPart` gives the text of an attribute, or of the
    /// element for kIdentityText.
    template <class TGetPart>
    std::string MakeKey(std::string_view name, TGetPart getPart) const {
        const TXMLElementRule* const rule = FindRule(name);
        if (!rule) return std::string(name);
        std::string key = rule->Name;
        for (const std::string& part : rule->Identity) {
            const std::string text = Normalise(rule->Name, part, getPart(part));
            key.append(1, ' ').append(std::to_string(text.size())).append(1, ' ').append(text);
        }
        return key;
    }

    bool InsertsWhole(std::string_view name) const {
        const TXMLElementRule* const rule = FindRule(name);
        return Rules.InsertsWhole || (rule && rule->IsList);
    }

private:
    std::string Normalise(std::string_view name, std::string_view part,
                          std::string_view text) const {
        text = TrimmedView(text);
        return Rules.Normalise ? Rules.Normalise(name, part, text) : std::string(text);
    }

    const TXMLEditRules& Rules;
    std::unordered_map<std::string_view, const TXMLElementRule*> RuleOf;
};
