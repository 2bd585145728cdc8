#pragma once
#include "tests/misuse/arguments.h"
#include <array>
#include <cstddef>

// How the generated table makes a row of an operation.

/// Picks the function with these parameters out of those of one name.
template <class... A>
struct TPick {
    template <class R>
    static auto Of(R (*function)(A...)) {
        return function;
    }
};

template <class T>
TObjectKind ObjectsOf() {
    return {[](bool changed) -> void* { return Made<T>(changed); },
            [](const void* object, TState* state) {
                ShowState(*static_cast<const T*>(object), *state);
            },
            [](void* object) { Unmake(static_cast<T*>(object)); }};
}

/// `call` with the values of those numbers.
template <class... A, class Call, std::size_t... I>
std::string ShownCall(const Call& call, [[maybe_unused]] const std::vector<std::size_t>& values,
                      std::index_sequence<I...>) {
    using R = decltype(call(ArgumentsFor<A>()[values[I]].Make()...));
    if constexpr (std::is_void_v<R>) {
        call(ArgumentsFor<A>()[values[I]].Make()...);
        return "nothing";
    } else {
        return Shown(call(ArgumentsFor<A>()[values[I]].Make()...));
    }
}

template <class... A, class MakeCall>
TMisuseRow RowOf(const char* symbol, const TObjectKind& object, MakeCall makeCall) {
    return {symbol,
            object,
            {GivenTo<A>()...},
            [makeCall](void* at, const std::vector<std::size_t>& values) {
                return ShownCall<A...>(makeCall(at), values, std::index_sequence_for<A...>());
            }};
}

/// A row that is not called.
inline TMisuseRow Listed(const char* symbol) {
    return {symbol, {}, {}, nullptr};
}

template <class R, class... A>
TMisuseRow Function(const char* symbol, R (*function)(A...)) {
    return RowOf<A...>(symbol, {}, [function](void*) { return function; });
}

/// `call` calls the operation of an object, which is constant if `T` is.
template <class T, class... A, class Call>
TMisuseRow Operation(const char* symbol, Call call) {
    using O = std::remove_const_t<T>;
    return RowOf<A...>(symbol, ObjectsOf<O>(), [call](void* at) {
        if constexpr (std::is_same_v<O, THdlProjectFileList>) gListAtHand = static_cast<O*>(at);
        // Of a class that has no objects the operations are static: any place will do.
        alignas(O) static std::array<std::byte, sizeof(O)> noObject;
        return [call, object = static_cast<T*>(at ? at : noObject.data())](
                   A... values) -> decltype(auto) {
            return call(*object, std::forward<A>(values)...);
        };
    });
}

template <class T>
TMisuseRow Destructor(const char* symbol) {
    return RowOf<>(symbol, ObjectsOf<T>(), [](void*) { return [] {}; });
}

/// Of objects of the class `Made`, where `T` is abstract.
template <class T, class Made>
struct TConstructors {
    template <class... A>
    static TMisuseRow Row(const char* symbol) {
        return RowOf<A...>(symbol, {}, [](void*) {
            return [](A... values) {
                Made* made;
                if constexpr (std::is_constructible_v<Made, A...>)
                    made = new Made(std::forward<A>(values)...);
                else  // All objects of the abstract class are of this one.
                    made = new Made(static_cast<const Made&>(values)...);
                TState state;
                ShowState(static_cast<const T&>(*made), state);
                Unmake<T>(made);
            };
        });
    }
};
