#include "services/logging/messagebox.h"
#include <atomic>
#include <cstdio>
#include <string>

namespace {

/// A dialog would block a build machine, so the built-in box only writes.
class TStandardErrorBox : public IMessageBox {
public:
    void ShowMessage(const char* text, const char* caption, int) override {
        // In one piece, so that lines of two processes do not mix.
        const std::string line =
            std::string(caption ? caption : "") + ": " + (text ? text : "") + "\n";
        std::fwrite(line.data(), 1, line.size(), stderr);
        std::fflush(stderr);
    }
};

std::atomic<IMessageBox*> HostsBox = nullptr;

}  // namespace

IMessageBox* Fileservices::GetMessageBox() {
    // Never destroyed: messages may come while the process ends.
    static IMessageBox* const builtIn = new TStandardErrorBox;
    IMessageBox* const hostsBox = HostsBox;
    return hostsBox ? hostsBox : builtIn;
}

IMessageBox* Fileservices::SetMessageBox(IMessageBox* box) {
    return HostsBox.exchange(box);
}
