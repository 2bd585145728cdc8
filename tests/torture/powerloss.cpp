#include "tests/torture/powerloss.h"
#include <sstream>

namespace {

// In the place of a file's number.
constexpr std::size_t kGone = static_cast<std::size_t>(-1);
constexpr std::size_t kFolder = static_cast<std::size_t>(-2);

/// What of a text may be on the disk.
std::vector<std::string> Remains(const std::string& safe, const std::string& written) {
    if (safe == written) return {safe};
    const std::size_t half = safe.size() + (written.size() - safe.size()) / 2;
    const std::string zeros(written.size() - safe.size(), '\0');
    std::string tail = safe + zeros;
    tail.replace(half, std::string::npos, written, half);
    return {safe, written, written.substr(0, half), safe + zeros, tail};
}

/// Sets what stands behind the name of a call in its line.
void ReadFields(const std::string& fields, TRecordedCall* call) {
    std::istringstream stream(fields);
    if (call->Name == "open" || call->Name == "close" || call->Name == "fsync" ||
        call->Name == "write")
        stream >> call->Number >> std::ws;
    if (call->Name == "open") stream >> call->Makes >> std::ws;
    std::getline(stream, call->Path, '\t');
    std::getline(stream, call->To);
}

}  // namespace

std::vector<TRecordedCall> ReadRecord(const std::string& text) {
    std::vector<TRecordedCall> calls;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        const std::size_t blank = line.find(' ');
        TRecordedCall call;
        call.Name = line.substr(0, blank);
        ReadFields(line.substr(blank + 1), &call);
        if (call.Name == "write") {
            call.Bytes.resize(std::stoul(call.Path));
            stream.read(call.Bytes.data(), static_cast<std::streamsize>(call.Bytes.size()));
            stream.ignore(1);
        }
        calls.push_back(call);
    }
    return calls;
}

TLossyDisk::TLossyDisk(const TFiles& files) {
    for (const auto& [name, bytes] : files) {
        SafeNames[name] = Contents.size();
        Contents.push_back({bytes, bytes});
    }
}

bool TLossyDisk::Do(const TRecordedCall& call) {
    TNames names = SafeNames;
    for (const TChange& change : Pending) Apply(change, &names);
    if (call.Name == "open" && call.Makes) {
        Open[call.Number] = Contents.size();
        Pending.push_back({{call.Path, Contents.size()}});
        Contents.push_back({});
    } else if (call.Name == "open") {
        const auto place = names.find(call.Path);
        Open[call.Number] = place == names.end() ? kFolder : place->second;
    } else if (call.Name == "write") {
        Contents[Open.at(call.Number)].Written += call.Bytes;
    } else if (call.Name == "fsync" && Open.at(call.Number) != kFolder) {
        Contents[Open.at(call.Number)].Safe = Contents[Open.at(call.Number)].Written;
    } else if (call.Name == "fsync") {
        SafeNames = names;
        Pending.clear();
    } else if (call.Name == "rename") {
        Pending.push_back({{call.Path, kGone}, {call.To, names.at(call.Path)}});
    } else if (call.Name == "link") {
        Pending.push_back({{call.To, names.at(call.Path)}});
    } else if (call.Name == "unlink") {
        Pending.push_back({{call.Path, kGone}});
    } else if (call.Name == "close") {
        Open.erase(call.Number);
    } else {
        return false;
    }
    return true;
}

void TLossyDisk::Apply(const TChange& change, TNames* names) {
    for (const auto& [name, content] : change)
        if (content == kGone)
            names->erase(name);
        else
            (*names)[name] = content;
}

TFiles TLossyDisk::Current() const {
    TNames names = SafeNames;
    for (const TChange& change : Pending) Apply(change, &names);
    TFiles files;
    for (const auto& [name, content] : names) files[name] = Contents[content].Written;
    return files;
}

void TLossyDisk::ForEachLoss(const TLook& look) const {
    ForEachOrder(SafeNames, Pending, look);
}

// As deep as there are changes that nobody waited for: a handful.
void TLossyDisk::ForEachOrder(const TNames& names, const std::vector<TChange>& left,
                              const TLook& look) const {
    ForEachContent(names, look);
    for (std::size_t next = 0; next < left.size(); ++next) {
        TNames changed = names;
        Apply(left[next], &changed);
        std::vector<TChange> others = left;
        others.erase(others.begin() + static_cast<std::ptrdiff_t>(next));
        ForEachOrder(changed, others, look);
    }
}

void TLossyDisk::ForEachContent(const TNames& names, const TLook& look) const {
    // A file of two names is one file.
    std::vector<std::map<std::size_t, std::string>> states = {{}};
    for (const auto& [name, content] : names) {
        if (states.front().contains(content)) continue;
        std::vector<std::map<std::size_t, std::string>> longer;
        for (const auto& state : states)
            for (std::string& bytes : Remains(Contents[content].Safe, Contents[content].Written)) {
                longer.push_back(state);
                longer.back()[content] = std::move(bytes);
            }
        states = std::move(longer);
    }
    for (const auto& state : states) {
        TFiles files;
        for (const auto& [name, content] : names) files[name] = state.at(content);
        look(files);
    }
}
