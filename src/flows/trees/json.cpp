#include "flows/trees/json.h"
#include <algorithm>
#include <nlohmann/json.hpp>

using TPrinted = nlohmann::ordered_json;

struct TJsonPrint {
    TPrinted operator()(std::monostate) const { return {}; }
    TPrinted operator()(bool value) const { return value; }
    TPrinted operator()(long long value) const { return value; }
    TPrinted operator()(const std::string& value) const { return value; }
    TPrinted operator()(const std::vector<TJson>& values) const {
        TPrinted printed = TPrinted::array();
        for (const TJson& value : values) printed.push_back(std::visit(*this, value.Value));
        return printed;
    }
    TPrinted operator()(const std::vector<TJson::TMember>& members) const {
        TPrinted printed = TPrinted::object();
        // Names differ already: none is looked for.
        auto& object = printed.get_ref<TPrinted::object_t&>();
        for (const auto& [name, value] : members)
            object.push_back({name, std::visit(*this, value.Value)});
        return printed;
    }
};

TJson::TJson(const std::vector<std::string>& values)
    : Value(std::vector<TJson>(values.begin(), values.end())) {}

TJson::TJson(const std::map<std::string, std::string>& values)
    : Value(std::vector<TMember>(values.begin(), values.end())) {}

TJson::TJson(std::initializer_list<TMember> members) : Value(std::vector<TMember>(members)) {}

TJson TJson::Array(std::size_t expected) {
    TJson value;
    value.Value.emplace<std::vector<TJson>>().reserve(expected);
    return value;
}

TJson TJson::Object() {
    TJson value;
    value.Value = std::vector<TMember>();
    return value;
}

TJson& TJson::operator[](const std::string& name) {
    if (IsNull()) Value = std::vector<TMember>();
    auto& members = std::get<std::vector<TMember>>(Value);
    const auto found = std::find_if(members.begin(), members.end(),
                                    [&](const TMember& member) { return member.first == name; });
    return found != members.end() ? found->second : members.emplace_back(name, TJson()).second;
}

const TJson& TJson::operator[](const std::string& name) const {
    static const TJson kNull;
    for (const TMember& member : GetMembers())
        if (member.first == name) return member.second;
    return kNull;
}

void TJson::AddMember(std::string name, TJson value) {
    if (IsNull()) Value = std::vector<TMember>();
    std::get<std::vector<TMember>>(Value).emplace_back(std::move(name), std::move(value));
}

void TJson::Add(TJson value) {
    if (IsNull()) Value = std::vector<TJson>();
    std::get<std::vector<TJson>>(Value).push_back(std::move(value));
}

bool TJson::operator==(const TJson& other) const {
    return Value == other.Value;
}

bool TJson::IsTrue() const {
    const bool* value = std::get_if<bool>(&Value);
    return value && *value;
}

const std::vector<TJson>& TJson::GetEntries() const {
    static const std::vector<TJson> kNone;
    const auto* entries = std::get_if<std::vector<TJson>>(&Value);
    return entries ? *entries : kNone;
}

const std::vector<TJson::TMember>& TJson::GetMembers() const {
    static const std::vector<TMember> kNone;
    const auto* members = std::get_if<std::vector<TMember>>(&Value);
    return members ? *members : kNone;
}

std::string TJson::Text() const {
    if (const auto* text = std::get_if<std::string>(&Value)) return *text;
    if (!std::holds_alternative<std::vector<TJson>>(Value)) return Dump();
    std::string texts;
    for (const TJson& entry : GetEntries()) {
        if (&entry != &GetEntries().front()) texts += ", ";
        texts += entry.Text();
    }
    return texts;
}

std::string TJson::Dump(int indent) const {
    return std::visit(TJsonPrint(), Value)
        .dump(indent, ' ', false, TPrinted::error_handler_t::replace);
}
