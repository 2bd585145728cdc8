#include "services/xml/textedits.h"

std::string ApplyEdits(std::string_view text, const std::vector<TTextEdit>& edits) {
    std::size_t size = text.size();
    for (const TTextEdit& edit : edits) size += edit.Inserted.size() - edit.Removed;
    std::string edited;
    edited.reserve(size);
    std::size_t place = 0;
    for (const TTextEdit& edit : edits) {
        edited += text.substr(place, edit.Begin - place);
        edited += edit.Inserted;
        place = edit.Begin + edit.Removed;
    }
    edited += text.substr(place);
    return edited;
}
