#include "services/base/booltext.h"

#include "services/base/fold.h"
#include <algorithm>
#include <iterator>

const char* ConvertBooleanToStringBool(bool value) {
    return value ? "true" : "false";
}

bool ConvertStringBoolToBoolean(const char* text) {
    static constexpr std::string_view kTrueTexts[] = {"true", "yes", "on", "1"};
    const auto word = TrimmedView(text ? text : "");
    return std::any_of(std::begin(kTrueTexts), std::end(kTrueTexts),
                       [word](auto trueText) { return EqualIgnoringCase(word, trueText); });
}
