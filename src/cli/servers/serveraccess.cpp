#include "cli/servers/serveraccess.h"
#include "cli/frame/filereports.h"
#include "cli/servers/serversloss.h"
#include "services/files/filereplace.h"
#include "services/hdl/hdllanguagetable.h"
#include "services/names/isfilename.h"
#include "simtools/serverconfigurationfilexmllist.h"
#include <algorithm>
#include <map>

namespace {

/// Nothing when the file cannot be read.
std::optional<std::string> BytesOf(const ISFileName* file) {
    std::string bytes;
    if (ReadWholeFile(file->Canonical(false), &bytes, nullptr) != FILE_READ_DONE) return {};
    return bytes;
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
        File = ISFileName::NewISFileName(FileText.c_str());
    } else if (Arguments.Server == "localhost") {
        File = TBaseSimToolServerClientCourier::GetDefaultSimConfigFile();
        FileText = File->Canonical(false);
    }
    if (!File)
        ReportError(Streams, "the default file holds the tools of localhost: give the file of '" +
                                 Arguments.Server + "' with --file");
    return File != nullptr;
}

int TServerAccess::Read(bool mustExist) {
    if (!ChooseFile()) return kExitUsage;
    const TQuietMessageBox quiet;
    BytesRead = BytesOf(File);
    TXMLList document;
    document.SetHoldsRoot(true);
    const bool isRead = document.ReadFile(File->Canonical(false));
    const bool mayBeMissing = !mustExist || Arguments.SimulatorsFile.empty();
    if (!isRead && !(document.GetReadError().Missing && mayBeMissing)) {
        ReportReadError(document.GetReadError(), FileText, Streams);
        return kExitFile;
    }
    Courier.ReadCurrentServerConfigFromFile(File, Arguments.Server.c_str());
    const std::string loss = FindServersLoss(document);
    if (loss.empty()) GiveLanguagesLeft();
    StateRead = GetState();
    if (loss.empty()) return kExitDone;
    ReportError(Streams, FileText + ": a save would lose " + loss);
    return kExitProblems;
}

// When a file lists a simulator for some of its languages only, the reader adds the other records
// with languages in the order of the table, even those that the file has. Such records get the
// languages that are left.
void TServerAccess::GiveLanguagesLeft() {
    auto* tools = Courier.GetSimToolList(TRope(Arguments.Server));
    if (!tools) return;
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

const std::vector<TBaseSimTool>& TServerAccess::GetTools() {
    static const std::vector<TBaseSimTool> kNone;
    const auto* tools = Courier.GetSimToolList(TRope(Arguments.Server));
    return tools ? *tools : kNone;
}

// Every possible record has a value, null for an absent one: added and removed records are
// reported.
TState TServerAccess::GetState() {
    std::map<std::string, TJson> values;
    for (const TBaseSimTool& tool : GetTools())
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
    TJson result = MakeResult("hdlbuild-servers-" + std::string(verb), "file", FileText);
    result["server"] = Arguments.Server;
    const TFileChange change{std::move(result), FileText, StateRead, GetState()};
    return SaveChange(change, Arguments, Streams, [this] { return WriteFile(); });
}

std::string TServerAccess::WriteFile() {
    const TQuietMessageBox quiet;
    const char* const path = File->Canonical(false);
    if (BytesOf(File) != BytesRead) return "the file has changed since it was read";
    // The application-data directory need not exist yet; a failure shows when the file is written.
    MakeDirectoryOf(path);
    // A server without tools is unknown to the courier, which then leaves the file alone.
    TServerConfigurationFileXMLList empty(nullptr);
    const bool isSaved =
        GetTools().empty() ? empty.WriteFile(path) : Courier.WriteCurrentServerConfigToFile(File);
    if (isSaved) return "";
    return quiet.GetText().empty() ? "the file cannot be written" : quiet.GetText();
}
