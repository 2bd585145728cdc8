#pragma once
#include "services/base/api.h"
#include "services/base/languagenumber.h"

class IBaseVisitor;
class TProjectSimGeneralConfig;
class TProjectSimLanguageConfig;

/// What owns project files and their lists, the build file for one. Files and lists keep plain
/// pointers: a component outlives every file and list that ever named it as their owner.
class HDLBUILDFILE_API IProjectComponent {
public:
    virtual ~IProjectComponent();
    /// The settings of `language`; null when there are none. They stay the component's.
    virtual TProjectSimLanguageConfig* GetProjectLanguageConfig(THdlLanguage language) = 0;
    /// The settings of all languages; null when there are none. They stay the component's.
    virtual TProjectSimGeneralConfig* GetGeneralConfiguration() const = 0;
    /// Told with true when a file was removed from one of the component's lists. Does nothing here.
    virtual void SetProjectModified(bool modified);
    /// Visits as IProjectComponent; null does nothing.
    virtual void Accept(IBaseVisitor* visitor) const;
};
