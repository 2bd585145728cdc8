#pragma once
#include <cstddef>

/// Whether standard error is a terminal.
bool IsErrorTerminal();

/// Whether standard error is a terminal on which a line can be drawn again: the environment's TERM
/// is not "dumb" and, where every terminal has a kind, is set.
bool CanRedrawErrors();

/// The columns of the terminal that standard error is; 0 when it does not tell.
std::size_t GetErrorColumns();
