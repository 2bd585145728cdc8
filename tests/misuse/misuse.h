#pragma once
#include "hdlbuildfile.h"
#include "tests/misuse/shownvalue.h"
#include <cstddef>
#include <functional>
#include <string>
#include <type_traits>
#include <vector>

/// What is wrong with a value that a parameter is given.
enum class TMisuse {
    NOTHING,  ///< as callers use it
    NULL_TEXT,
    EMPTY_TEXT,
    NULL_OBJECT,
    OUTSIDE,    ///< no enumerator
    ODD,        ///< long texts and bytes of no name, great numbers, elements of no use
    FORBIDDEN,  ///< not called
};

/// One value that a parameter is given.
struct TGiven {
    const char* Label;
    TMisuse Misuse;
};

/// How objects of a class are made, asked and deleted; a row without objects has none.
struct TObjectKind {
    void* (*Make)(bool changed) = nullptr;
    void (*Show)(const void* object, TState* state) = nullptr;
    void (*Delete)(void* object) = nullptr;
};

/// One exported operation.
struct TMisuseRow {
    std::string Symbol;  ///< as the export table has it
    TObjectKind Object;
    std::vector<std::vector<TGiven>> Parameters;  ///< the values of each, the usual one first
    /// Calls it with the values of those numbers and shows its result. Null for what callers cannot
    /// call: private operations and objects.
    std::function<std::string(void* object, const std::vector<std::size_t>& values)> Call;
};

using TMisuseRows = std::vector<TMisuseRow>;

/// A new object: a fresh one, or one that was changed. Where a class has one object only, that.
template <class T>
T* Made(bool changed);

/// Deletes what is of that very class: some have derived ones and no virtual destructor.
template <class T>
void Unmake(T* object) {
    if constexpr (std::is_polymorphic_v<T> && !std::has_virtual_destructor_v<T>) {
        object->T::~T();
        ::operator delete(object);
    } else {
        delete object;
    }
}

/// What the object answers to everything that it can be asked without arguments.
template <class T>
void ShowState(const T& object, TState& state);
