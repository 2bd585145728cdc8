#include "cli/commands.h"
#include "cli/projectaccess.h"
#include "cli/settingstext.h"

namespace {

TJson MakeTemplatesResult(const char* format) {
    return {{"format", format}, {"version", 1}};
}

}  // namespace

int RunTemplatesList(const TToolArguments& arguments, const TToolStreams& streams) {
    TProjectTemplateSimConfigList templates;
    if (const int status = ReadTemplates(&templates, streams); status != kExitDone) return status;
    const std::string starting = templates.GetStartingConfigOrCurrentConfigName();
    if (!arguments.Json) {
        PrintNames(NamesOf(templates), starting, streams.Out);
        return kExitDone;
    }
    TJson result = MakeTemplatesResult("hdlbuild-templates-list");
    result["starting"] = starting.empty() ? TJson() : TJson(starting);
    result["templates"] = NamesOf(templates);
    PrintJson(result, streams);
    return kExitDone;
}

int RunTemplatesShow(const TToolArguments& arguments, const TToolStreams& streams) {
    TProjectTemplateSimConfigList templates;
    if (const int status = ReadTemplates(&templates, streams); status != kExitDone) return status;
    const TProjectSimConfig* shown = templates.Find(arguments.Configuration.c_str());
    if (!shown) {
        ReportError(streams, "unknown template '" + arguments.Configuration +
                                 "'; known: " + JoinNames(NamesOf(templates)));
        return kExitUsage;
    }
    const std::vector<TSettingValue> values = ListSettings(*shown, "");
    if (!arguments.Json) {
        streams.Out << shown->GetName() << "\n";
        PrintSettings(values, streams.Out);
        return kExitDone;
    }
    TJson result = MakeTemplatesResult("hdlbuild-templates-show");
    result["name"] = shown->GetName();
    AddSettings(result, values);
    PrintJson(result, streams);
    return kExitDone;
}
