#include "flows/run/stepstamp.h"
#include <algorithm>

namespace {

std::vector<std::string> ProductsOf(const TStepRecord& record) {
    std::vector<std::string> products = record.Products;
    if (!record.Result.empty()) products.push_back(record.Result);
    return products;
}

std::string MadeFileOf(const std::string& product) {
    return product + ".made";
}

std::string StampText(const TStepRecord& record) {
    return DigestOf(WriteRecord(record)) + "\n";
}

// A step that was killed has left what it guards as a copy, which is put back first.
bool IsAsLeft(const std::string& product, TFileStates* states) {
    std::error_code error;
    const std::string copy = product + kGuardedCopy;
    const bool isGuarded = std::filesystem::exists(NativePath(copy), error);
    return ReadText(MadeFileOf(product)) == states->Of(isGuarded ? copy : product) + "\n";
}

}  // namespace

std::string LeaveStamp(const TStepRecord& record) {
    for (const std::string& product : ProductsOf(record)) {
        std::string reason = WriteNew(MadeFileOf(product), StateOf(product) + "\n");
        if (!reason.empty()) return reason;
    }
    return WriteWhole(record.Stamp, StampText(record));
}

bool HasStamp(const TStepRecord& record, TFileStates* states) {
    const std::vector<std::string> products = ProductsOf(record);
    return ReadText(record.Stamp) == StampText(record) &&
           std::all_of(products.begin(), products.end(),
                       [states](const std::string& product) { return IsAsLeft(product, states); });
}

// What was damaged is not built upon: GHDL cannot even read a library that is cut.
std::string ForgetStep(const TStepRecord& record, TFileStates* states) {
    std::vector<std::string> lost = {record.Stamp};
    if (!record.Result.empty()) lost.push_back(record.Result);
    for (const std::string& product : record.Products)
        if (!IsAsLeft(product, states))
            for (const char* const end : {"", kGuardedCopy}) lost.push_back(product + end);
    for (const std::string& file : lost)
        if (std::string reason = RemoveFile(file); !reason.empty()) return reason;
    return {};
}
