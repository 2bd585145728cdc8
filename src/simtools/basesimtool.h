#pragma once
#include "services/hdl/simulatortype.h"
#include "services/xml/xmllist.h"
#include <string>

/// Which simulator serves one HDL language, where its executable is and which PLI library it loads.
class HDLBUILDFILE_API TBaseSimTool {
public:
    /// LANGUAGE_NONE, SIM_NONE and empty texts.
    TBaseSimTool() = default;
    TBaseSimTool(const TBaseSimTool& other) = default;
    TBaseSimTool& operator=(const TBaseSimTool& other) = default;
    virtual ~TBaseSimTool() = default;

    /// Stores the canonical form of `path`; empty stays empty, null counts as empty.
    virtual void SetExecutablePath(const char* path);
    /// Stores the text as typed; null counts as empty.
    virtual void SetPliLibrary(const char* library);
    /// Both are never null and live until the text changes.
    virtual const char* GetExecutablePath() const;
    virtual const char* GetPliLibrary() const;

    THdlLanguage GetLanguage() const { return Language; }
    void SetLanguage(THdlLanguage language) { Language = language; }
    TSimulatorType GetSimulatorType() const { return SimulatorType; }
    void SetSimulatorType(TSimulatorType type) { SimulatorType = type; }

    /// Reads the Tool element at `element` and leaves it past the element's END. True without
    /// reading anything when no Tool starts there; false when the document ends with the start of a
    /// Tool, whose simulator and paths are then set.
    bool ReadFromFile(DListIterator<TElement*>& element);
    /// Pushes the Tool element. `document` stays the caller's; null does nothing.
    void WriteToFile(TXMLList* document) const;

protected:
    THdlLanguage Language = LANGUAGE_NONE;
    std::string ExecutablePath;
    std::string PliLibrary;
    TSimulatorType SimulatorType = SIM_NONE;
};
