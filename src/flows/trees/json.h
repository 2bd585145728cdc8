#pragma once
#include <concepts>
#include <cstddef>
#include <initializer_list>
#include <map>
#include <string>
#include <utility>
#include <variant>
#include <vector>

/// A JSON value. The members of an object keep the order in which they were added.
class TJson {
public:
    using TMember = std::pair<std::string, TJson>;

    TJson() = default;  ///< null
    TJson(bool value) : Value(value) {}
    template <std::integral T>
    requires(!std::same_as<T, bool>) TJson(T value) : Value(static_cast<long long>(value)) {}
    /// A text; bytes that are not UTF-8 print as U+FFFD. `value` must not be null.
    TJson(const char* value) : Value(std::string(value)) {}
    TJson(std::string value) : Value(std::move(value)) {}
    TJson(const std::vector<std::string>& values);
    TJson(const std::map<std::string, std::string>& values);
    /// An object; the names differ.
    TJson(std::initializer_list<TMember> members);

    /// With memory for so many entries.
    static TJson Array(std::size_t expected = 0);
    static TJson Object();

    /// The member of that name of an object or of null, which becomes an object; added as null.
    TJson& operator[](const std::string& name);
    /// Null, when the object has no member of that name.
    const TJson& operator[](const std::string& name) const;
    /// Adds a member to an object or to null, which becomes an object. None of that name is looked
    /// for: it must have none.
    void AddMember(std::string name, TJson value);
    /// Adds an entry to an array or to null, which becomes an array.
    void Add(TJson value);

    bool operator==(const TJson& other) const;
    bool IsNull() const { return std::holds_alternative<std::monostate>(Value); }
    bool IsTrue() const;
    /// None for a value that is no array.
    const std::vector<TJson>& GetEntries() const;
    /// None for a value that is no object.
    const std::vector<TMember>& GetMembers() const;

    /// For text output: a text as it is, the entries of an array joined with commas, else JSON.
    std::string Text() const;
    /// As JSON, in one line, or indented by that many blanks.
    std::string Dump(int indent = -1) const;

private:
    friend struct TJsonPrint;
    friend struct TYamlPrint;
    std::variant<std::monostate, bool, long long, std::string, std::vector<TJson>,
                 std::vector<TMember>>
        Value;
};
