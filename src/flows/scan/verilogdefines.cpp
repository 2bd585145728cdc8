#include "flows/scan/verilogdefines.h"

TVerilogDefines::TVerilogDefines(const std::vector<TScanDefine>& defines) {
    for (const TScanDefine& define : defines) Define(define.Name, define.Value, false);
}

TVerilogDefined TVerilogDefines::Find(std::string_view name) const {
    const auto found = Entries.find(name);
    return found == Entries.end() ? TVerilogDefined::Maybe : found->second.Defined;
}

std::string_view TVerilogDefines::FindText(std::string_view name) const {
    const auto found = Entries.find(name);
    return found == Entries.end() ? std::string_view() : found->second.Text;
}

bool TVerilogDefines::IsEmpty(std::string_view name) const {
    const auto found = Entries.find(name);
    return found != Entries.end() && found->second.Defined == TVerilogDefined::Yes &&
           found->second.IsTextKnown && found->second.Text.empty();
}

void TVerilogDefines::Set(std::string_view name, const TEntry& entry) {
    TEntry& current = Entries[name];
    if (OpenConditions > 0) Changes.push_back({name, current});
    current = entry;
}

void TVerilogDefines::Define(std::string_view name, std::string_view text, bool hasParameters) {
    Set(name, {TVerilogDefined::Yes, !hasParameters, hasParameters ? std::string_view() : text});
}

void TVerilogDefines::Assume(std::string_view name, TVerilogDefined defined) {
    Set(name, {defined, false, {}});
}

void TVerilogDefines::Forget() {
    // Not cleared: that would look at every bucket each time.
    Entries = {};
}

std::size_t TVerilogDefines::Begin() {
    ++OpenConditions;
    return Changes.size();
}

/// Each change is looked at once: behind it, the name is known in no more than the conditions
/// around did before, so that they need not look at it again.
void TVerilogDefines::End(std::size_t begun) {
    --OpenConditions;
    for (; Changes.size() > begun; Changes.pop_back()) {
        const TChange& change = Changes.back();
        TEntry& entry = Entries[change.Name];
        if (entry.Defined != change.Before.Defined) {
            entry = {};
        } else if (entry.Text != change.Before.Text ||
                   entry.IsTextKnown != change.Before.IsTextKnown) {
            entry.IsTextKnown = false;
            entry.Text = {};
        }
    }
}
