#pragma once
#include "cli/frame/changereport.h"
#include "cli/servers/commands.h"
#include "simtools/simtoolserverclientcourier.h"
#include <optional>
#include <string>
#include <vector>

/// The tools of the server that the arguments name, in the simulators file that they name.
class TServerAccess {
public:
    TServerAccess(const TServersArguments& arguments, const TToolStreams& streams);

    /// Reads the tools, without showing messages. kExitUsage for a server whose file is not given,
    /// kExitFile when the file cannot be read, kExitProblems when a save would drop some of what it
    /// holds, each with one line on Err; with kExitProblems all that is known has been read. A
    /// missing file counts as one without tools, unless it is named and `mustExist` is set.
    int Read(bool mustExist);

    const std::vector<TBaseSimTool>& GetTools();
    TBaseSimToolServerClientCourier& GetCourier() { return Courier; }
    /// As the user named it, or the whole path of the default file.
    const std::string& GetFileText() const { return FileText; }

    /// Saves what differs from what was read, and prints it. `verb` names the command in JSON
    /// output. A file that has changed since it was read stays as it is: one line on Err, and
    /// kExitFile. (A save of others while the new file is being written is not noticed.)
    int Save(const char* verb);

private:
    bool ChooseFile();
    void GiveLanguagesLeft();
    TState GetState();
    std::string WriteFile();

    const TServersArguments& Arguments;
    const TToolStreams& Streams;
    const ISFileName* File = nullptr;
    std::string FileText;
    TBaseSimToolServerClientCourier Courier;
    std::optional<std::string> BytesRead;  // nothing without a file
    TState StateRead;
};
