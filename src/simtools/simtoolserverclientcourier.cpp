#include "simtools/simtoolserverclientcourier.h"

#include "services/files/directories.h"
#include "services/hdl/simtypelanguagemap.h"
#include "services/logging/binarylog.h"
#include "services/names/isfilename.h"
#include "services/names/utilfilename.h"
#include "services/xml/xmlstream.h"
#include "simtools/serverconfigurationfilexmllist.h"
#include "simtools/simtoolsettings.h"
#include <algorithm>

namespace {

constexpr const char* kSource = "simtoolserverclientcourier";
constexpr const char* kLocalServer = "localhost";
constexpr const char* kServersSection = "ExternalSimulatorSettings";

const std::vector<THdlLanguage>& LanguagesOf(TSimulatorType type) {
    return TSimTypeLanguageMap::instance()->GetHdlLanguageList(type);
}

TBaseSimTool ToolOfType(TSimulatorType type) {
    TBaseSimTool tool;
    tool.SetSimulatorType(type);
    return tool;
}

}  // namespace

TBaseSimToolServerClientCourier::TBaseSimToolServerClientCourier() {
    CreateOrGetSimTool(kLocalServer, SIM_ZORVIK_CL);
}

TBaseSimTool* TBaseSimToolServerClientCourier::AddServerAndTool(TRope server, TBaseSimTool* tool) {
    if (!tool) return nullptr;
    TSimTools& tools = MapAndListServer(server);
    if (TBaseSimTool* known = FindSimTool(&tools, tool->GetSimulatorType())) return known;
    const TSimulatorType type = tool->GetSimulatorType();
    AppendTool(tools, *tool);
    NotifySimToolsChanged();
    // Observers may have added and removed tools themselves.
    return FindLastAdded(GetSimToolList(server), type);
}

TBaseSimTool* TBaseSimToolServerClientCourier::CreateOrGetSimTool(const char* server,
                                                                  TSimulatorType type) {
    TBaseSimTool tool = ToolOfType(type);
    return AddServerAndTool(server, &tool);
}

bool TBaseSimToolServerClientCourier::RemoveServerAndTool(TRope server, TBaseSimTool* tool) {
    TSimTools* tools = GetSimToolList(server);
    if (!tools || !tool) return false;
    // `tool` may be one of the records that go.
    const TSimulatorType type = tool->GetSimulatorType();
    const auto isOfType = [type](const TBaseSimTool& record) {
        return record.GetSimulatorType() == type;
    };
    const auto first = std::find_if(tools->begin(), tools->end(), isOfType);
    if (first == tools->end()) return false;
    const auto blockEnd = std::find_if_not(first, tools->end(), isOfType);
    const auto languages = static_cast<std::ptrdiff_t>(LanguagesOf(type).size());
    tools->erase(first, first + std::min(languages, blockEnd - first));
    if (tools->empty() && server != TRope(kLocalServer)) {
        std::erase(ServerNames, server);
        ServerToToolMap.erase(server);
    }
    NotifySimToolsChanged();
    return true;
}

TBaseSimTool* TBaseSimToolServerClientCourier::GetSimTool(TSimulatorType type) {
    return FindSimTool(&ServerToToolMap[CurrentServerName], type);
}

TBaseSimToolServerClientCourier::TSimTools* TBaseSimToolServerClientCourier::GetSimToolList(
    TRope server) {
    const auto entry = ServerToToolMap.find(server);
    return entry == ServerToToolMap.end() ? nullptr : &entry->second;
}

TBaseSimToolServerClientCourier::TSimTools*
TBaseSimToolServerClientCourier::GetCurrentSimToolList() {
    return GetSimToolList(CurrentServerName);
}

bool TBaseSimToolServerClientCourier::SetCurrentServerName(TRope server) {
    static TCheckSite site(
        "ServerToToolMap.find(serverName) != ServerToToolMap.end() && \"Error: Server doesn't "
        "exist\"",
        kSource, 176);
    const bool isKnown = ServerToToolMap.count(server) > 0;
    if (!isKnown) site.Report();
    CurrentServerName = isKnown ? server.Str() : "";
    return isKnown;
}

void TBaseSimToolServerClientCourier::InitializeServerList(TSimToolSettings* settings) {
    if (!settings || !*settings->GetExecutablePath()) return;
    if (settings->GetOnRemoteHost() && settings->GetRemoteHostName().empty()) return;
    const TRope server =
        settings->GetOnRemoteHost() ? TRope(settings->GetRemoteHostName()) : TRope(kLocalServer);
    AddServerAndTool(server, settings);
    SetCurrentServerName(server);
}

const ISFileName* TBaseSimToolServerClientCourier::GetDefaultSimConfigFile() {
    static const ISFileName* const file = [] {
        TUtilFileName path(GetTalveraAppDataDirectory(), 1);
        path.PushFileName("simulators.cfg");
        return ISFileName::NewISFileName(path.Canonical(false));
    }();
    return file;
}

bool TBaseSimToolServerClientCourier::ReadCurrentServerConfigFromFile(const ISFileName* file,
                                                                      const char* server) {
    CurrentServerName = server ? server : "";
    if (!file) return false;
    TServerConfigurationFileXMLList document(this);
    return document.ReadFile(file->Canonical(false), nullptr);
}

bool TBaseSimToolServerClientCourier::ReadServerConfigFromFile(const char* server) {
    return ReadCurrentServerConfigFromFile(GetDefaultSimConfigFile(), server);
}

bool TBaseSimToolServerClientCourier::ReadServerConfigFromFile(TSimToolSettings* settings) {
    return settings && ReadServerConfigFromFile(settings->GetRemoteHostName().c_str());
}

bool TBaseSimToolServerClientCourier::WriteCurrentServerConfigToFile(const ISFileName* file) {
    // Asked before the file is touched: a file of an unknown server would lose its tools.
    if (!file || !FindCurrentToolsToWrite()) return false;
    TServerConfigurationFileXMLList document(this);
    return document.WriteFile(file->Canonical(false));
}

bool TBaseSimToolServerClientCourier::WriteServerConfigToFile(const char*) {
    return WriteCurrentServerConfigToFile(GetDefaultSimConfigFile());
}

bool TBaseSimToolServerClientCourier::WriteServerConfigToFile(TSimToolSettings* settings) {
    return settings && WriteServerConfigToFile(settings->GetOnRemoteHost()
                                                   ? settings->GetRemoteHostName().c_str()
                                                   : kLocalServer);
}

void TBaseSimToolServerClientCourier::PingObservers(
    void (ABaseSimToolCourierObserver::*operation)()) const {
    if (!operation) return;
    TNotifyNoArg<ABaseSimToolCourierObserver> ping(operation);
    ForEach(ping);
}

bool TBaseSimToolServerClientCourier::ReadFromFile(DListIterator<TElement*>& element) {
    if (IsAtStart(element, kServersSection)) ++element;
    while (IsAtStart(element, "Tool")) {
        const TSimulatorType type =
            GetSimulatorTypeFromName(element.Current()->GetAttribute("Name"));
        TBaseSimTool* tool = CreateOrGetSimToolSilently(CurrentServerName, type);
        // A simulator without languages has no record: filling the last one of another simulator
        // would overwrite it.
        if (!tool || tool->GetSimulatorType() != type)
            SkipElement(element);
        else if (!tool->ReadFromFile(element))
            return false;
        SkipEnd(element);
    }
    return true;
}

void TBaseSimToolServerClientCourier::WriteToFile(TXMLList* document) const {
    const TSimTools* tools = FindCurrentToolsToWrite();
    if (!document || !tools || tools->empty()) return;
    PushStart(document, kServersSection);
    for (const TBaseSimTool& tool : *tools) tool.WriteToFile(document);
    PushEnd(document, kServersSection);
}

TBaseSimTool* TBaseSimToolServerClientCourier::FindSimTool(TSimTools* tools, TSimulatorType type) {
    for (TBaseSimTool& tool : *tools)
        if (tool.GetSimulatorType() == type) return &tool;
    return nullptr;
}

// A server that GetSimTool mapped is known already, and stays unlisted.
TBaseSimToolServerClientCourier::TSimTools& TBaseSimToolServerClientCourier::MapAndListServer(
    const TRope& server) {
    const auto [entry, isNew] = ServerToToolMap.try_emplace(server);
    if (isNew) ServerNames.push_back(server);
    return entry->second;
}

void TBaseSimToolServerClientCourier::AppendTool(TSimTools& tools, TBaseSimTool record) {
    for (const THdlLanguage language : LanguagesOf(record.GetSimulatorType())) {
        record.SetLanguage(language);
        tools.push_back(record);
    }
}

// The last record of the block that AppendTool made. A simulator without languages has no block:
// for it the result is the vector's last record.
TBaseSimTool* TBaseSimToolServerClientCourier::FindLastAdded(TSimTools* tools,
                                                             TSimulatorType type) {
    if (!tools) return nullptr;
    const auto record = std::find_if(tools->rbegin(), tools->rend(), [type](const auto& tool) {
        return tool.GetSimulatorType() == type || LanguagesOf(type).empty();
    });
    return record == tools->rend() ? nullptr : &*record;
}

TBaseSimTool* TBaseSimToolServerClientCourier::CreateOrGetSimToolSilently(const TRope& server,
                                                                          TSimulatorType type) {
    TSimTools& tools = MapAndListServer(server);
    if (TBaseSimTool* known = FindSimTool(&tools, type)) return known;
    AppendTool(tools, ToolOfType(type));
    return FindLastAdded(&tools, type);
}

const TBaseSimToolServerClientCourier::TSimTools*
TBaseSimToolServerClientCourier::FindCurrentToolsToWrite() const {
    static TCheckSite site(
        "serverMapI != ServerToToolMap.end() && \"Error: Current Server doesn't exist\"", kSource,
        271);
    const auto entry = ServerToToolMap.find(TRope(CurrentServerName));
    if (entry != ServerToToolMap.end()) return &entry->second;
    site.Report();
    return nullptr;
}

void TBaseSimToolServerClientCourier::NotifySimToolsChanged() const {
    TNotifyOneArg<ABaseSimToolCourierObserver, void*> changed(
        &ABaseSimToolCourierObserver::OnSimToolsChanged, nullptr);
    ForEach(changed);
}
