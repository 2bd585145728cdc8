#include "cli/frame/jsonresults.h"
#include "cli/frame/texts.h"
#include "cli/servers/commands.h"
#include "services/hdl/simtypelanguagemap.h"

namespace {

using TTexts = std::vector<std::string>;

TTexts LanguagesOf(const TSimulatorRecord& simulator) {
    TTexts texts;
    for (const THdlLanguage language : simulator.Languages)
        texts.emplace_back(GetStringFromHdlLanguage(language));
    return texts;
}

TTexts DefaultOf(const TSimulatorRecord& simulator) {
    TTexts texts;
    for (const THdlLanguage language : simulator.Languages)
        if (TSimTypeLanguageMap::instance()->GetDefaultSimulator(language) == simulator.Type)
            texts.emplace_back(GetStringFromHdlLanguage(language));
    return texts;
}

}  // namespace

int RunSimulators(const TServersArguments& arguments, const TToolStreams& streams) {
    std::vector<TTexts> rows = {{"NUMBER", "NAME", "DLL PREFIX", "LANGUAGES", "DEFAULT OF"}};
    TJson result = MakeResult("hdlbuild-simulators");
    for (const TSimulatorRecord& simulator : GetSimulatorTable()) {
        const int number = simulator.Type;
        const TTexts languages = LanguagesOf(simulator);
        const TTexts defaultOf = DefaultOf(simulator);
        rows.push_back({std::to_string(number), simulator.Name, simulator.DllNamePrefix,
                        JoinNames(languages), JoinNames(defaultOf)});
        result["simulators"].Add({{"number", number},
                                  {"name", simulator.Name},
                                  {"dllPrefix", simulator.DllNamePrefix},
                                  {"languages", languages},
                                  {"defaultOf", defaultOf}});
    }
    if (arguments.Json)
        PrintJson(result, streams);
    else
        PrintTable(std::move(rows), streams.Out);
    return kExitDone;
}
