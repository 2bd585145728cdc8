#pragma once
#include "services/base/api.h"
#include "services/base/fixedtext.h"
#include <string>
#include <string_view>

/// The library's mutable string. Bytes; texts in the process are UTF-8.
class HDLBUILDFILE_API TMyString {
public:
    TMyString() = default;
    /// Null counts as empty. Implicit: texts pass as strings everywhere.
    TMyString(const char* text) : Text(text ? text : "") {}
    TMyString(std::string text) : Text(std::move(text)) {}
    TMyString(std::string_view text) : Text(text) {}
    TMyString(const TFixedText& text) : Text(text.View()) {}

    /// Valid until the string changes or dies, never null.
    operator const char*() const { return Text.c_str(); }
    const char* c_str() const { return Text.c_str(); }
    const std::string& Str() const { return Text; }
    std::size_t Length() const { return Text.size(); }
    bool IsEmpty() const { return Text.empty(); }

    TMyString& operator+=(const char* text);
    TMyString& operator+=(const TMyString& text);
    friend TMyString operator+(const TMyString& a, const TMyString& b) { return a.Text + b.Text; }
    friend TMyString operator+(const TMyString& a, const char* b) { return a + TMyString(b); }
    friend TMyString operator+(const char* a, const TMyString& b) { return TMyString(a) + b; }
    friend bool operator==(const TMyString& a, const TMyString& b) { return a.Text == b.Text; }
    friend bool operator==(const TMyString& a, const char* b) { return a.Text == (b ? b : ""); }
    friend bool operator==(const TMyString& a, const TFixedText& b) { return b == a.Text; }
    friend bool operator<(const TMyString& a, const TMyString& b) { return a.Text < b.Text; }

    /// Removes `c`, or when it is 0 blank, \t, \n, \v, \f and \r, from both ends. `ends` is
    /// reserved: no effect.
    void Trim(int ends, char c);
    /// ASCII letters only.
    void toLower();
    /// The 0-based place of the first `text`, -1 when absent; null counts as empty (0).
    int Index(const char* text) const;
    /// The 0-based place of the first `c` at or after `position`, -1 when absent.
    int FindCharAfterPos(char c, int position) const;
    /// At most `length` bytes from `start` on; clips, so a start beyond the end gives "".
    TMyString SubStr(unsigned start, unsigned length) const;
    /// Splits at `separator`, dropping empty words. `*words` becomes an array that the caller frees
    /// with delete[], null when there is no word. Returns the number of words.
    int WordSplit(TMyString** words, char separator) const;

private:
    std::string Text;
};
