#include "cli/servers/serveraccess.h"
#include "cli/frame/filereports.h"
#include "cli/frame/jsonresults.h"
#include "flows/editrules.h"
#include "flows/textreaders.h"
#include "services/files/filereplace.h"
#include "services/hdl/hdllanguagetable.h"
#include "services/names/isfilename.h"
#include "simtools/serverconfigurationfilexmllist.h"
#include <algorithm>
#include <map>
#include <utility>

namespace {

void PushTools(const std::vector<TBaseSimTool>& tools, TXMLList* document) {
    document->Push(TElement::START, "ExternalSimulatorSettings", {});
    for (const TBaseSimTool& tool : tools) tool.WriteToFile(document);
    document->Push(TElement::END, "ExternalSimulatorSettings", {});
}

/// The text before the colon when a change of a record is reported.
std::string RecordName(const std::string& server, TSimulatorType type, THdlLanguage language) {
    return server + ": " + GetSimulatorNameFromType(type) + " " +
           GetStringFromHdlLanguage(language);
}

}  // namespace

TServerAccess::TServerAccess(const TServersArguments& arguments, const TToolStreams& streams)
    : Arguments(arguments), Streams(streams) {}

bool TServerAccess::ChooseFile() {
    if (!Arguments.SimulatorsFile.empty()) {
        FileText = Arguments.SimulatorsFile;
        File.emplace(ISFileName::NewISFileName(FileText.c_str()));
    } else if (Arguments.Server == "localhost") {
        File.emplace(TBaseSimToolServerClientCourier::GetDefaultSimConfigFile());
        FileText = File->GetFile()->Canonical(false);
    }
    if (!File)
        ReportError(Streams, "the default file holds the tools of localhost: give the file of '" +
                                 Arguments.Server + "' with --file");
    return File.has_value();
}

int TServerAccess::Read(bool mustExist) {
    return ChooseFile() ? ReadFile(mustExist) : kExitUsage;
}

int TServerAccess::ReadToChange(bool mustExist) {
    if (!ChooseFile()) return kExitUsage;
    if (Arguments.DryRun) return ReadFile(mustExist);
    // The application-data directory need not exist yet; a failure shows when the file is locked.
    if (!mustExist) MakeDirectoryOf(File->GetFile()->Canonical(false));
    File->TakeLock();
    return ReadFile(mustExist);
}

int TServerAccess::ReadFile(bool mustExist) {
    TXMLReadError error;
    const bool mayBeMissing = !mustExist || Arguments.SimulatorsFile.empty();
    const bool isRead = File->Read(&error);
    const bool hasNothing = error.Missing && mayBeMissing;
    if (!hasNothing && (!isRead || !ReadTools(File->GetBytes(), &Courier, &error))) {
        ReportReadError(error, FileText, Streams);
        return kExitFile;
    }
    ToolsRead = GetTools();
    return kExitDone;
}

bool TServerAccess::ReadTools(const std::string& document, TBaseSimToolServerClientCourier* courier,
                              TXMLReadError* error) const {
    if (!ReadSimulatorsText(document, Arguments.Server.c_str(), courier, error)) return false;
    if (auto* tools = courier->GetSimToolList(TRope(Arguments.Server))) GiveLanguagesLeft(tools);
    return true;
}

// When a file lists a simulator for some of its languages only, the reader adds the other records
// with languages in the order of the table, even those that the file has. Such records get the
// languages that are left.
void TServerAccess::GiveLanguagesLeft(std::vector<TBaseSimTool>* tools) {
    const auto count = [tools](TSimulatorType type, THdlLanguage language) {
        return std::count_if(tools->begin(), tools->end(), [=](const TBaseSimTool& tool) {
            return tool.GetSimulatorType() == type && tool.GetLanguage() == language;
        });
    };
    for (TBaseSimTool& tool : *tools) {
        const TSimulatorType type = tool.GetSimulatorType();
        if (count(type, tool.GetLanguage()) == 1) continue;
        for (const THdlLanguage language :
             GetSimulatorTable()[static_cast<std::size_t>(type)].Languages)
            if (count(type, language) == 0) tool.SetLanguage(language);
    }
}

std::vector<TBaseSimTool> TServerAccess::ToolsOf(TBaseSimToolServerClientCourier& courier,
                                                 const std::string& server) {
    const auto* tools = courier.GetSimToolList(TRope(server));
    return tools ? *tools : std::vector<TBaseSimTool>();
}

// Every possible record has a value, null for an absent one: added and removed records are
// reported.
TState TServerAccess::StateOf(const std::vector<TBaseSimTool>& tools) const {
    std::map<std::string, TJson> values;
    for (const TBaseSimTool& tool : tools)
        values[RecordName(Arguments.Server, tool.GetSimulatorType(), tool.GetLanguage())] = {
            {"path", tool.GetExecutablePath()}, {"pliLibrary", tool.GetPliLibrary()}};
    TState state;
    for (const TSimulatorRecord& simulator : GetSimulatorTable())
        for (const THdlLanguageRecord& language : GetHdlLanguageTable()) {
            const std::string name =
                RecordName(Arguments.Server, simulator.Type, language.Language);
            state.emplace_back(name, values[name]);
        }
    return state;
}

int TServerAccess::Save(const char* verb) {
    const TState wanted = StateOf(GetTools());
    const std::string reason = File->WasThere() ? Change(wanted) : Make();
    TJson result = MakeResult("hdlbuild-servers-" + std::string(verb), "file", FileText);
    result["server"] = Arguments.Server;
    return SaveEditedFile({std::move(result), FileText, StateOf(ToolsRead), wanted}, reason, *File,
                          Arguments, Streams);
}

std::string TServerAccess::Change(const TState& state) {
    TXMLList base;
    TXMLList wanted;
    PushTools(ToolsRead, &base);
    PushTools(GetTools(), &wanted);
    return File->Change(base, wanted, MakeSimulatorsFileRules(), [&](const std::string& edited) {
        TBaseSimToolServerClientCourier courier;
        return ReadTools(edited, &courier, nullptr) &&
               StateOf(ToolsOf(courier, Arguments.Server)) == state;
    });
}

std::string TServerAccess::Make() {
    TServerConfigurationFileXMLList list(nullptr);
    PushTools(GetTools(), &list);
    std::string document;
    std::string reason;
    return list.WriteToText(&document, &reason) ? File->Make(document) : reason;
}
