#pragma once
#include <cstdint>
#include <utility>
#include <vector>

/// Numbers that depend on the seed alone: the standard library's shuffles and distributions differ
/// between systems.
class TRandom {
public:
    explicit TRandom(std::uint64_t seed) : State(seed) {}

    /// A number below `limit`, each about equally often; `limit` must not be 0.
    std::uint32_t Below(std::uint32_t limit) {
        return static_cast<std::uint32_t>(((Next() >> 32) * limit) >> 32);
    }

    template <class Value>
    void Shuffle(std::vector<Value>* values) {
        for (auto left = static_cast<std::uint32_t>(values->size()); left > 1; --left)
            std::swap((*values)[left - 1], (*values)[Below(left)]);
    }

private:
    // Equal steps through all 64-bit values, with the bits of each value mixed.
    std::uint64_t Next() {
        State += 0x9e3779b97f4a7c15u;
        std::uint64_t mixed = State;
        mixed = (mixed ^ (mixed >> 32)) * 0xd6e8feb86659fd93u;
        mixed = (mixed ^ (mixed >> 32)) * 0xd6e8feb86659fd93u;
        return mixed ^ (mixed >> 32);
    }

    std::uint64_t State;
};
