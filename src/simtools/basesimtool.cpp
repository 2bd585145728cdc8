#include "simtools/basesimtool.h"

#include "services/names/utilfilename.h"
#include "services/xml/xmlstream.h"

void TBaseSimTool::SetExecutablePath(const char* path) {
    ExecutablePath = TUtilFileName(path, 1).Canonical(false);
}

void TBaseSimTool::SetPliLibrary(const char* library) {
    PliLibrary = library ? library : "";
}

const char* TBaseSimTool::GetExecutablePath() const {
    return ExecutablePath.c_str();
}

const char* TBaseSimTool::GetPliLibrary() const {
    return PliLibrary.c_str();
}

bool TBaseSimTool::ReadFromFile(DListIterator<TElement*>& element) {
    if (!IsAtStart(element, "Tool")) return true;
    SetSimulatorType(GetSimulatorTypeFromName(element.Current()->GetAttribute("Name")));
    SetExecutablePath(element.Current()->GetAttribute("Path"));
    SetPliLibrary(element.Current()->GetAttribute("PliLibPath"));
    ++element;
    if (!element.NotAtTail()) return false;
    // Without a text this is the Tool's own end, which gives no language.
    SetLanguage(GetHdlLanguageFromString(element.Current()->Text));
    ++element;
    SkipEnd(element);
    return true;
}

void TBaseSimTool::WriteToFile(TXMLList* document) const {
    if (!document) return;
    PushTextElement(document, "Tool", GetStringFromHdlLanguage(Language),
                    {{"Name", GetSimulatorNameFromType(SimulatorType)},
                     {"Path", GetExecutablePath()},
                     {"PliLibPath", GetPliLibrary()}});
}
