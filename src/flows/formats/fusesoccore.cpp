#include "flows/formats/edamparts.h"
#include "flows/formats/edamtools.h"
#include "flows/formats/formatwriters.h"
#include "flows/sourcesearch.h"
#include "flows/trees/yamltext.h"
#include <algorithm>
#include <unordered_set>

namespace {

/// Makes the core.
class TCore {
public:
    explicit TCore(TExportWriter* writer) : Writer(*writer), Parts(writer) {}

    TJson Make();

private:
    TJson MakeFiles();
    void AddIncluded(const std::string& folder, TJson* files);
    std::string NameOf(const std::string& path);

    TExportWriter& Writer;
    TEdamParts Parts;
    std::unordered_set<std::string> Listed;  // paths of sources
};

TJson TCore::Make() {
    const std::string& name = Writer.GetPlan().Name;
    if (name.empty()) Writer.Refuse(name, "a core has a name");
    if (HasAny(name, ":?")) Writer.Refuse(name, "a colon or question mark ends the name");
    TJson core = {{"name", "::" + Parts.TextOfName(name)}};
    core["filesets"]["sources"]["files"] = MakeFiles();
    TJson target = {{"filesets", std::vector<std::string>{"sources"}}};
    if (std::string top = Parts.MakeTopLevel(); !top.empty()) target["toplevel"] = std::move(top);
    if (TJson parameters = Parts.MakeParameters(); !parameters.IsNull()) {
        for (const auto& [define, parameter] : parameters.GetMembers())
            target["parameters"].Add(define);
        core["parameters"] = std::move(parameters);
    }
    if (TJson options = TEdamTools(&Writer, EDAM_FOLDERS_MOVE).Make(); !options.IsNull())
        target["tools"] = std::move(options);
    core["targets"]["default"] = std::move(target);
    Parts.LoseSettings();
    Writer.LoseLibraryFiles();
    return core;
}

TJson TCore::MakeFiles() {
    TJson files = TJson::Array();
    for (const TPlanSource& source : Writer.GetPlan().Sources) Listed.insert(source.Path);
    for (const std::string& path : Writer.SettingsOf(LANGUAGE_VERILOG).IncludeDirectories)
        AddIncluded(path, &files);
    for (const TPlanSource& source : Writer.GetPlan().Sources) {
        if (Parts.FileTypeOf(source).empty()) continue;
        TJson file;
        Parts.AddAttributes(source, &file[NameOf(source.Path)]);
        files.Add(std::move(file));
    }
    return files;
}

// FuseSoC copies files, not folders.
void TCore::AddIncluded(const std::string& folder, TJson* files) {
    const std::string name = NameOf(folder);
    const TIncludedFiles found = FindIncludedFiles(folder);
    for (const std::string& path : found.Headers)
        (*files).Add({{NameOf(path),
                       {{"file_type", "verilogSource"},
                        {"is_include_file", true},
                        {"include_path", name}}}});
    if (found.Headers.empty())
        Writer.Lose("the include directory " + name + ", where no header is found");
    const auto other =
        std::find_if(found.Others.begin(), found.Others.end(),
                     [this](const std::string& path) { return !Listed.contains(path); });
    if (other != found.Others.end() && !found.Headers.empty())
        Writer.Lose("files of the include directory " + name +
                    " without the extension of a header, such as " + Writer.PathOf(*other));
}

std::string TCore::NameOf(const std::string& path) {
    std::string name = Parts.TextOfName(Writer.PathOf(path));
    if (HasAny(name, "?")) Writer.Refuse(name, "it reads as a condition");
    return name;
}

}  // namespace

TExported WriteFusesocCore(const TExportRequest& request) {
    TExportWriter writer(request, "fusesoc");
    writer.AddLine("CAPI=2:");
    writer.AddLine(YamlText(TCore(&writer).Make()));
    return writer.Take();
}
