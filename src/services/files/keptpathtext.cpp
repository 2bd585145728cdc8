#include "services/files/keptpathtext.h"
#include <functional>
#include <string>
#include <unordered_set>

namespace {

struct THashOfText {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const {
        return std::hash<std::string_view>()(text);
    }
};

using TKeptTexts = std::unordered_set<std::string, THashOfText, std::equal_to<>>;

}  // namespace

char* KeptPathText(std::string_view text) {
    // Never destroyed: handles are asked until the very end of the process.
    static TKeptTexts& texts = *new TKeptTexts;
    auto place = texts.find(text);
    if (place == texts.end()) place = texts.emplace(text).first;
    // Callers must not change the text; some operations only lack the const.
    return const_cast<char*>(place->c_str());
}
