#pragma once
#include "flows/formats/exportwriter.h"
#include "flows/trees/json.h"
#include <string>
#include <vector>

/// Whether the file is one of Verilog that counts when something instantiates its modules: tools
/// have an option for it, EDAM has no word.
inline bool IsVerilogLibraryFile(const TPlanSource& source) {
    return source.IsLibraryFile && source.Language == LANGUAGE_VERILOG;
}

/// Whether a tool is called where relative paths of the file lead to the same folders.
enum TEdamFolders : int { EDAM_FOLDERS_STAY, EDAM_FOLDERS_MOVE };

/// What EDAM says in "tool_options", and a core of FuseSoC in "tools": settings that no file and no
/// parameter has, in the words of Icarus Verilog, Verilator and GHDL. The words go through a
/// makefile and a shell; what those would change is refused, or told as lost.
class TEdamTools {
public:
    /// `writer` must outlive the object.
    TEdamTools(TExportWriter* writer, TEdamFolders folders) : Writer(*writer), Folders(folders) {}

    /// An object with a member for each tool that has something to be told; null for none.
    TJson Make();

private:
    using TWords = std::vector<std::string>;

    void AddLanguage();
    void AddFolders();
    void AddLibraryFiles();
    void AddVerilogOptions(TPlanStep step);
    void AddVhdl();
    TWords WordsForGhdl(TPlanStep step);
    bool IsSimulatedAlone() const;
    std::string Checked(const std::string& name, bool isInList);

    TExportWriter& Writer;
    TEdamFolders Folders;
    TWords Icarus;
    TWords Verilator;
    TJson Tools;
};
