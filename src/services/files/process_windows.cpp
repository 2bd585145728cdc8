#include "services/files/nativepath_windows.h"
#include "services/files/process.h"
// The shell's header needs the one above.
#include <shlobj.h>

std::string GetEnvironmentText(const char* name) {
    const std::wstring wideName = Widen(name);
    return Narrow(TextFrom([&wideName](wchar_t* buffer, DWORD size) {
        return GetEnvironmentVariableW(wideName.c_str(), buffer, size);
    }));
}

std::string GetModuleFile() {
    HMODULE module = nullptr;
    GetModuleHandleExW(
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
        reinterpret_cast<const wchar_t*>(&GetModuleFile), &module);
    return Narrow(TextFrom([module](wchar_t* buffer, DWORD size) {
        return GetModuleFileNameW(module, buffer, size);
    }));
}

std::string GetConfigurationFolder() {
    wchar_t folder[MAX_PATH] = {};
    if (SUCCEEDED(SHGetFolderPathW(nullptr, CSIDL_APPDATA, nullptr, SHGFP_TYPE_CURRENT, folder)))
        return Narrow(folder);
    return GetEnvironmentText("APPDATA");
}
