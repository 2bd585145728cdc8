#include "cli/frame/sourcechanges.h"

namespace {

/// The values of a source, as they are told.
class TSourceValues {
public:
    TSourceValues(const TListedRecord& record, const TSourceLists& lists,
                  const TTextNumbers& libraries, const TPathForm& form)
        : Library(libraries.GetText(record.Library)), IsLibraryFile(record.IsLibraryFile) {
        for (const ISFileName* file : lists.GetDependencies(record))
            Dependencies.Add(PathText(file, form));
    }

    TJson AsJson() const {
        TJson json = {{"library", Library}};
        if (IsLibraryFile.IsTrue()) json["libraryFile"] = true;
        if (!Dependencies.GetEntries().empty()) json["dependencies"] = Dependencies;
        return json;
    }
    TState AsState(const std::string& name) const {
        return {{name + ", library", Library},
                {name + ", library file", IsLibraryFile},
                {name + ", dependencies", Dependencies}};
    }

private:
    TJson Library;
    TJson IsLibraryFile;
    TJson Dependencies = TJson::Array();
};

void Append(const TState& values, TState* state) {
    state->insert(state->end(), values.begin(), values.end());
}

}  // namespace

void AddSourceChanges(const TComparedSources& sources, const TPathForm& form, TState* before,
                      TState* after) {
    const TSourceListsDifference& difference = sources.Difference;
    const auto valuesOf = [&](const TListedRecord& record, const TSourceLists& lists) {
        return TSourceValues(record, lists, sources.Libraries, form);
    };
    const auto wholeOf = [&](const TListedRecord* record, const TSourceLists& lists) {
        return record ? valuesOf(*record, lists).AsJson() : TJson();
    };
    const auto behind = [&](const ISFileName* file) {
        return file ? TJson(PathText(file, form)) : TJson();
    };
    for (const TListedChange& source : difference.GetChanges()) {
        const TListedRecord& named = source.After ? *source.After : *source.Before;
        const std::string name = std::string(GetStringFromHdlLanguage(source.Language)) +
                                 " source " + PathText(named.File, form);
        if (!source.Before || !source.After) {
            before->emplace_back(name, wholeOf(source.Before, sources.Before));
            after->emplace_back(name, wholeOf(source.After, sources.After));
            continue;
        }
        Append(valuesOf(*source.Before, sources.Before).AsState(name), before);
        Append(valuesOf(*source.After, sources.After).AsState(name), after);
        if (!source.IsMoved) continue;
        before->emplace_back(name + ", behind", behind(difference.GetFileInFrontBefore(source)));
        after->emplace_back(name + ", behind", behind(difference.GetFileInFrontAfter(source)));
    }
}
