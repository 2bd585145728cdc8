#include "cli/frame/jsonresults.h"
#include "cli/frame/projectconfigurations.h"
#include "cli/frame/settingstext.h"
#include "cli/frame/texts.h"
#include "cli/settings/commands.h"
#include "cli/settings/projectaccess.h"
#include "flows/knownnames.h"

int RunTemplatesList(const TSettingsArguments& arguments, const TToolStreams& streams) {
    TProjectTemplateSimConfigList templates;
    if (const int status = ReadTemplates(&templates, streams); status != kExitDone) return status;
    const std::string starting = templates.GetStartingConfigOrCurrentConfigName();
    if (!arguments.Json) {
        PrintNames(NamesOf(templates), starting, streams.Out);
        return kExitDone;
    }
    TJson result = MakeResult("hdlbuild-templates-list");
    result["starting"] = starting.empty() ? TJson() : TJson(starting);
    result["templates"] = NamesOf(templates);
    PrintJson(result, streams);
    return kExitDone;
}

int RunTemplatesShow(const TSettingsArguments& arguments, const TToolStreams& streams) {
    TProjectTemplateSimConfigList templates;
    if (const int status = ReadTemplates(&templates, streams); status != kExitDone) return status;
    const TProjectSimConfig* shown = templates.Find(arguments.Configuration.c_str());
    if (!shown) {
        ReportError(streams, UnknownName("template", arguments.Configuration, NamesOf(templates)));
        return kExitUsage;
    }
    const std::vector<TSettingValue> values = ListSettings(*shown, "");
    if (!arguments.Json) {
        PrintLine(streams.Out, shown->GetName());
        PrintSettings(values, streams.Out);
        return kExitDone;
    }
    TJson result = MakeResult("hdlbuild-templates-show");
    result["name"] = shown->GetName();
    AddSettings(result, values);
    PrintJson(result, streams);
    return kExitDone;
}
