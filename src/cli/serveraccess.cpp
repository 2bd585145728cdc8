#include "cli/serveraccess.h"
#include "cli/filereports.h"
#include "sibling/fileservices/filereplace.h"
#include "sibling/fileservices/isfilename.h"
#include "simtools/serverconfigurationfilexmllist.h"

namespace {

/// What in the elements of a simulators file no courier keeps; "" for a file that it keeps whole.
std::string FindForeign(const TXMLList& document) {
    int depth = 0;
    for (DListIterator<TElement*> element(document); element.NotAtTail(); ++element) {
        const TElement& current = *element.Current();
        if (current.ElemType == TElement::END) --depth;
        if (current.ElemType != TElement::START) continue;
        const std::string name = current.Name.Str();
        const char* const expected = depth == 0 ? "ExternalSimulatorSettings" : "Tool";
        if (name != expected || depth > 1) return "the unknown element " + name;
        const char* const simulator = current.GetAttribute("Name");
        const auto type = static_cast<std::size_t>(GetSimulatorTypeFromName(simulator));
        if (depth == 1 && GetSimulatorTable()[type].Languages.empty())
            return "the unknown simulator '" + std::string(simulator) + "'";
        ++depth;
    }
    return "";
}

}  // namespace

TServerAccess::TServerAccess(const TToolArguments& arguments, const TToolStreams& streams)
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
    TServerConfigurationFileXMLList document(nullptr);
    const bool isRead = document.ReadFile(File->Canonical(false));
    TXMLReadError error = document.GetReadError();
    if (!isRead && (!error.Missing || (mustExist && !Arguments.SimulatorsFile.empty()))) {
        error.File = FileText;
        ReportError(Streams, ReadErrorText(error));
        return kExitFile;
    }
    Courier.ReadCurrentServerConfigFromFile(File, Arguments.Server.c_str());
    StateRead = GetState();
    const std::string foreign = FindForeign(document);
    if (foreign.empty()) return kExitDone;
    ReportError(Streams, FileText + ": a save would lose " + foreign);
    return kExitProblems;
}

const std::vector<TBaseSimTool>& TServerAccess::GetTools() {
    static const std::vector<TBaseSimTool> kNone;
    const auto* tools = Courier.GetSimToolList(TRope(Arguments.Server));
    return tools ? *tools : kNone;
}

// Every simulator has a value, so that those added and removed are reported.
TState TServerAccess::GetState() {
    TState state;
    for (const TSimulatorRecord& simulator : GetSimulatorTable()) {
        TJson value;
        for (const TBaseSimTool& tool : GetTools())
            if (tool.GetSimulatorType() == simulator.Type && value.is_null())
                value = {{"path", tool.GetExecutablePath()}, {"pliLibrary", tool.GetPliLibrary()}};
        state.emplace_back(Arguments.Server + ": " + simulator.Name, value);
    }
    return state;
}

int TServerAccess::Save(const char* verb) {
    TJson result = MakeResult(("hdlbuild-servers-" + std::string(verb)).c_str(), "file", FileText);
    result["server"] = Arguments.Server;
    const TFileChange change{std::move(result), FileText, StateRead, GetState()};
    return SaveChange(change, Arguments, Streams, [this] { return WriteFile(); });
}

std::string TServerAccess::WriteFile() {
    const TQuietMessageBox quiet;
    const char* const path = File->Canonical(false);
    // The application-data directory need not exist yet; a failure shows when the file is written.
    MakeDirectoryOf(path);
    // A server without tools is unknown to the courier, which then leaves the file alone.
    TServerConfigurationFileXMLList empty(nullptr);
    const bool isSaved =
        GetTools().empty() ? empty.WriteFile(path) : Courier.WriteCurrentServerConfigToFile(File);
    if (isSaved) return "";
    return quiet.GetText().empty() ? "the file cannot be written" : quiet.GetText();
}
