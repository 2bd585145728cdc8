#pragma once
#include <string>
#include <vector>

// What the library has to tell the user through the message box, in style 0.

/// Shows a message now, or later when the thread holds its messages back.
void TellUser(const std::string& text, const char* caption);
/// The same of a file that could not be saved.
void TellSaveFailure(const std::string& path, const std::string& reason);

/// Holds back what this thread tells with the functions above. A box may wait for the user, and
/// others wait for what the thread has locked: made before the lock, it shows the messages when the
/// lock is gone.
class TMessagesHeldBack {
public:
    TMessagesHeldBack();
    ~TMessagesHeldBack();
    TMessagesHeldBack(const TMessagesHeldBack&) = delete;
    TMessagesHeldBack& operator=(const TMessagesHeldBack&) = delete;

private:
    friend void TellUser(const std::string& text, const char* caption);
    struct TMessage {
        std::string Text;
        std::string Caption;
    };
    std::vector<TMessage> Messages;
    TMessagesHeldBack* Outer;  // which gets the messages instead of the user
};
