#include "services/xml/expatrun.h"

#include <algorithm>

namespace {

// Expat copies each part. Small parts stay in the processor's cache, and keep Expat's copy small.
constexpr std::size_t kUsualPart = std::size_t{1} << 16;
constexpr std::size_t kLargestPart = std::size_t{1} << 30;

int ReadUnknownEncoding(void*, const XML_Char* name, XML_Encoding* encoding) {
    encoding->data = nullptr;
    encoding->convert = nullptr;
    encoding->release = nullptr;
    return FillEncodingTable(name, encoding->map) ? XML_STATUS_OK : XML_STATUS_ERROR;
}

}  // namespace

TExpatRun::TExpatRun(const TXMLEncoding& encoding, void* userData)
    : Parser(XML_ParserCreate(encoding.Name)) {
    XML_SetUserData(Parser, userData);
    XML_SetUnknownEncodingHandler(Parser, ReadUnknownEncoding, nullptr);
}

TExpatRun::~TExpatRun() {
    XML_ParserFree(Parser);
}

bool TExpatRun::Feed(std::string_view part, bool isLast) {
    do {
        const std::size_t size = std::min(part.size(), PartSize);
        const bool isEnd = isLast && size == part.size();
        if (XML_Parse(Parser, part.data(), static_cast<int>(size), isEnd) != XML_STATUS_OK) {
            if (Stopped) return false;
            Reason = XML_ErrorString(GetError());
            FailurePlace = GetTokenBegin();
            return false;
        }
        part.remove_prefix(size);
        Fed += size;
        // A token that does not end there is scanned again with the next part, which is as long as
        // what there is of it: so the work is linear, however long a token is.
        PartSize = std::clamp(Fed - GetTokenBegin(), kUsualPart, kLargestPart);
    } while (!part.empty());
    return true;
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
