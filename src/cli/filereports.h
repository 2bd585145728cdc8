#pragma once
#include "services/logging/messagebox.h"
#include "services/xml/xmllist.h"
#include <string>

/// Keeps what the library would tell a user at a screen from being shown: the commands report it
/// themselves.
class TQuietMessageBox : public IMessageBox {
public:
    TQuietMessageBox() : Former(Fileservices::SetMessageBox(this)) {}
    ~TQuietMessageBox() override { Fileservices::SetMessageBox(Former); }
    TQuietMessageBox(const TQuietMessageBox&) = delete;
    TQuietMessageBox& operator=(const TQuietMessageBox&) = delete;

    void ShowMessage(const char* text, const char*, int) override { Text = text; }
    /// The last message; "" without one.
    const std::string& GetText() const { return Text; }

private:
    IMessageBox* Former;
    std::string Text;
};

/// Why a file could not be read, with its place, in one line.
std::string ReadErrorText(const TXMLReadError& error);
