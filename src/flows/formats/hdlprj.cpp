#include "flows/formats/exportwriter.h"
#include "flows/formats/formatwriters.h"
#include "flows/formats/shelltext.h"
#include "flows/trees/json.h"

namespace {

/// The words of GHDL: others would come back as other bytes.
TJson MakeWords(TExportWriter* writer) {
    const TPlanSettings& settings = writer->SettingsOf(LANGUAGE_VHDL);
    TJson words = TJson::Array();
    if (!settings.Standard.empty()) words.Add("--std=" + GhdlStandard(settings));
    for (const std::string& word : settings.Options[STEP_ANALYSE]) words.Add(writer->Utf8Of(word));
    return words;
}

TJson MakeFile(const TPlanSource& source, TExportWriter* writer) {
    TJson file = {{"file", writer->Utf8Of(writer->PathOf(source.Path))},
                  {"language", source.Language == LANGUAGE_VHDL ? "vhdl" : "verilog"}};
    if (source.Library != "work") file["library"] = writer->Utf8Of(source.Library);
    return file;
}

}  // namespace

// The server analyses VHDL and passes over the rest.
TExported WriteHdlPrj(const TExportRequest& request) {
    TExportWriter writer(request, "hdl-prj");
    TJson tree;
    tree["options"]["ghdl_analysis"] = MakeWords(&writer);
    tree["files"] = TJson::Array();
    for (const TPlanSource& source : request.Plan.Sources)
        if (source.Language == LANGUAGE_VHDL || source.Language == LANGUAGE_VERILOG)
            tree["files"].Add(MakeFile(source, &writer));
    writer.AddLine(tree.Dump(2));
    writer.LoseOtherLanguages({LANGUAGE_VHDL, LANGUAGE_VERILOG});
    writer.LoseDirectories(LANGUAGE_VERILOG);
    writer.LoseOptions(LANGUAGE_VERILOG, {});
    writer.LoseVerilogStandard();
    writer.LoseLibraryFiles();
    writer.LoseDelays();
    writer.LoseOptions(LANGUAGE_VHDL, {STEP_ANALYSE});
    return writer.Take();
}
