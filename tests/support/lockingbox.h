#pragma once
#include "services/files/filelock.h"
#include "tests/support/recorders.h"
#include <thread>

/// A message box whose user changes a file, on another thread, while the box is open: says behind
/// each message whether that could be done.
class LockingMessageBox : public RecordingMessageBox {
public:
    explicit LockingMessageBox(std::string path) : Path(std::move(path)) {}
    void ShowMessage(const char* text, const char* caption, int style) override {
        bool isHeld = false;
        std::thread([&] { isHeld = TFileLock(Path.c_str()).IsHeld(); }).join();
        RecordingMessageBox::ShowMessage((text + std::string(isHeld ? "" : " (locked)")).c_str(),
                                         caption, style);
    }

private:
    std::string Path;
};
