#include "cli/commands.h"
#include "cli/frame/progressline.h"
#include "cli/frame/terminal.h"
#include <cstdlib>
#include <iostream>
#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#include <windows.h>

// It needs what windows.h declares.
#include <shellapi.h>
#endif

namespace {

// The arguments in UTF-8: the narrow ones of Windows have lost what the code page cannot express.
std::vector<std::string> Utf8Arguments(int count, char** values) {
    std::vector<std::string> arguments;
#ifdef _WIN32
    (void)values;
    wchar_t** wide = CommandLineToArgvW(GetCommandLineW(), &count);
    for (int i = 1; wide && i < count; ++i) {
        const int size = WideCharToMultiByte(CP_UTF8, 0, wide[i], -1, nullptr, 0, nullptr, nullptr);
        std::string text(static_cast<std::size_t>(size), '\0');
        WideCharToMultiByte(CP_UTF8, 0, wide[i], -1, text.data(), size, nullptr, nullptr);
        text.pop_back();  // the ending zero
        arguments.push_back(std::move(text));
    }
    LocalFree(wide);
#else
    arguments.assign(values + 1, values + count);
#endif
    return arguments;
}

bool ErrorsAreColored() {
    const char* noColor = std::getenv("NO_COLOR");
    if (noColor && *noColor) return false;
#ifdef _WIN32
    return false;  // not every console interprets the escapes
#else
    return IsErrorTerminal();
#endif
}

}  // namespace

int main(int argc, char** argv) {
#ifdef _WIN32
    // Command files are bytes: no line end may be translated.
    _setmode(_fileno(stdout), _O_BINARY);
#endif
    std::ios::sync_with_stdio(false);
    TProgressLine progress({std::cerr, GetErrorColumns},
                           std::chrono::milliseconds(HDLBUILD_PROGRESS_DELAY));
    return RunTool(Utf8Arguments(argc, argv), {std::cout, std::cerr, ErrorsAreColored(),
                                               CanRedrawErrors() ? &progress : nullptr});
}
