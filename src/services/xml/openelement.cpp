#include "services/xml/openelement.h"

#include "services/xml/expatrun.h"
#include <vector>

namespace {

struct TOpenElement {
    std::string Name;
    std::size_t Place;
};

class TOpenElementFinder {
public:
    explicit TOpenElementFinder(const TXMLEncoding& encoding) : Run(encoding, this) {
        XML_SetElementHandler(Run.GetParser(), OnStart, OnEnd);
    }

    /// None when the document is well-formed.
    const std::vector<TOpenElement>& Find(std::string_view beginning, std::string_view rest) {
        if (Run.Feed(beginning, false)) Run.Feed(rest, true);
        return Open;
    }

private:
    static void OnStart(void* userData, const XML_Char* name, const XML_Char**) {
        auto& finder = *static_cast<TOpenElementFinder*>(userData);
        finder.Run.Guard([&] { finder.Open.push_back({name, finder.Run.GetTokenBegin()}); });
    }
    static void OnEnd(void* userData, const XML_Char*) {
        auto& finder = *static_cast<TOpenElementFinder*>(userData);
        finder.Run.Guard([&] { finder.Open.pop_back(); });
    }

    TExpatRun Run;
    std::vector<TOpenElement> Open;
};

}  // namespace

std::string DescribeOpenElement(std::string_view document, const TXMLEncoding& encoding,
                                std::string_view beginning) {
    TOpenElementFinder finder(encoding);
    const auto& open = finder.Find(beginning, document.substr(beginning.size()));
    if (open.empty()) return "";
    int line = 0;
    int column = 0;
    LocateInDocument(document, encoding, open.back().Place, &line, &column);
    return "element \"" + open.back().Name + "\" of line " + std::to_string(line);
}
