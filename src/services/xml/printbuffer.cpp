#include "services/xml/printbuffer.h"

#include <algorithm>
#include <typeinfo>

namespace {

// A document of a few elements needs a small part.
constexpr std::size_t kSmallestRoom = 4000;
constexpr std::size_t kLargestRoom = 64000;

}  // namespace

TPrintBuffer* TPrintBuffer::Of(std::ostream& stream) {
    std::streambuf* const buffer = stream.rdbuf();
    if (!buffer || typeid(*buffer) != typeid(TPrintBuffer)) return nullptr;
    return static_cast<TPrintBuffer*>(buffer);
}

std::vector<std::string_view> TPrintBuffer::GetParts() const {
    std::vector<std::string_view> parts;
    for (const TPart& part : Full) parts.emplace_back(part.Bytes.get(), part.Size);
    if (pptr() > pbase()) parts.emplace_back(pbase(), static_cast<std::size_t>(pptr() - pbase()));
    return parts;
}

std::string TPrintBuffer::GetText() const {
    std::string text;
    text.reserve(GetSize());
    for (const std::string_view part : GetParts()) text += part;
    return text;
}

std::streamsize TPrintBuffer::xsputn(const char* bytes, std::streamsize count) {
    Append({bytes, static_cast<std::size_t>(count)});
    return count;
}

TPrintBuffer::int_type TPrintBuffer::overflow(int_type c) {
    if (traits_type::eq_int_type(c, traits_type::eof())) return traits_type::not_eof(c);
    const char byte = traits_type::to_char_type(c);
    Append({&byte, 1});
    return c;
}

char* TPrintBuffer::MakeRoom(std::size_t size) {
    if (size > kLargestRoom) return nullptr;
    const auto present = static_cast<std::size_t>(epptr() - pbase());
    if (Taker && present == kLargestRoom) {
        GivePartsAway();
        setp(Present.get(), Present.get() + present);
        return pptr();
    }
    PutPresentAside();
    const std::size_t grown = std::max(size, std::clamp(4 * present, kSmallestRoom, kLargestRoom));
    Present = std::make_unique_for_overwrite<char[]>(grown);
    setp(Present.get(), Present.get() + grown);
    return pptr();
}

void TPrintBuffer::AppendInPieces(std::string_view text) {
    for (; !text.empty(); text.remove_prefix(std::min(text.size(), kLargestRoom)))
        Append(text.substr(0, kLargestRoom));
}

void TPrintBuffer::GivePartsAway() {
    for (const std::string_view part : GetParts()) Taker(part);
    Full.clear();
    SizeOfFull += static_cast<std::size_t>(pptr() - pbase());
}

void TPrintBuffer::PutPresentAside() {
    const auto size = static_cast<std::size_t>(pptr() - pbase());
    if (size == 0) return;
    Full.push_back({std::move(Present), size});
    SizeOfFull += size;
}
