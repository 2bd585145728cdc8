#pragma once
#include "cli/frame/changereport.h"
#include "cli/servers/commands.h"
#include "flows/editedfile.h"
#include "simtools/simtoolserverclientcourier.h"
#include <optional>
#include <string>
#include <vector>

/// The tools of the server that the arguments name, in the simulators file that they name.
class TServerAccess {
public:
    TServerAccess(const TServersArguments& arguments, const TToolStreams& streams);

    /// Reads the tools. kExitUsage for a server whose file is not given, kExitFile when the file
    /// cannot be read or, to change it unless for a dry run, locked; each with one line on Err. A
    /// missing file counts as one without tools, unless it is named and `mustExist` is set.
    int Read(bool mustExist);
    int ReadToChange(bool mustExist);

    std::vector<TBaseSimTool> GetTools() { return ToolsOf(Courier, Arguments.Server); }
    TBaseSimToolServerClientCourier& GetCourier() { return Courier; }
    /// As the user named it, or the whole path of the default file.
    const std::string& GetFileText() const { return FileText; }

    /// Saves what differs from what was read, and prints it. `verb` names the command in JSON
    /// output. Only the records that changed are edited. A file that has changed since it was read,
    /// and one that cannot take the change, stays as it is: one line on Err, and kExitFile.
    int Save(const char* verb);

private:
    bool ChooseFile();
    int ReadFile(bool mustExist);
    static std::vector<TBaseSimTool> ToolsOf(TBaseSimToolServerClientCourier& courier,
                                             const std::string& server);
    bool ReadTools(const std::string& document, TBaseSimToolServerClientCourier* courier,
                   TXMLReadError* error) const;
    static void GiveLanguagesLeft(std::vector<TBaseSimTool>* tools);
    TState StateOf(const std::vector<TBaseSimTool>& tools) const;
    std::string Change(const TState& state);
    std::string Make();

    const TServersArguments& Arguments;
    const TToolStreams& Streams;
    std::optional<TEditedFile> File;
    std::string FileText;
    TBaseSimToolServerClientCourier Courier;
    std::vector<TBaseSimTool> ToolsRead;
};
