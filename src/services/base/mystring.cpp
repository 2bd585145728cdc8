#include "services/base/mystring.h"

#include "services/base/fold.h"
#include <algorithm>
#include <vector>

TMyString& TMyString::operator+=(const char* text) {
    if (text) Text += text;
    return *this;
}

TMyString& TMyString::operator+=(const TMyString& text) {
    Text += text.Text;
    return *this;
}

void TMyString::Trim(int /*ends*/, char c) {
    if (c == 0) {
        Text = std::string(TrimmedView(Text));
        return;
    }
    Text.erase(Text.find_last_not_of(c) + 1);
    Text.erase(0, Text.find_first_not_of(c));
}

void TMyString::toLower() {
    Text = FoldCase(Text);
}

int TMyString::Index(const char* text) const {
    const auto place = Text.find(text ? text : "");
    return place == std::string::npos ? -1 : static_cast<int>(place);
}

int TMyString::FindCharAfterPos(char c, int position) const {
    const auto place = Text.find(c, static_cast<std::size_t>(position < 0 ? 0 : position));
    return place == std::string::npos ? -1 : static_cast<int>(place);
}

TMyString TMyString::SubStr(unsigned start, unsigned length) const {
    if (start >= Text.size()) return {};
    return Text.substr(start, length);
}

int TMyString::WordSplit(TMyString** words, char separator) const {
    std::vector<std::string_view> found;
    const std::string_view text = Text;
    for (std::size_t begin = 0; begin < text.size();) {
        const auto end = std::min(text.find(separator, begin), text.size());
        if (end > begin) found.push_back(text.substr(begin, end - begin));
        begin = end + 1;
    }
    if (words) {
        // `*words` may be the array that holds this string, so it is only set at the end.
        auto* array = found.empty() ? nullptr : new TMyString[found.size()];
        for (std::size_t i = 0; i < found.size(); ++i) array[i] = found[i];
        *words = array;
    }
    return static_cast<int>(found.size());
}
