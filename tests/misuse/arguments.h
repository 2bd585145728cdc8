#pragma once
#include "objects.h"
#include "tests/misuse/misuse.h"
#include <climits>
#include <initializer_list>
#include <memory>
#include <sstream>
#include <utility>

/// One value for parameters of a type. What it is made of is never freed: who owns it then differs.
template <class A>
struct TArgument {
    TGiven Given;
    std::function<A()> Make;
};

template <class A>
using TArgumentsOf = std::vector<TArgument<A>>;

/// The list that is called, as iterators of another one are nobody's.
inline THdlProjectFileList* gListAtHand = nullptr;

template <class N>
TArgumentsOf<N> Numbers(std::initializer_list<std::pair<TGiven, long>> rows) {
    TArgumentsOf<N> values;
    for (const auto& [given, number] : rows)
        values.push_back({given, [number = number] { return static_cast<N>(number); }});
    return values;
}

/// The values of a type, the usual one first.
template <class T>
TArgumentsOf<T> ValuesOf() {
    if constexpr (std::is_same_v<T, bool>)
        return Numbers<bool>({{{"true", TMisuse::NOTHING}, 1}, {{"false", TMisuse::NOTHING}, 0}});
    else if constexpr (std::is_same_v<T, char>)
        return Numbers<char>({{{"'a'", TMisuse::NOTHING}, 'a'}, {{"'\\0'", TMisuse::NOTHING}, 0}});
    else if constexpr (std::is_same_v<T, int>)
        return Numbers<T>({{{"1", TMisuse::NOTHING}, 1},
                           {{"0", TMisuse::NOTHING}, 0},
                           {{"1000", TMisuse::ODD}, 1000},
                           {{"INT_MIN", TMisuse::ODD}, INT_MIN}});
    else if constexpr (std::is_enum_v<T> && !requires { T{0}; })
        // The language itself has no other values of one without a fixed type.
        return Numbers<T>({{{"1", TMisuse::NOTHING}, 1}});
    else if constexpr (std::is_enum_v<T>)
        return Numbers<T>({{{"1", TMisuse::NOTHING}, 1},
                           {{"-1", TMisuse::OUTSIDE}, -1},
                           {{"1000", TMisuse::OUTSIDE}, 1000},
                           {{"INT_MAX", TMisuse::OUTSIDE}, INT_MAX}});
    else if constexpr (std::is_integral_v<T>)
        // Not the greatest: some are counts of what is to be made.
        return Numbers<T>({{{"1", TMisuse::NOTHING}, 1},
                           {{"0", TMisuse::NOTHING}, 0},
                           {{"1000", TMisuse::ODD}, 1000}});
    else if constexpr (kIsMade<T>)
        return {{{"an object", TMisuse::NOTHING}, [] { return T(*Made<T>(true)); }}};
    else
        return {{{"a value", TMisuse::NOTHING}, [] { return T(); }}};
}

inline const char* LongText() {
    static const std::string text(32767, 'x');
    return text.c_str();
}

template <>
inline TArgumentsOf<const char*> ValuesOf() {
    return {{{"\"usual\"", TMisuse::NOTHING}, [] { return "usual"; }},
            {{"null", TMisuse::NULL_TEXT}, [] { return nullptr; }},
            {{"\"\"", TMisuse::EMPTY_TEXT}, [] { return ""; }},
            {{"long", TMisuse::ODD}, [] { return LongText(); }},
            {{"bytes", TMisuse::ODD}, [] { return "\xFF\n\x01%s${a}<\"'../.."; }}};
}

/// Texts that are no pointers: they cannot be null.
template <class T>
TArgumentsOf<T> TextsOf() {
    TArgumentsOf<T> values;
    for (const auto& each : ValuesOf<const char*>())
        if (each.Given.Misuse != TMisuse::NULL_TEXT)
            values.push_back({each.Given, [make = each.Make] { return T(make()); }});
    return values;
}

template <>
inline TArgumentsOf<std::string> ValuesOf() {
    return TextsOf<std::string>();
}

template <>
inline TArgumentsOf<std::string_view> ValuesOf() {
    return TextsOf<std::string_view>();
}

template <>
inline TArgumentsOf<DListIterator<TElement*>> ValuesOf() {
    const auto at = [](const char* document) {
        auto* const list = new TXMLList;
        list->ReadFromText(document, nullptr);
        return list->GetFirst();
    };
    return {{{"an element", TMisuse::NOTHING},
             [at] { return at("<a b=\"c\">text<File>name</File></a>"); }},
            {{"no element", TMisuse::ODD}, [at] { return at(""); }},
            {{"the end of an element", TMisuse::ODD}, [at] {
                 auto element = at("<a/>");
                 ++element;
                 return element;
             }}};
}

template <>
inline TArgumentsOf<std::list<THdlProjectFile*>::const_iterator> ValuesOf() {
    return {{{"the first", TMisuse::NOTHING}, [] {
                 if (gListAtHand->empty()) gListAtHand->push_back(Made<THdlProjectFile>(true));
                 return std::list<THdlProjectFile*>::const_iterator(gListAtHand->begin());
             }}};
}

/// A value that stays, for parameters that are references or pointers.
template <class T>
T* Kept(const std::function<T()>& make) {
    return new T(make());
}

/// Pointers: to usual objects, and null.
template <class P>
TArgumentsOf<P> PointersOf() {
    using O = std::remove_cv_t<std::remove_pointer_t<P>>;
    TArgumentsOf<P> values;
    if constexpr (std::is_same_v<O, IFileName> || std::is_same_v<O, ISFileName>) {
        values.push_back({{"a file", TMisuse::NOTHING}, [] { return FileOf("a.vhd"); }});
        values.push_back({{"a name without handle", TMisuse::NOTHING}, [] {
                              return new THdbSFileName(static_cast<const ISFileName*>(nullptr));
                          }});
    } else if constexpr (std::is_same_v<O, IHdlSourceFile>)
        values.push_back(
            {{"a source", TMisuse::NOTHING}, [] { return Made<THdlSourceFile>(true); }});
    else if constexpr (kIsMade<O>)
        values.push_back({{"an object", TMisuse::NOTHING}, [] { return Made<O>(true); }});
    else if constexpr (std::is_same_v<O, char>)
        // As large as the largest count that is given.
        values.push_back({{"a place", TMisuse::NOTHING}, [] { return new char[1000](); }});
    else if constexpr (!std::is_void_v<O> && requires { O(); })
        values.push_back({{"a place", TMisuse::NOTHING}, [] { return new O(); }});
    values.push_back({{"null", TMisuse::NULL_OBJECT}, [] { return nullptr; }});
    return values;
}

template <class R>
TArgumentsOf<R> ReferencesOf() {
    using T = std::remove_cvref_t<R>;
    TArgumentsOf<R> values;
    if constexpr (std::is_same_v<T, std::ostream>)
        values.push_back(
            {{"a stream", TMisuse::NOTHING}, []() -> R { return *new std::ostringstream; }});
    else if constexpr (kIsMade<T>)
        values.push_back({{"an object", TMisuse::NOTHING},
                          []() -> R { return static_cast<R>(*Made<T>(true)); }});
    else
        for (const auto& each : ValuesOf<T>())
            values.push_back(
                {each.Given, [make = each.Make]() -> R { return static_cast<R>(*Kept(make)); }});
    return values;
}

/// The values that a parameter of type `A` is given, the usual one first.
template <class A>
const TArgumentsOf<A>& ArgumentsFor() {
    static const TArgumentsOf<A> values = [] {
        if constexpr (std::is_reference_v<A>)
            return ReferencesOf<A>();
        else if constexpr (std::is_pointer_v<A> && !std::is_same_v<A, const char*>)
            return PointersOf<A>();
        else
            return ValuesOf<A>();
    }();
    return values;
}

template <class A>
std::vector<TGiven> GivenTo() {
    std::vector<TGiven> given;
    for (const auto& each : ArgumentsFor<A>()) given.push_back(each.Given);
    return given;
}
