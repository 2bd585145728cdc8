#include "cli/frame/terminal.h"
#include <cstdlib>
#include <string_view>
#include <windows.h>

namespace {

HANDLE ErrorHandle() {
    return GetStdHandle(STD_ERROR_HANDLE);
}

}  // namespace

// A console has a mode; files and pipes have none.
bool IsErrorTerminal() {
    DWORD mode = 0;
    return GetConsoleMode(ErrorHandle(), &mode) != 0;
}

bool CanRedrawErrors() {
    const char* const kind = std::getenv("TERM");
    return !(kind && std::string_view(kind) == "dumb") && IsErrorTerminal();
}

std::size_t GetErrorColumns() {
    CONSOLE_SCREEN_BUFFER_INFO info = {};
    if (!GetConsoleScreenBufferInfo(ErrorHandle(), &info)) return 0;
    return static_cast<std::size_t>(info.srWindow.Right - info.srWindow.Left + 1);
}
