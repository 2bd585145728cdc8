#include "simtools/serverconfigurationfilexmllist.h"

#include "services/xml/xmlstream.h"
#include "simtools/simtoolserverclientcourier.h"

TServerConfigurationFileXMLList::TServerConfigurationFileXMLList(
    TBaseSimToolServerClientCourier* courier)
    : Courier(courier) {
    SetDocumentType("<!DOCTYPE HdlBuildFileList SYSTEM \"serverconfigurationfile.dtd\">");
}

void TServerConfigurationFileXMLList::FillElements() {
    if (Courier) Courier->WriteToFile(this);
}

bool TServerConfigurationFileXMLList::InterpretElements() {
    DListIterator<TElement*> element(*this);
    if (Courier && IsAtStart(element, "ExternalSimulatorSettings")) Courier->ReadFromFile(element);
    return true;
}
