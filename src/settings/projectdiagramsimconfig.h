#pragma once
#include "settings/projectsimconfig.h"

/// The configuration that diagrams simulate with: the defaults, where the settings of what the
/// simulator shows have fixed values.
///
/// Preparing for diagram use resets everything, so the source of a copying constructor and the
/// settings given to SetGeneralConfiguration have no effect. Assignment copies without preparing.
/// The operations here hide those of the base, which do not prepare.
class HDLBUILDFILE_API TProjectDiagramSimConfig : public TProjectSimConfig {
public:
    TProjectDiagramSimConfig();
    explicit TProjectDiagramSimConfig(const TProjectSimConfig& configuration);
    /// The argument has no effect, so it may be null.
    explicit TProjectDiagramSimConfig(const TProjectSimConfig* configuration);
    explicit TProjectDiagramSimConfig(std::nullptr_t);
    TProjectDiagramSimConfig(const TProjectDiagramSimConfig& other);
    TProjectDiagramSimConfig& operator=(const TProjectDiagramSimConfig& other) = default;
    ~TProjectDiagramSimConfig() override;

    /// Prepares for diagram use and names the configuration "Diagram Configuration".
    void ResetDiagramConfiguration();
    /// Prepares for diagram use again, which also empties the name; null is ignored.
    void SetGeneralConfiguration(const TProjectSimGeneralConfig& general);
    void SetGeneralConfiguration(const TProjectSimGeneralConfig* general);

    /// The diagram sections of the system's property cache: the general, the Verilog and the VHDL
    /// settings. A language whose section names no simulator is not read.
    void ReadFromINI();
    void WriteToINI() const;

private:
    void InitializeForDiagram();
};

namespace HdlBuildFile {

/// The process's diagram configuration, made on first use; never null, never destroyed.
HDLBUILDFILE_API TProjectDiagramSimConfig* GetTemplateDiagramSimConfig();

}  // namespace HdlBuildFile
