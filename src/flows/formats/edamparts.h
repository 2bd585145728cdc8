#pragma once
#include "flows/formats/exportwriter.h"
#include "flows/trees/json.h"
#include <string>

/// What EDAM files and the core files of FuseSoC have in common. Names that YAML cannot hold are
/// refused in both.
class TEdamParts {
public:
    /// `writer` must outlive the object.
    explicit TEdamParts(TExportWriter* writer) : Writer(*writer) {}

    /// "vhdlSource-2008"; "" for a language without a type, which is told.
    std::string FileTypeOf(const TPlanSource& source);
    /// Adds "file_type" and "logical_name" where they say something.
    void AddAttributes(const TPlanSource& source, TJson* file);
    /// An object with a member for each define; null without defines.
    TJson MakeParameters();
    /// Of the chosen top, else of all, separated by blanks; "" without one.
    std::string MakeTopLevel();
    /// For Icarus Verilog, what no file says: the language and the delays; null for nothing.
    TJson MakeToolOptions();
    /// Tells of what neither has words for, but for delays.
    void LoseSettings();
    /// The name; what YAML cannot hold is refused.
    std::string TextOfName(const std::string& name);

private:
    TExportWriter& Writer;
};
