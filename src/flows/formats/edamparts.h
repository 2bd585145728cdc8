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
    /// An object with a member for each define, and for each run option of Verilog that is
    /// "+NAME" or "+NAME=VALUE"; null without one.
    TJson MakeParameters();
    /// Of the chosen top, else of all, separated by blanks; "" without one.
    std::string MakeTopLevel();
    /// Tells of what neither has words for.
    void LoseSettings();
    /// The name; what YAML cannot hold is refused.
    std::string TextOfName(const std::string& name);

private:
    TExportWriter& Writer;
};
