#include "flows/textreaders.h"
#include "buildfile/hdlbuildfile.h"
#include "buildfile/hdlbuildfilexmllist.h"
#include "flows/editedfile.h"
#include "services/xml/xmlsectionfile.h"
#include "settings/projectsimsettings.h"
#include "simtools/serverconfigurationfilexmllist.h"
#include "simtools/simtoolserverclientcourier.h"

namespace {

/// A document that is handed to its model as after ReadFile.
template <class TDocument>
class TDocumentInMemory : public TDocument {
public:
    using TDocument::TDocument;

    bool Read(const std::string& document, TXMLReadError* error) {
        return this->ReadFromText(document, error) && this->InterpretElements();
    }
    bool Read(TEditedFile* file, TXMLReadError* error) {
        return file->ReadInto(this, error) && this->InterpretElements();
    }
};

/// The section of the settings, which is not written.
class TSettingsSection : public TXMLSectionFile {
public:
    TSettingsSection() : TXMLSectionFile("ProjectSettings", "SimulationProject", CHILD_OF_ROOT) {}

protected:
    void FillSection() override {}
};

}  // namespace

bool ReadBuildText(const std::string& document, const ISFileName* file, THdlBuildFile* build,
                   TXMLReadError* error) {
    build->SetBuildFileName(file);
    TDocumentInMemory<THdlBuildFileXMLList> list(build);
    return list.Read(document, error);
}

bool ReadBuildText(TEditedFile* file, THdlBuildFile* build, TXMLReadError* error) {
    build->SetBuildFileName(file->GetFile());
    TDocumentInMemory<THdlBuildFileXMLList> list(build);
    return list.Read(file, error);
}

bool ReadSimulatorsText(const std::string& document, const char* server,
                        TBaseSimToolServerClientCourier* courier, TXMLReadError* error) {
    // Without a file this chooses the server, known or not, and reads nothing.
    (void)courier->ReadCurrentServerConfigFromFile(nullptr, server);
    TDocumentInMemory<TServerConfigurationFileXMLList> list(courier);
    return list.Read(document, error);
}

THpjFileResult ReadProjectText(const std::string& document, const ISFileName* file,
                               TProjectSimSettings* settings, TXMLReadError* error) {
    settings->SetProjectFileName(file);
    TDocumentInMemory<TSettingsSection> list;
    if (!list.Read(document, error)) return HPJ_FILE_UNREADABLE;
    if (!list.HasParent()) return HPJ_FILE_FOREIGN;
    if (list.GetSectionCount() > 1) return HPJ_FILE_REPEATED_SETTINGS;
    if (list.GetSectionCount() == 0) return HPJ_FILE_DONE;
    DListIterator<TElement*> section = list.GetSection();
    return settings->ReadFromFile(section, file) ? HPJ_FILE_DONE : HPJ_FILE_INVALID_SETTINGS;
}
