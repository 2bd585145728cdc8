#pragma once
#include "settings/projectsimconfiglist.h"
#include <memory>

class TKeeper;

/// The template configurations of the user, kept in the INI file.
class HDLBUILDFILE_API TProjectTemplateSimConfigList : public TProjectSimConfigList {
public:
    TProjectTemplateSimConfigList() = default;
    /// Copies the configurations and the starting name, not what ReadFromINI dropped.
    TProjectTemplateSimConfigList(const TProjectTemplateSimConfigList& other);
    TProjectTemplateSimConfigList& operator=(const TProjectTemplateSimConfigList& other);
    ~TProjectTemplateSimConfigList();

    /// The configuration that the INI file named as selected, else the current one; null when there
    /// is neither.
    TProjectSimConfig* GetStartingConfigOrCurrentConfig();
    const TProjectSimConfig* GetStartingConfigOrCurrentConfig() const;
    /// "" when there is none.
    const char* GetStartingConfigOrCurrentConfigName() const;

    /// Resets or adds the built-in templates; others stay as they are. The current one stays
    /// selected.
    void ResetAllTemplateConfigurations();

    /// The names and then every configuration, in the system's property cache. Reading replaces the
    /// list when the cache names a configuration; the former entries live as long as the list.
    void ReadFromINI();
    void WriteToINI() const;

private:
    TProjectSimConfig* ResetOrAddConfiguration(const char* name, bool debug);
    void ResetTemplate(const char* name, bool debug, TSimulatorType verilog, TSimulatorType vhdl);
    void ResetSimZConfiguration();
    void ResetNCSimConfiguration();
    void ResetModelSimConfiguration();

    std::string StartingName;
    std::shared_ptr<TKeeper> Former;  // made when the first entries are replaced
};

namespace HdlBuildFile {

/// The process's template list, made with the built-in templates on first use; never null, never
/// destroyed.
HDLBUILDFILE_API TProjectTemplateSimConfigList* GetTemplateSimConfigList();

}  // namespace HdlBuildFile
