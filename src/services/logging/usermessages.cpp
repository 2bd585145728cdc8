#include "services/logging/usermessages.h"
#include "services/logging/messagebox.h"
#include <new>

namespace {

thread_local TMessagesHeldBack* holder = nullptr;

}  // namespace

void TellUser(const std::string& text, const char* caption) {
    if (holder)
        holder->Messages.push_back({text, caption});
    else
        Fileservices::GetMessageBox()->ShowMessage(text.c_str(), caption, 0);
}

void TellSaveFailure(const std::string& path, const std::string& reason) {
    TellUser("\"" + path + "\": " + reason, "Cannot save file");
}

TMessagesHeldBack::TMessagesHeldBack() : Outer(holder) {
    holder = this;
}

TMessagesHeldBack::~TMessagesHeldBack() {
    holder = Outer;
    try {
        for (const TMessage& message : Messages) TellUser(message.Text, message.Caption.c_str());
    } catch (const std::bad_alloc&) {
        // There is no memory for the message.
    }
}
