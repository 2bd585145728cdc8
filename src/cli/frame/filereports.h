#pragma once
#include "cli/frame/streams.h"
#include "services/logging/messagebox.h"
#include "services/xml/xmllist.h"
#include <string>

class THdlBuildFile;

/// Keeps what the library would tell a user at a screen from being shown: the commands report it
/// themselves.
class TQuietMessageBox : public IMessageBox {
public:
    TQuietMessageBox() : Former(Fileservices::SetMessageBox(this)) {}
    ~TQuietMessageBox() override { Fileservices::SetMessageBox(Former); }
    TQuietMessageBox(const TQuietMessageBox&) = delete;
    TQuietMessageBox& operator=(const TQuietMessageBox&) = delete;

    void ShowMessage(const char*, const char*, int) override {}

private:
    IMessageBox* Former;
};

/// Why the file that the user named `file` could not be read, with the place of the fault.
std::string GetReadErrorText(TXMLReadError error, const std::string& file);
/// Tells in one error line why the file that the user named `file` could not be read, with the
/// place of the fault.
void ReportReadError(TXMLReadError error, const std::string& file, const TToolStreams& streams);

/// Reads a build file without showing messages. kExitFile, with one line on Err, for a file that
/// cannot be read or parsed; else kExitDone, or kExitProblems when the read result is not 0 or the
/// document is no build.
int LoadBuild(const std::string& file, const TToolStreams& streams, THdlBuildFile* build);

/// A warning on Err that no order of the sources is a compile order, as `count` cycles keep them
/// from one.
void ReportCycles(std::size_t count, const TToolStreams& streams);

/// An error line on Err for a document that is no build; nothing for a build.
void ReportNoBuild(const THdlBuildFile& build, const TToolStreams& streams);
/// The same, and the read result's text as an error line; nothing for result 0.
void ReportReadResult(const THdlBuildFile& build, const TToolStreams& streams);
