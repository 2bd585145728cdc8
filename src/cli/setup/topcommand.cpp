#include "buildfile/hdlbuildfile.h"
#include "cli/frame/buildaccess.h"
#include "cli/frame/jsonresults.h"
#include "cli/frame/languagenames.h"
#include "cli/setup/commands.h"
#include "flows/toptexts.h"
#include "services/hdl/hdllanguagetable.h"

namespace {

/// That of the arguments, else the top-level one. LANGUAGE_NONE, with one line on Err, without it.
THdlLanguage LanguageToAdd(const TSetupArguments& arguments, const THdlBuildFile& build,
                           const TToolStreams& streams) {
    if (!arguments.Language.empty()) return FindLanguage(arguments.Language, streams);
    const THdlLanguage language = build.GetTopLanguage();
    if (language == LANGUAGE_NONE)
        ReportError(streams, "the build has no top-level language: give --language");
    return language;
}

std::string ListedTexts(const THdlBuildFile& build, THdlLanguage language) {
    std::vector<std::string> texts;
    for (const TBuildTop& top : ListTops(build))
        if (language == LANGUAGE_NONE || top.Language == language) texts.push_back(TextOf(top));
    return texts.empty() ? "none" : JoinNames(texts);
}

}  // namespace

int RunTopList(const TSetupArguments& arguments, const TToolStreams& streams) {
    TBuildAccess access(arguments.Build, arguments, streams);
    if (const int status = access.Read(); status != kExitDone) return status;
    const THdlBuildFile& build = access.GetBuild();
    const bool isForced = build.GetForceTopLevelComponents();
    TJson components = TJson::Array();
    for (const TBuildTop& top : ListTops(build)) {
        if (!arguments.Json)
            PrintLine(streams.Out,
                      std::string(GetStringFromHdlLanguage(top.Language)) + " " + TextOf(top));
        components.Add(TopAsJson(top));
    }
    if (!arguments.Json) {
        if (isForced) PrintLine(streams.Out, "forced on the simulators");
        return kExitDone;
    }
    TJson result = MakeResult("hdlbuild-top-list", "build", arguments.Build);
    result["forced"] = isForced;
    result["components"] = std::move(components);
    PrintJson(result, streams);
    return kExitDone;
}

int RunTopAdd(const TSetupArguments& arguments, const TToolStreams& streams) {
    TBuildAccess access(arguments.Build, arguments, streams);
    if (const int status = access.ReadToChange(); status != kExitDone) return status;
    THdlBuildFile& build = access.GetBuild();
    const THdlLanguage language = LanguageToAdd(arguments, build, streams);
    if (language == LANGUAGE_NONE) return kExitUsage;
    std::vector<std::string> listed;
    for (const std::string& text : arguments.Components) {
        const TNamedTop named = ReadTopToAdd(text, language, build);
        if (!named.Complaint.empty()) {
            ReportError(streams, named.Complaint);
            return kExitUsage;
        }
        if (!AddTop(build, named.Top)) listed.push_back(TextOf(named.Top));
    }
    access.Note("alreadyListed", listed, " is a top-level component already");
    return access.Save("top-add");
}

int RunTopRemove(const TSetupArguments& arguments, const TToolStreams& streams) {
    THdlLanguage language = LANGUAGE_NONE;
    if (!arguments.Language.empty()) {
        language = FindLanguage(arguments.Language, streams);
        if (language == LANGUAGE_NONE) return kExitUsage;
    }
    TBuildAccess access(arguments.Build, arguments, streams);
    if (const int status = access.ReadToChange(); status != kExitDone) return status;
    for (const std::string& text : arguments.Components) {
        if (RemoveTopsCalled(text, language, access.GetBuild())) continue;
        ReportError(streams, "'" + text + "' is no top-level component; listed: " +
                                 ListedTexts(access.GetBuild(), language));
        return kExitUsage;
    }
    return access.Save("top-remove");
}

int RunTopForce(const TSetupArguments& arguments, const TToolStreams& streams) {
    if (arguments.State != "on" && arguments.State != "off") {
        ReportError(streams, "'" + arguments.State + "' is neither 'on' nor 'off'");
        return kExitUsage;
    }
    TBuildAccess access(arguments.Build, arguments, streams);
    if (const int status = access.ReadToChange(); status != kExitDone) return status;
    access.GetBuild().SetForceTopLevelComponents(arguments.State == "on");
    return access.Save("top-force");
}
