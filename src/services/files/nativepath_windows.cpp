#include "services/files/nativepath_windows.h"
#include "services/files/filesystem.h"

std::wstring Widen(std::string_view utf8) {
    const int size = static_cast<int>(utf8.size());
    std::wstring text(utf8.size(), L'\0');
    const int length =
        size == 0 ? 0 : MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, text.data(), size);
    text.resize(static_cast<std::size_t>(length));
    return text;
}

std::string Narrow(std::wstring_view text) {
    if (text.empty()) return {};
    const int size = static_cast<int>(text.size());
    const int length =
        WideCharToMultiByte(CP_UTF8, 0, text.data(), size, nullptr, 0, nullptr, nullptr);
    std::string utf8(static_cast<std::size_t>(length), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), size, utf8.data(), length, nullptr, nullptr);
    return utf8;
}

std::wstring NativePath(const std::string& path) {
    // Calls for folders keep room for a short name within MAX_PATH.
    constexpr std::size_t kLongestPlainPath = MAX_PATH - 13;
    std::wstring native = Widen(path);
    if (native.size() < kLongestPlainPath) return native;
    if (native.substr(0, 2) == L"\\\\") return L"\\\\?\\UNC\\" + native.substr(2);
    // A path without a drive is on that of the working directory.
    if (native[0] == L'\\')
        native = Widen(GetNativeFileSystem().GetWorkingDirectory({})).substr(0, 2) + native;
    return L"\\\\?\\" + native;
}
