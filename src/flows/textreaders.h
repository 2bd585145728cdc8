#pragma once
#include "services/xml/xmllist.h"
#include "settings/hpjfile.h"
#include <string>

class ISFileName;
class TEditedFile;
class TBaseSimToolServerClientCourier;
class THdlBuildFile;
class TProjectSimSettings;

// Models out of documents that are in memory. Relative names are taken against the folder of
// `file`, which is not looked at and outlives the model. False, with the reason in `error`, when
// the document cannot be parsed; the model is as it was then.

/// `build` is a new one. GetReadResult() of the build tells what its sections gave. Sources are
/// looked for on the disk, and missing ones shown in the message box, as when a file is read.
bool ReadBuildText(const std::string& document, const ISFileName* file, THdlBuildFile* build,
                   TXMLReadError* error);

/// The same of a file whose bytes were read, to be changed.
bool ReadBuildText(TEditedFile* file, THdlBuildFile* build, TXMLReadError* error);

/// `server` becomes the current server of `courier` and gets the tools, as when a file is read.
bool ReadSimulatorsText(const std::string& document, const char* server,
                        TBaseSimToolServerClientCourier* courier, TXMLReadError* error);

/// What THpjFile::Read makes of a file, with its results; `error` counts for HPJ_FILE_UNREADABLE.
THpjFileResult ReadProjectText(const std::string& document, const ISFileName* file,
                               TProjectSimSettings* settings, TXMLReadError* error);
