#include "flows/imports/treeimport.h"
#include "flows/scan/sourcetext.h"
#include <algorithm>

namespace {

const char* NameOfKind(TTreeKind kind) {
    return kind == TREE_MAP ? "map" : kind == TREE_LIST ? "list" : "single value";
}

bool IsOneOf(std::string_view key, std::initializer_list<std::string_view> keys) {
    return std::find(keys.begin(), keys.end(), key) != keys.end();
}

/// Whether the value says the same as if it were not there.
bool AsksNothing(const TTree& value) {
    switch (value.Kind) {
        case TREE_NULL:
            return true;
        case TREE_BOOLEAN:
            return IsOneOf(value.Text,
                           {"false", "False", "FALSE", "no", "No", "NO", "off", "Off", "OFF"});
        case TREE_TEXT:
            return value.Text.empty();
        case TREE_LIST:
        case TREE_MAP:
            return value.Values.empty();
        default:
            return false;
    }
}

}  // namespace

bool TTreeImport::Read(TReadTree read, TTreeKind kind) {
    TTreeFault fault;
    if (!IsUtf8Text(File.Text)) {
        Reader.Fail("a text that is no UTF-8", PlaceOf(TTreePlace{}));
        return false;
    }
    if (!read(File.Text, &Root, &fault)) {
        Reader.Fail(fault.Reason, PlaceOf(fault.Place));
        return false;
    }
    if (Root.Kind == kind) return true;
    Fail(std::string("no ") + NameOfKind(kind), Root);
    return false;
}

const std::vector<TTree>& TTreeImport::ValuesIn(const TTree& map, std::string_view key,
                                                TTreeKind kind) const {
    static const std::vector<TTree> none;
    const TTree* const value = map.Find(key);
    if (!value || value->Kind == TREE_NULL) return none;
    if (value->Kind == kind) return value->Values;
    Fail("\"" + value->Key + "\" is no " + NameOfKind(kind), *value);
    return none;
}

const std::vector<TTree>& TTreeImport::ListIn(const TTree& map, std::string_view key) const {
    return ValuesIn(map, key, TREE_LIST);
}

const std::vector<TTree>& TTreeImport::MapIn(const TTree& map, std::string_view key) const {
    return ValuesIn(map, key, TREE_MAP);
}

const TTree* TTreeImport::ValueIn(const TTree& map, std::string_view key) const {
    const TTree* const value = map.Find(key);
    if (!value || value->Kind == TREE_NULL || (value->IsText() && value->Text.empty()))
        return nullptr;
    if (value->IsSingle()) return value;
    Fail("\"" + value->Key + "\" is no single value", *value);
    return nullptr;
}

std::string TTreeImport::TextIn(const TTree& map, std::string_view key) const {
    const TTree* const value = ValueIn(map, key);
    return value ? value->Text : std::string();
}

bool TTreeImport::IsMap(const TTree& value) const {
    if (!value.IsMap()) Fail("no map", value);
    return value.IsMap();
}

bool TTreeImport::IsSingle(const TTree& value) const {
    if (!value.IsSingle()) Fail("no single value", value);
    return value.IsSingle();
}

void TTreeImport::LoseOthers(const TTree& map, std::initializer_list<std::string_view> known,
                             std::initializer_list<std::string_view> describing) {
    for (const TTree& value : map.Values) {
        if (IsOneOf(value.Key, known) || AsksNothing(value)) continue;
        const std::string what = "\"" + value.Key + "\"";
        if (!IsOneOf(value.Key, describing))
            Reader.Lose(what, KeyPlaceOf(value));
        else if (Described.insert(value.Key).second)
            Reader.Tell(DIAGNOSTIC_IMPORT_DESCRIBES, {what}, KeyPlaceOf(value));
    }
}

void TTreeImport::LoseOnce(const std::string& what, const TTree& value) {
    if (Lost.insert(what).second) Lose(what, value);
}

void TTreeImport::AddIncludeDirectory(THdlLanguage language, const std::string& path,
                                      const TTree& value) {
    const std::string folder = PathOf(path);
    if (Folders.insert(std::to_string(language) + folder).second)
        Reader.SettingsOf(language).IncludeDirectories.push_back({folder, PlaceOf(value)});
}

void TTreeImport::AddOption(THdlLanguage language, const std::string& word, const TTree& value) {
    Reader.KeepOption(language, word, PlaceOf(value));
}
