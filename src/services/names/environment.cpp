#include "services/names/environment.h"
#include "services/base/fold.h"
#include "services/files/pathconventions.h"
#include "services/files/process.h"
#include "services/names/ifilename.h"
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace {

bool IsNameStart(char c) {
    return c == '_' || (FoldChar(c) >= 'a' && FoldChar(c) <= 'z');
}
bool IsNameCharacter(char c) {
    return IsNameStart(c) || (c >= '0' && c <= '9');
}

/// How a reference looks: the texts before and after the name.
struct TReferenceForm {
    std::string_view Before;
    std::string_view After;
};

// "$" alone comes last: it begins the others too.
constexpr TReferenceForm kReferenceForms[] = {{"${", "}"}, {"$(", ")"}, {"%", "%"}, {"$", ""}};

/// A reference in a text; Whole is empty when there is none.
struct TReference {
    std::string_view Whole;
    std::string_view Name;
};

TReference ReadReference(std::string_view text, const TReferenceForm& form) {
    if (text.substr(0, form.Before.size()) != form.Before) return {};
    const std::size_t start = form.Before.size();
    std::size_t end = start;
    if (end < text.size() && IsNameStart(text[end]))
        while (end < text.size() && IsNameCharacter(text[end])) ++end;
    if (end == start || text.substr(end, form.After.size()) != form.After) return {};
    return {text.substr(0, end + form.After.size()), text.substr(start, end - start)};
}

/// The reference at the very beginning of `text`.
TReference ReferenceAtStartOf(std::string_view text) {
    for (const TReferenceForm& form : kReferenceForms) {
        const TReference reference = ReadReference(text, form);
        if (!reference.Whole.empty()) return reference;
    }
    return {};
}

/// The first reference in `text`.
TReference FindReference(std::string_view text) {
    std::size_t start = 0;
    while ((start = text.find_first_of("$%", start)) != std::string_view::npos) {
        const TReference reference = ReferenceAtStartOf(text.substr(start));
        if (!reference.Whole.empty()) return reference;
        ++start;
    }
    return {};
}

/// Expands one text. Values wait on a stack of their own, so that a long chain of variables takes
/// no more than memory.
class TExpansion {
public:
    explicit TExpansion(const TPseudoVariables* variables) : Variables(variables) {}

    std::string Expand(std::string_view text) {
        Pending.push_back({text, nullptr});
        while (!Pending.empty()) Step();
        return std::move(Result);
    }

private:
    /// What is left to copy of a text, and the value that it is part of: a variable is known by the
    /// place of its value. Null for the text that the caller gave.
    struct TPending {
        std::string_view Rest;
        const std::string* Value;
    };

    /// Copies up to the next reference of the innermost text and begins with its value.
    void Step() {
        TPending& pending = Pending.back();
        const std::string_view text = pending.Rest;
        const TReference reference = FindReference(text);
        if (reference.Whole.empty()) {
            Result += text;
            InProgress.erase(pending.Value);
            Pending.pop_back();
            return;
        }
        const auto start = static_cast<std::size_t>(reference.Whole.data() - text.data());
        Result += text.substr(0, start);
        pending.Rest = text.substr(start + reference.Whole.size());
        const std::string* const value = FindValue(std::string(reference.Name));
        if (value && MayExpand(value))
            Pending.push_back({*value, value});
        else
            Result += reference.Whole;
    }

    bool MayExpand(const std::string* value) {
        if (value->size() > BytesLeft || NamesLeft == 0) return false;
        if (!InProgress.insert(value).second) return false;
        BytesLeft -= value->size();
        --NamesLeft;
        return true;
    }

    /// Null for an unknown name. The value stays in its place while the expansion lasts.
    const std::string* FindValue(const std::string& name) {
        if (Variables) {
            const auto variable = Variables->find(name);
            if (variable != Variables->end()) return &variable->second;
        }
        // One variable of the process may go by several spellings there.
        const std::string key = kPathsIgnoreCase ? FoldCase(name) : name;
        const auto [known, isNew] = ValuesOfProcess.try_emplace(key);
        if (isNew) GetEnvironmentVariableText(name.c_str(), &known->second);
        return known->second.empty() ? nullptr : &known->second;
    }

    const TPseudoVariables* Variables;
    std::unordered_map<std::string, std::string> ValuesOfProcess;  // empty when not set
    std::vector<TPending> Pending;
    std::unordered_set<const std::string*> InProgress;
    std::string Result;
    // A few variables that name each other twice could ask for more than any memory holds.
    std::size_t BytesLeft = kLongestExpansion;
    std::size_t NamesLeft = kMostExpandedNames;
};

}  // namespace

std::string ResolveOrvaneEnvVariables(const char* text, const TPseudoVariables* variables) {
    if (!HasOrvaneEnvVariable(text)) return text ? text : "";
    return TExpansion(variables).Expand(text);
}

std::vector<std::string> ResolveOrvaneEnvVariables(const std::vector<std::string>& texts,
                                                   const TPseudoVariables* variables) {
    std::vector<std::string> resolved;
    resolved.reserve(texts.size());
    for (const std::string& text : texts)
        resolved.push_back(ResolveOrvaneEnvVariables(text.c_str(), variables));
    return resolved;
}

bool HasOrvaneEnvVariable(const char* text) {
    return text && !FindReference(text).Whole.empty();
}

void AddPseudoEnvironmentVariablesForFilename(TPseudoVariables* variables, const IFileName* file,
                                              const char* prefix) {
    if (!variables || !file || !prefix) return;
    const std::string start = prefix;
    // All memory is taken before anything changes.
    TPseudoVariables made{{start + "_PATH", file->GetFullFileName()},
                          {start + "_DIR", file->GetPathOnly()},
                          {start + "_NAME", file->GetNameNoExt()},
                          {start + "_EXT", file->GetExtOnly()}};
    while (!made.empty()) {
        auto result = variables->insert(made.extract(made.begin()));
        if (!result.inserted) result.position->second.swap(result.node.mapped());
    }
}

bool GetEnvironmentVariableText(const char* name, std::string* value) {
    if (!name || !*name) return false;
    std::string text = GetEnvironmentText(name);
    if (text.empty()) return false;
    if (value) *value = std::move(text);
    return true;
}
