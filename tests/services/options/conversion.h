#pragma once
#include "services/options/optionconversion.h"
#include <string>

/// Records what is reported, each as "words: reason\n".
class RecordingErrors : public options::IParseErrorSink {
public:
    void ReportParseError(const char* words, const char* reason) override {
        Lines += std::string(words) + ": " + reason + "\n";
    }
    std::string Lines;
};

/// The items as text, one a line: destination, [forced], [flag], text.
inline std::string ItemsOf(const options::TConvertedOptionResults& results) {
    constexpr const char* kNames[] = {"preprocess", "analyze",   "library", "codegen",
                                      "link",       "elaborate", "simulate"};
    std::string lines;
    for (const auto& item : results.GetItems())
        lines += std::string(kNames[item.Destination]) + (item.Forced ? " forced" : "") +
                 (item.Flag ? " flag" : "") + " " + item.Text + "\n";
    return lines;
}

/// What `text` becomes, followed by what was reported, each report as "! words: reason".
inline std::string Converted(const char* text, const options::TOptionTarget& target,
                             int homeStage = options::STAGE_COMPILE,
                             options::TOptionSourceKind source = options::SOURCE_BUILD_OR_LINKER) {
    RecordingErrors errors;
    options::TConvertedOptionResults results;
    const bool clean = ParseAndConvertOptions(text, source, homeStage, target, &errors, &results);
    if (clean != errors.Lines.empty()) return "the result tells nothing of the reports";
    return ItemsOf(results) + (clean ? "" : "! " + errors.Lines);
}
