#pragma once
#include <string>
#include <windows.h>

/// Closes a handle at the end.
class TNativeHandle {
public:
    explicit TNativeHandle(HANDLE handle) : Handle(handle) {}
    ~TNativeHandle() { Close(); }
    TNativeHandle(const TNativeHandle&) = delete;
    TNativeHandle& operator=(const TNativeHandle&) = delete;

    bool IsOpen() const { return Handle != INVALID_HANDLE_VALUE && Handle; }
    HANDLE Get() const { return Handle; }
    void Close() {
        if (IsOpen()) CloseHandle(Handle);
        Handle = nullptr;
    }

private:
    HANDLE Handle;
};

/// UTF-8 as the system's functions take it.
std::wstring WideText(const std::string& text);
/// The inverse.
std::string NarrowText(const std::wstring& text);
