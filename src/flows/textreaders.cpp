#include "flows/textreaders.h"
#include "buildfile/hdlbuildfile.h"
#include "buildfile/hdlbuildfilexmllist.h"
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
};

}  // namespace

bool ReadBuildText(const std::string& document, const ISFileName* file, THdlBuildFile* build,
                   TXMLReadError* error) {
    build->SetBuildFileName(file);
    TDocumentInMemory<THdlBuildFileXMLList> list(build);
    return list.Read(document, error);
}

bool ReadSimulatorsText(const std::string& document, const char* server,
                        TBaseSimToolServerClientCourier* courier, TXMLReadError* error) {
    // Without a file this chooses the server, known or not, and reads nothing.
    (void)courier->ReadCurrentServerConfigFromFile(nullptr, server);
    TDocumentInMemory<TServerConfigurationFileXMLList> list(courier);
    return list.Read(document, error);
}
