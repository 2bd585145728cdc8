#pragma once
#include <cstddef>
#include <string>

/// The bytes from `Begin` on, `Removed` of them, are replaced by `Inserted`.
struct TTextEdit {
    std::size_t Begin = 0;
    std::size_t Removed = 0;
    std::string Inserted;
};
