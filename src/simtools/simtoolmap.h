#pragma once
#include "services/base/keeper.h"
#include "simtools/basesimtool.h"
#include <map>
#include <memory>
#include <vector>

/// The simulator tools of a build, one for each language that has one. Keeps the build file's
/// "ExternalSimulatorSettings" section.
class TSimToolMap {
public:
    TSimToolMap() = default;
    TSimToolMap(const TSimToolMap&) = delete;
    TSimToolMap& operator=(const TSimToolMap&) = delete;

    /// Takes ownership and maps the tool under its present language. A tool that is added again
    /// with another language stays mapped under the earlier one, too. A tool that this one replaces
    /// stays valid as long as the map or GetCallersShare(). Null is ignored.
    void AddSimTool(TBaseSimTool* tool);

    /// False when the language has none. The tool stays valid as one that is replaced.
    bool RemoveSimTool(THdlLanguage language);

    /// Null when the language has none. The tool stays the map's.
    const TBaseSimTool* GetSimTool(THdlLanguage language) const;
    TBaseSimTool* GetSimTool(THdlLanguage language);

    /// The languages that have a tool, in numeric order.
    std::vector<THdlLanguage> GetSimToolLanguages() const;

    /// Adds the tools of the section that starts at `element`, or of the Tool elements there; a
    /// tool replaces the one that its language had. Leaves `element` behind the section, or at the
    /// first element in it that does not start a Tool. Always true.
    bool ReadFromFile(DListIterator<TElement*>& element);

    /// Pushes the section, languages in numeric order; nothing at all without tools. `document`
    /// stays the caller's; null does nothing.
    void WriteToFile(TXMLList* document) const;

    /// Deletes the mapped tools.
    void Clear();

    /// The tools that callers added. Those that were read go with the map.
    const std::shared_ptr<TKeeper>& GetCallersShare() const { return CallersShare; }

private:
    std::map<THdlLanguage, TBaseSimTool*> Tools;
    // The tools mapped and those replaced.
    std::shared_ptr<TKeeper> CallersShare = std::make_shared<TKeeper>();
    TKeeper Read;
};
