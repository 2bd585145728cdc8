#include "flows/run/runrecords.h"
#include "flows/run/ninjatext.h"
#include "flows/run/stepstamp.h"
#include <algorithm>
#include <map>

namespace {

/// Writes them.
class TRunRecords {
public:
    TRunRecords(const TRunPlan& run, const std::string& folder) : Run(run), Folder(folder) {}

    std::string Write() {
        for (const TRunStep& step : Run.Steps)
            if (std::string reason = Write(step); !reason.empty()) return reason;
        return {};
    }

private:
    std::string Write(const TRunStep& step) {
        TStepRecord record = step.Record;
        record.Inputs = InputsOf(step);
        const bool isDone = HasStamp(record, &States) &&
                            std::all_of(step.Needs.begin(), step.Needs.end(),
                                        [this](std::size_t need) { return AreDone[need]; });
        AreDone.push_back(isDone);
        std::string reason = isDone ? std::string() : ForgetStep(record, &States);
        return reason.empty() ? WriteNew(Folder + RecordFileOf(step), WriteRecord(record)) : reason;
    }

    // The names of the files count as well as their bytes: one that is gone leaves no bytes.
    std::string InputsOf(const TRunStep& step) {
        TDigest digest;
        AddFiles(step.Sources, &digest);
        AddFiles(step.Programs, &digest);
        if (step.CommonSources) digest.Add(CommonInputsOf(*step.CommonSources));
        for (const std::size_t need : step.Needs) digest.Add(Run.Steps[need].Name);
        return digest.Text();
    }

    const std::string& CommonInputsOf(const std::vector<std::string>& files) {
        std::string& text = CommonInputs[&files];
        if (!text.empty()) return text;
        TDigest digest;
        AddFiles(files, &digest);
        return text = digest.Text();
    }

    void AddFiles(const std::vector<std::string>& files, TDigest* digest) {
        for (const std::string& file : files) {
            digest->Add(file);
            digest->Add(States.Of(file));
        }
    }

    const TRunPlan& Run;
    const std::string& Folder;
    TFileStates States;
    std::map<const std::vector<std::string>*, std::string> CommonInputs;
    std::vector<bool> AreDone;  // by step
};

}  // namespace

std::string WriteRecords(const TRunPlan& run, const std::string& folder) {
    return TRunRecords(run, folder).Write();
}
