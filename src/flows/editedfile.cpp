#include "flows/editedfile.h"
#include "services/files/filereplace.h"
#include "services/names/isfilename.h"
#include <algorithm>
#include <utility>

void TEditedFile::TakeLock() {
    Lock.emplace(File->Canonical(false));
}

bool TEditedFile::Read(TXMLReadError* error) {
    *error = {};
    Bytes.clear();
    const TFileReadResult result = ReadWholeFile(File->Canonical(false), &Bytes, &error->Reason);
    IsThere = result == FILE_READ_DONE;
    if (IsThere && (!Lock || Lock->IsHeld())) return true;
    error->Missing = result == FILE_READ_MISSING;
    error->File = File->Canonical(false);
    if (IsThere) error->Reason = Lock->GetReason();
    if (error->Reason.empty())
        error->Reason = error->Missing ? "the file does not exist" : "the file cannot be read";
    return false;
}

bool TEditedFile::ReadInto(TXMLList* list, TXMLReadError* error) {
    return Edit.Read(std::move(Bytes), list, error);
}

std::string TEditedFile::Change(const TXMLList& base, const TXMLList& wanted, TXMLEditRules rules,
                                const std::function<bool(const std::string&)>& isAsWanted) {
    for (const bool isWhole : {false, true}) {
        rules.InsertsWhole = isWhole;
        const bool isKept = !Edit.GetDocument().empty();
        if (!(isKept ? Edit.Find(base, wanted, rules)
                     : Edit.Find(std::move(Bytes), base, wanted, rules)))
            return Edit.GetReason();
        New = Edit.GetEdited();
        if (isAsWanted(New)) return "";
    }
    Bytes = Edit.GetDocument();
    Edit = {};
    return "the change cannot be made in this file: a reader would find something else in it";
}

std::string TEditedFile::Make(std::string document) {
    New = std::move(document);
    return "";
}

std::string TEditedFile::GetUnifiedDiff(const std::string& path) const {
    if (IsThere) return Edit.GetUnifiedDiff(path);
    if (New.empty()) return "";
    const auto lines = std::count(New.begin(), New.end(), '\n');
    std::string diff = "--- /dev/null\n+++ " + path + "\n@@ -0,0 +1," + std::to_string(lines);
    diff += " @@\n";
    for (std::size_t begin = 0; begin < New.size();) {
        const std::size_t end = std::min(New.find('\n', begin), New.size() - 1) + 1;
        diff += "+" + New.substr(begin, end - begin);
        begin = end;
    }
    return diff;
}

bool TEditedFile::IsAsRead() const {
    std::string bytes;
    const TFileReadResult result = ReadWholeFile(File->Canonical(false), &bytes, nullptr);
    return IsThere ? result == FILE_READ_DONE && bytes == GetBytes() : result == FILE_READ_MISSING;
}

std::string TEditedFile::Save() const {
    if (!Lock || !Lock->IsHeld()) return Lock ? Lock->GetReason() : "the file is not locked";
    if (!IsAsRead()) return kChanged;
    std::string reason;
    if (ReplaceWholeFile(File->Canonical(false), GetChanged(), &reason)) return "";
    return reason.empty() ? "the file cannot be written" : reason;
}

void TEditedFile::GoOn() {
    std::string bytes = GetChanged();
    Bytes = std::move(bytes);
    New.clear();
    Edit = {};
    IsThere = true;
}
