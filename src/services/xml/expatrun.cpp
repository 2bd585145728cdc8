#include "services/xml/expatrun.h"

#include <algorithm>
#include <atomic>
#include <cstring>
#include <new>
#include <utility>

namespace {

// Between two parts Expat counts the lines of the first, which nobody asks for and which costs a
// fifth of the time: so the last part is all that there is, unless it is too long for Expat's copy.
constexpr std::size_t kUsualPart = std::size_t{1} << 16;
constexpr std::size_t kLargestPart = std::size_t{1} << 29;
// Expat's copy doubles and is never larger than 1 GiB; it has some bytes of its own in it.
constexpr std::size_t kLargestCopy = (std::size_t{1} << 30) - 4096;

std::atomic<const XML_Memory_Handling_Suite*> expatMemory = nullptr;

int ReadUnknownEncoding(void*, const XML_Char* name, XML_Encoding* encoding) {
    encoding->data = nullptr;
    encoding->convert = nullptr;
    encoding->release = nullptr;
    return FillEncodingTable(name, encoding->map) ? XML_STATUS_OK : XML_STATUS_ERROR;
}

}  // namespace

void SetExpatMemory(const XML_Memory_Handling_Suite* memory) {
    expatMemory = memory;
}

TExpatRun::TExpatRun(const TXMLEncoding& encoding, void* userData)
    : Parser(XML_ParserCreate_MM(encoding.Name, expatMemory, nullptr)) {
    if (!Parser) throw std::bad_alloc();
    XML_SetUserData(Parser, userData);
    XML_SetUnknownEncodingHandler(Parser, ReadUnknownEncoding, nullptr);
}

TExpatRun::~TExpatRun() {
    XML_ParserFree(Parser);
}

bool TExpatRun::Feed(std::string_view part, bool isLast) {
    if (isLast) {
        const std::string_view copy = Copy(part);
        if (copy.size() == part.size()) return ParseCopy(copy, true);
    }
    do {
        const std::string_view copy = Copy(part.substr(0, PartSize));
        const bool isEnd = isLast && copy.size() == part.size();
        if (copy.empty() && !part.empty()) return Fail();
        if (!ParseCopy(copy, isEnd)) return false;
        part.remove_prefix(copy.size());
        Fed += copy.size();
        // A token that does not end there is scanned again with the next part, which is as long as
        // what there is of it: so the work is linear, however long a token is.
        PartSize = std::clamp(Fed - GetTokenBegin(), kUsualPart, kLargestPart);
    } while (!part.empty());
    return true;
}

std::string_view TExpatRun::Copy(std::string_view part) {
    if (part.empty() || part.size() > kLargestCopy) return {};
    void* const buffer = XML_GetBuffer(Parser, static_cast<int>(part.size()));
    if (!buffer) return {};
    std::memcpy(buffer, part.data(), part.size());
    return {static_cast<const char*>(buffer), part.size()};
}

bool TExpatRun::ParseCopy(std::string_view copy, bool isLast) {
    // Without any part there is no buffer.
    const XML_Status status = copy.empty()
                                  ? XML_Parse(Parser, "", 0, isLast)
                                  : XML_ParseBuffer(Parser, static_cast<int>(copy.size()), isLast);
    if (Thrown) std::rethrow_exception(std::exchange(Thrown, nullptr));
    return status == XML_STATUS_OK || Fail();
}

bool TExpatRun::Fail() {
    if (Stopped) return false;
    if (GetError() == XML_ERROR_NO_MEMORY) throw std::bad_alloc();
    Reason = XML_ErrorString(GetError());
    FailurePlace = GetTokenBegin();
    return false;
}

void TExpatRun::Refuse(std::string reason) {
    Reason = std::move(reason);
    FailurePlace = GetTokenBegin();
    Stop();
}

void TExpatRun::Stop() {
    Stopped = true;
    XML_StopParser(Parser, XML_FALSE);
}

std::size_t TExpatRun::GetTokenBegin() const {
    return static_cast<std::size_t>(std::max<XML_Index>(XML_GetCurrentByteIndex(Parser), 0));
}

std::size_t TExpatRun::GetTokenLength() const {
    return static_cast<std::size_t>(std::max(XML_GetCurrentByteCount(Parser), 0));
}

bool IsWellFormed(std::string_view document) {
    return TExpatRun(TXMLEncoding{}, nullptr).Feed(document, true);
}
