#include "cli/frame/formatlist.h"
#include "cli/frame/jsonresults.h"
#include "cli/frame/texts.h"

void PrintFormats(const std::vector<TListedFormat>& formats, const char* result, bool isJson,
                  const TToolStreams& streams) {
    TJson list = TJson::Array();
    std::vector<std::vector<std::string>> rows;
    rows.reserve(formats.size());
    for (const TListedFormat& format : formats) {
        list.Add(
            {{"name", format.Name}, {"description", format.Description}, {"holds", format.Holds}});
        rows.push_back({format.Name, format.Description, format.Holds});
    }
    if (!isJson) return PrintTable(std::move(rows), streams.Out);
    TJson object = MakeResult(result);
    object["formats"] = std::move(list);
    PrintJson(object, streams);
}
