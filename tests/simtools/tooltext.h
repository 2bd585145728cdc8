#pragma once
#include "services/xml/xmllist.h"
#include "simtools/basesimtool.h"
#include <string>
#include <vector>

/// A record as a line "simulator|executable|PLI library|language".
inline std::string TextOf(const TBaseSimTool& tool) {
    return std::string(GetSimulatorNameFromType(tool.GetSimulatorType())) + "|" +
           tool.GetExecutablePath() + "|" + tool.GetPliLibrary() + "|" +
           GetStringFromHdlLanguage(tool.GetLanguage()) + "\n";
}

/// The records of a server, a line each; "<unknown>" for null.
inline std::string TextOf(const std::vector<TBaseSimTool>* tools) {
    if (!tools) return "<unknown>";
    std::string lines;
    for (const TBaseSimTool& tool : *tools) lines += TextOf(tool);
    return lines;
}

/// Pushes a Tool element; a null language gives one without text.
inline void PushTool(TXMLList* document, const char* name, const char* path, const char* pliLibrary,
                     const char* language) {
    TAttributeList attributes;
    attributes.Psh("Name", name);
    attributes.Psh("Path", path);
    attributes.Psh("PliLibPath", pliLibrary);
    document->Psh("Tool", &attributes, TElement::START, nullptr);
    if (language) document->Psh("", nullptr, TElement::TEXT, language);
    document->Psh("Tool", nullptr, TElement::END, nullptr);
}
