#include "flows/formats/edamparts.h"
#include "flows/formats/formatwriters.h"
#include "flows/trees/yamltext.h"

namespace {

/// Makes the core.
class TCore {
public:
    explicit TCore(TExportWriter* writer) : Writer(*writer), Parts(writer) {}

    TJson Make();

private:
    TJson MakeFiles();
    std::string NameOf(const TPlanSource& source);

    TExportWriter& Writer;
    TEdamParts Parts;
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
    core["targets"]["default"] = std::move(target);
    // Its files are copied: a folder cannot stand for them.
    if (!Writer.SettingsOf(LANGUAGE_VERILOG).IncludeDirectories.empty())
        Writer.Lose("include directories without a list of their files");
    Parts.LoseSettings();
    return core;
}

TJson TCore::MakeFiles() {
    TJson files = TJson::Array();
    for (const TPlanSource& source : Writer.GetPlan().Sources) {
        if (Parts.FileTypeOf(source).empty()) continue;
        TJson file;
        Parts.AddAttributes(source, &file[NameOf(source)]);
        files.Add(std::move(file));
    }
    return files;
}

std::string TCore::NameOf(const TPlanSource& source) {
    std::string name = Parts.TextOfName(Writer.PathOf(source.Path));
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
