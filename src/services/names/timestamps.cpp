#include "services/names/timestamps.h"
#include "services/files/pathpieces.h"
#include <unordered_map>

namespace {

/// A file and a key, which is one text per distinct key; null means all keys together.
struct TRecordName {
    TStampedFile File;
    const char* Key;

    bool operator==(const TRecordName& other) const {
        return Key == other.Key && File.Text == other.File.Text;
    }
};

struct THashOfRecordName {
    std::size_t operator()(const TRecordName& name) const {
        return name.File.Hash ^ std::hash<const char*>()(name.Key);
    }
};

using TRecords = std::unordered_map<TRecordName, TTimeStamps, THashOfRecordName>;

TRecords& Records() {
    static TRecords& records = *new TRecords;
    return records;
}

const TTimeStamps* Find(const TRecordName& name) {
    const auto record = Records().find(name);
    return record == Records().end() ? nullptr : &record->second;
}

}  // namespace

const TTimeStamps* FindTimeStamps(const TStampedFile& file, std::string_view key) {
    return Find({file, KeptPathText(key)});
}

void RecordLoaded(const TStampedFile& file, std::string_view key, const TFileStatus& status) {
    Records()[{file, KeptPathText(key)}].Loaded = status;
}

void RecordCompiled(const TStampedFile& file, std::string_view key, const TFileStatus& status) {
    Records()[{file, KeptPathText(key)}].Compiled = status;
    Records()[{file, nullptr}].Compiled = status;
}

const TFileStatus* FindLastCompiled(const TStampedFile& file) {
    const TTimeStamps* stamps = Find({file, nullptr});
    return stamps ? &*stamps->Compiled : nullptr;
}
