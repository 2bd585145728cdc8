#include "bench/cases/flatdocument.h"
#include <algorithm>
#include <cstdio>
#include <expat.h>
#include <memory>

namespace {

constexpr int kBlockSize = 64 * 1024;

}  // namespace

struct TFlatDocumentHandlers {
    static void Start(void* data, const char* name, const char** attributes) {
        auto& document = *static_cast<TFlatDocument*>(data);
        TFlatDocument::TElement& element = document.Elements.emplace_back(
            TFlatDocument::TElement{TFlatDocument::START, document.NumberOf(name), {}, {}});
        for (; *attributes; attributes += 2)
            element.Attributes.emplace_back(document.NumberOf(attributes[0]), attributes[1]);
    }
    static void End(void* data, const char* name) {
        auto& document = *static_cast<TFlatDocument*>(data);
        document.Elements.push_back({TFlatDocument::END, document.NumberOf(name), {}, {}});
    }
    static void Text(void* data, const char* text, int length) {
        auto& elements = static_cast<TFlatDocument*>(data)->Elements;
        const auto size = static_cast<std::size_t>(length);
        if (elements.back().Kind == TFlatDocument::TEXT)
            elements.back().Text.append(text, size);
        else
            elements.push_back({TFlatDocument::TEXT, -1, std::string(text, size), {}});
    }
};

bool TFlatDocument::Read(const std::string& path) {
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "rb"),
                                                               std::fclose);
    if (!file) return false;
    const std::unique_ptr<XML_ParserStruct, void (*)(XML_Parser)> parser(XML_ParserCreate(nullptr),
                                                                         XML_ParserFree);
    XML_SetUserData(parser.get(), this);
    XML_SetElementHandler(parser.get(), TFlatDocumentHandlers::Start, TFlatDocumentHandlers::End);
    XML_SetCharacterDataHandler(parser.get(), TFlatDocumentHandlers::Text);
    for (std::size_t size = kBlockSize; size == kBlockSize;) {
        void* buffer = XML_GetBuffer(parser.get(), kBlockSize);
        if (!buffer) return false;
        size = std::fread(buffer, 1, kBlockSize, file.get());
        const bool isLast = size < kBlockSize;
        if (!XML_ParseBuffer(parser.get(), static_cast<int>(size), isLast)) return false;
    }
    return true;
}

int TFlatDocument::FindName(const std::string& name) const {
    const auto found = std::find(Names.begin(), Names.end(), name);
    return found == Names.end() ? -1 : static_cast<int>(found - Names.begin());
}

// A build file has so few names that a look through them is fast.
int TFlatDocument::NumberOf(const char* name) {
    const auto found = std::find(Names.begin(), Names.end(), name);
    if (found == Names.end()) return static_cast<int>(Names.insert(found, name) - Names.begin());
    return static_cast<int>(found - Names.begin());
}
