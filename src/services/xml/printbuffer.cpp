#include "services/xml/printbuffer.h"

#include <typeinfo>
#include <utility>

TPrintBuffer* TPrintBuffer::Of(std::ostream& stream) {
    std::streambuf* const buffer = stream.rdbuf();
    if (!buffer || typeid(*buffer) != typeid(TPrintBuffer)) return nullptr;
    return static_cast<TPrintBuffer*>(buffer);
}

char TPrintBuffer::GetLast() const {
    if (pptr() > pbase()) return pptr()[-1];
    return Flushed.empty() ? '\0' : Flushed.back();
}

void TPrintBuffer::DropLast() {
    if (pptr() > pbase())
        pbump(-1);
    else if (!Flushed.empty())
        Flushed.pop_back();
}

std::string TPrintBuffer::TakeText() {
    Flush();
    return std::exchange(Flushed, {});
}

std::streamsize TPrintBuffer::xsputn(const char* bytes, std::streamsize count) {
    const auto size = static_cast<std::size_t>(count);
    if (char* const room = Reserve(size)) {
        std::memcpy(room, bytes, size);
        Advance(room + size);
    } else {
        Flush();
        Flushed.append(bytes, size);
    }
    return count;
}

TPrintBuffer::int_type TPrintBuffer::overflow(int_type c) {
    Flush();
    if (!traits_type::eq_int_type(c, traits_type::eof())) sputc(traits_type::to_char_type(c));
    return traits_type::not_eof(c);
}

char* TPrintBuffer::MakeRoom(std::size_t size) {
    Flush();
    return size <= Area.size() ? pptr() : nullptr;
}

void TPrintBuffer::Flush() {
    Flushed.append(pbase(), static_cast<std::size_t>(pptr() - pbase()));
    setp(Area.data(), Area.data() + Area.size());
}
