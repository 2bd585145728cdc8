#include "bench/cases/anchors.h"
#include "bench/cases/flatdocument.h"
#include "bench/cases/section.h"
#include <sys/stat.h>

namespace {

/// The sources are the texts that follow a SourceFile tag.
std::uint64_t CountMissing(const TFlatDocument& document, const std::string& folder) {
    const int source = document.FindName("SourceFile");
    std::uint64_t missing = 0;
    bool isSource = false;
    for (const TFlatDocument::TElement& element : document.GetElements()) {
        struct stat status;
        if (isSource && stat((folder + element.Text).c_str(), &status) != 0) ++missing;
        isSource = element.Kind == TFlatDocument::START && element.Name == source;
    }
    return missing;
}

std::uint64_t CountTags(const TFlatDocument& document, const char* name) {
    const int number = document.FindName(name);
    std::uint64_t count = 0;
    for (const TFlatDocument::TElement& element : document.GetElements())
        count += element.Kind == TFlatDocument::START && element.Name == number;
    return count;
}

}  // namespace

void MeasureAnchorRead(const std::string& build) {
    TFlatDocument document;
    std::uint64_t missing = 0;
    MeasureTime([&] {
        if (document.Read(build))
            missing = CountMissing(document, build.substr(0, build.rfind('/') + 1));
    });
    PrintResult(std::to_string(CountTags(document, "SourceFile")) + " sources, " +
                std::to_string(CountTags(document, "Dependency")) + " dependencies" +
                (missing ? ", files missing" : ""));
}
