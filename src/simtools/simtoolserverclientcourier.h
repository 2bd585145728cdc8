#pragma once
#include "services/base/observer.h"
#include "services/base/rope.h"
#include "simtools/basesimtool.h"
#include "simtools/basesimtoolcourierobserver.h"
#include <map>
#include <string>
#include <vector>

class ISFileName;
class TSimToolSettings;

/// Knows which simulators are available on which server, keeps one current server, and reads and
/// writes the current server's tools from and to the simulators file. Server names are compared
/// byte by byte; null names count as empty.
///
/// A server's vector holds one record for each language that a simulator supports, one after the
/// other. A pointer to a record, or to a server's vector, lives until the next operation that adds
/// tools to that server or removes tools from it. Copies share the registered observers.
class HDLBUILDFILE_API TBaseSimToolServerClientCourier
    : public TEmbeddedObserverMgr<ABaseSimToolCourierObserver> {
public:
    using TSimTools = std::vector<TBaseSimTool>;

    /// Knows the server "localhost" with the tools of SIM_ZORVIK_CL; there is no current server.
    TBaseSimToolServerClientCourier();
    TBaseSimToolServerClientCourier(const TBaseSimToolServerClientCourier& other) = default;
    TBaseSimToolServerClientCourier& operator=(const TBaseSimToolServerClientCourier& other) =
        default;
    ~TBaseSimToolServerClientCourier() override = default;

    /// The server's first tool of the type of `tool`; when it has none, appends a copy of `tool`
    /// (of its TBaseSimTool part) for each language of the type, notifies the observers and returns
    /// the last record added. A simulator without languages gives the vector's last record, or
    /// null. Null when `tool` is null or an observer removed the record.
    TBaseSimTool* AddServerAndTool(TRope server, TBaseSimTool* tool);
    /// The same with a tool of empty paths, for the caller to fill.
    TBaseSimTool* CreateOrGetSimTool(const char* server, TSimulatorType type);
    /// Removes the records of the tool's simulator, and with its last record the server, except
    /// "localhost"; notifies the observers. False, with nothing done, when there is no such record.
    bool RemoveServerAndTool(TRope server, TBaseSimTool* tool);

    /// Null when there is none. A current server that is unknown becomes a known one without tools,
    /// which GetServerNameList does not list.
    TBaseSimTool* GetSimTool(TSimulatorType type);
    /// Null when the server is unknown.
    TSimTools* GetSimToolList(TRope server);
    TSimTools* GetCurrentSimToolList();
    /// In the order in which they were first added.
    std::vector<TRope> GetServerNameList() const { return ServerNames; }

    TRope GetCurrentServerName() const { return TRope(CurrentServerName); }
    /// Valid until the current server changes.
    const char* GetCurrentServerNameString() const { return CurrentServerName.c_str(); }
    /// An unknown server logs a failed check, leaves no current server and gives false.
    bool SetCurrentServerName(TRope server);
    /// Adds the tool of `settings` to its remote host, or to "localhost", and makes that the
    /// current server. Nothing happens without an executable path, or without a name of the remote
    /// host.
    void InitializeServerList(TSimToolSettings* settings);

    /// "simulators.cfg" in the application-data directory as it was at the first call. Shared
    /// handle.
    static const ISFileName* GetDefaultSimConfigFile();

    /// Makes `server`, known or not, the current server and adds the file's tools to it; tools that
    /// the file lacks stay. Notifies nobody. Of a new simulator with two languages, the last record
    /// is filled first, so its languages may come back in another order. False when the file is
    /// missing or cannot be parsed; nothing is added then.
    bool ReadCurrentServerConfigFromFile(const ISFileName* file, const char* server);
    /// The same from the default file.
    bool ReadServerConfigFromFile(const char* server);
    /// The same under the settings' remote host name, even when they are not on a remote host.
    bool ReadServerConfigFromFile(TSimToolSettings* settings);

    /// Writes the current server's tools. False when that failed; an unknown current server logs a
    /// failed check and leaves the file alone.
    bool WriteCurrentServerConfigToFile(const ISFileName* file);
    /// The same to the default file. The argument is reserved: no effect.
    bool WriteServerConfigToFile(const char* server);
    bool WriteServerConfigToFile(TSimToolSettings* settings);

    /// Calls an operation of every observer.
    void PingObservers(void (ABaseSimToolCourierObserver::*operation)()) const;

protected:
    friend class TServerConfigurationFileXMLList;
    /// Adds the tools from the section's first element on. False when the document ends with the
    /// start of a Tool.
    bool ReadFromFile(DListIterator<TElement*>& element);
    /// Pushes the current server's tools; nothing at all when there are none.
    void WriteToFile(TXMLList* document) const;

private:
    static TBaseSimTool* FindSimTool(TSimTools* tools, TSimulatorType type);
    static void AppendTool(TSimTools& tools, TBaseSimTool record);
    static TBaseSimTool* FindLastAdded(TSimTools* tools, TSimulatorType type);
    TSimTools& MapAndListServer(const TRope& server);
    TBaseSimTool* CreateOrGetSimToolSilently(const TRope& server, TSimulatorType type);
    const TSimTools* FindCurrentToolsToWrite() const;
    void NotifySimToolsChanged() const;

    std::map<TRope, TSimTools> ServerToToolMap;
    std::vector<TRope> ServerNames;
    std::string CurrentServerName;
};
