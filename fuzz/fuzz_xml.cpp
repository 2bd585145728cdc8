#include "services/xml/xmllist.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

// Two streams are equal when each element of the one equals that of the other.
bool AreEqual(const TXMLList& a, const TXMLList& b) {
    DListIterator<TElement*> left(a);
    DListIterator<TElement*> right(b);
    for (; left.NotAtTail() && right.NotAtTail(); ++left, ++right) {
        const TElement& one = *left.Current();
        const TElement& other = *right.Current();
        if (one.ElemType != other.ElemType || !(one.Name == other.Name) ||
            !(one.Text == other.Text) || one.GetAttributes() != other.GetAttributes())
            return false;
    }
    return !left.NotAtTail() && !right.NotAtTail();
}

[[noreturn]] void Give(const char* complaint, const std::string& detail) {
    std::fprintf(stderr, "%s\n%s\n", complaint, detail.c_str());
    std::abort();
}

}  // namespace

// Whatever can be read can be written, and then reads back to the same stream.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr const char* kDocumentType = "<!DOCTYPE List SYSTEM \"list.dtd\">";
    TXMLList read;
    read.SetDocumentType(kDocumentType);
    TXMLReadError error;
    if (!read.ReadFromText({reinterpret_cast<const char*>(data), size}, &error)) {
        if (!read.IsEmpty() || error.Line < 1 || error.Column < 1 || !error.IsError())
            Give("a failure without a place, a reason or an empty list", error.Reason);
        return 0;
    }
    std::string document;
    std::string reason;
    if (!read.WriteToText(&document, &reason)) Give("what was read cannot be written", reason);
    TXMLList again;
    again.SetDocumentType(kDocumentType);
    if (!again.ReadFromText(document, &error)) Give("what was written is malformed", document);
    if (!AreEqual(read, again)) Give("what was written reads otherwise", document);
    return 0;
}
