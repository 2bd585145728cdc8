#include "display/display.h"
#include <array>
#include <iterator>

namespace {

constexpr const char* kStates[] = {"", "full"};
constexpr int kDigits[] = {1, 2};
static_assert(std::size(kDigits) == 2);

}  // namespace

std::string TextOf(const TCounter& counter, int limit) {
    const int room = 8;
    std::array<char, room> text = {};
    std::string state = kStates[counter.GetCount() == limit && limit > 0];
    text[0] = static_cast<char>('0' + counter.GetCount());
    return text.data() + state;
}
