#include "flows/formats/edamparts.h"
#include "flows/formats/edamtools.h"
#include "flows/formats/formatwriters.h"
#include "flows/trees/yamltext.h"

namespace {

/// Makes the tree that both forms print.
class TEdamTree {
public:
    explicit TEdamTree(TExportWriter* writer) : Writer(*writer), Parts(writer) {}

    TJson Make() {
        TJson tree = {{"version", "0.2.1"}, {"name", Parts.TextOfName(Writer.GetPlan().Name)}};
        if (std::string top = Parts.MakeTopLevel(); !top.empty()) tree["toplevel"] = std::move(top);
        tree["files"] = MakeFiles();
        if (TJson parameters = Parts.MakeParameters(); !parameters.IsNull())
            tree["parameters"] = std::move(parameters);
        if (TJson options = TEdamTools(&Writer, EDAM_FOLDERS_STAY).Make(); !options.IsNull())
            tree["tool_options"] = std::move(options);
        Parts.LoseSettings();
        for (const TPlanSource& source : Writer.GetPlan().Sources)
            if (source.IsLibraryFile && !IsVerilogLibraryFile(source))
                Writer.Lose("the mark of library files");
        return tree;
    }

private:
    TJson MakeFiles();
    std::string NameOf(const std::string& path) { return Parts.TextOfName(Writer.PathOf(path)); }

    TExportWriter& Writer;
    TEdamParts Parts;
};

// An include directory is what some include file has: the folder itself stands for its files.
TJson TEdamTree::MakeFiles() {
    TJson files = TJson::Array();
    for (const std::string& path : Writer.SettingsOf(LANGUAGE_VERILOG).IncludeDirectories) {
        const std::string folder = NameOf(path);
        files.Add({{"name", folder},
                   {"file_type", "verilogSource"},
                   {"is_include_file", true},
                   {"include_path", folder}});
    }
    for (const TPlanSource& source : Writer.GetPlan().Sources) {
        if (Parts.FileTypeOf(source).empty() || IsVerilogLibraryFile(source)) continue;
        TJson file = {{"name", NameOf(source.Path)}};
        Parts.AddAttributes(source, &file);
        files.Add(std::move(file));
    }
    return files;
}

}  // namespace

TExported WriteEdamJson(const TExportRequest& request) {
    TExportWriter writer(request, "edam-json");
    writer.AddLine(TEdamTree(&writer).Make().Dump(2));
    return writer.Take();
}

TExported WriteEdamYaml(const TExportRequest& request) {
    TExportWriter writer(request, "edam-yaml");
    writer.AddLine(YamlText(TEdamTree(&writer).Make()));
    return writer.Take();
}
