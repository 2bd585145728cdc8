#include "cli/frame/terminal.h"
#include <cstdlib>
#include <string_view>
#include <sys/ioctl.h>
#include <unistd.h>

bool IsErrorTerminal() {
    return isatty(STDERR_FILENO) != 0;
}

bool CanRedrawErrors() {
    const char* const kind = std::getenv("TERM");
    return kind && *kind && std::string_view(kind) != "dumb" && IsErrorTerminal();
}

std::size_t GetErrorColumns() {
    struct winsize size = {};
    return ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 ? size.ws_col : 0;
}
