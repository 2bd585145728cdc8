#include "cli/frame/buildaccess.h"
#include "cli/frame/filereports.h"
#include "cli/frame/formatlist.h"
#include "cli/frame/jsonresults.h"
#include "cli/frame/texts.h"
#include "cli/import/commands.h"
#include "flows/imports/importedbuild.h"
#include "flows/imports/importformats.h"
#include "flows/knownnames.h"
#include "services/names/utilfilename.h"
#include <algorithm>

namespace {

constexpr const char* kList = "list";

/// With '/'.
std::string FolderOf(const std::string& path) {
    std::string folder = TUtilFileName(path.c_str()).Canonical();
    std::replace(folder.begin(), folder.end(), '\\', '/');
    return folder.substr(0, folder.find_last_of('/') + 1);
}

/// A run of the command.
class TImportRun {
public:
    TImportRun(const TImportArguments& arguments, const TToolStreams& streams)
        : Arguments(arguments), Streams(streams) {}

    int Run();

private:
    int Refuse(const std::string& reason, int status = kExitUsage) const {
        ReportError(Streams, reason);
        return status;
    }
    int List() const;
    void Read();
    int Tell();
    void TellOne(const TDiagnostic& diagnostic);
    void TellFailure(int status);
    int Save();

    const TImportArguments& Arguments;
    const TToolStreams& Streams;
    const TImportFormat* Format = nullptr;
    TPathForm Form;
    TImported Imported;
    TJson Told = TJson::Array();
};

int TImportRun::Run() {
    if (Arguments.Format == kList) return List();
    std::vector<std::string> known{kList};
    for (const TImportFormat& format : GetImportFormats()) known.emplace_back(format.Name);
    Format = FindImportFormat(Arguments.Format);
    if (!Format) return Refuse(UnknownName("format", Arguments.Format, known));
    if (Arguments.Files.empty()) return Refuse("FILE is required");
    if (Arguments.Output.empty()) return Refuse("--output is required");
    Read();
    const int status = Tell();
    if (status == kExitDone) return Save();
    TellFailure(status);
    return status;
}

int TImportRun::List() const {
    std::vector<TListedFormat> formats;
    formats.reserve(GetImportFormats().size());
    for (const TImportFormat& format : GetImportFormats())
        formats.push_back({format.Name, format.Description, format.Holds});
    PrintFormats(formats, "hdlbuild-import-formats", Arguments.Json, Streams);
    return kExitDone;
}

void TImportRun::Read() {
    TImportRequest request{Arguments.Files, "", [this](const std::string& path) {
                               return PathText(path.c_str(), Form);
                           }};
    if (!Arguments.Folder.empty())
        request.Folder =
            std::string(TUtilFileName(Arguments.Folder.c_str()).CanonicalWithoutFinalSlash()) + "/";
    request.BuildFolder = FolderOf(Arguments.Output);
    Imported = Import(*Format, request);
}

// Files that are missing do not keep a build from being made.
int TImportRun::Tell() {
    bool isLossy = false;
    bool hasErrors = false;
    bool isRead = true;
    for (const TDiagnostic& diagnostic : Imported.Diagnostics) {
        TellOne(diagnostic);
        isLossy = isLossy || IsImportLoss(diagnostic);
        hasErrors = hasErrors || IsImportError(diagnostic);
        isRead = isRead && diagnostic.Code != DIAGNOSTIC_IMPORT_UNREADABLE;
    }
    if (!isRead) return kExitFile;
    if (hasErrors) return kExitProblems;
    if (isLossy && !Arguments.IsLossy)
        return Refuse(Arguments.Output + ": not made, as something would be lost: --lossy makes it",
                      kExitProblems);
    if (!Imported.Sources.empty()) return kExitDone;
    std::string files;
    for (const std::string& file : Arguments.Files) files += (files.empty() ? "" : ", ") + file;
    return Refuse("there are no sources in " + files, kExitProblems);
}

void TImportRun::TellOne(const TDiagnostic& diagnostic) {
    const TDiagnosticSource& source = diagnostic.Source;
    const std::string text = GetDiagnosticText(diagnostic);
    const std::string code = GetDiagnosticId(diagnostic.Code);
    const std::string place = source.Path.empty() ? "" : GetSourcePlaceText(source) + ": ";
    const std::string line = place + text + " [" + code + "]";
    const bool isNote = GetDiagnosticRule(diagnostic.Code).Severity == SEVERITY_NOTE;
    const auto report = IsImportError(diagnostic) ? ReportError
                        : isNote                  ? ReportNote
                                                  : ReportWarning;
    report(Streams, line);
    if (!Arguments.Json) return;
    TJson json = {{"code", code}, {"text", text}};
    if (!source.Path.empty()) json["file"] = source.Path;
    if (source.Line > 0) json["line"] = source.Line;
    if (source.Column > 0) json["column"] = source.Column;
    Told.Add(std::move(json));
}

// With what was told: else JSON has the errors alone.
void TImportRun::TellFailure(int status) {
    if (!Streams.Outcome || !Streams.Outcome->IsWanted) return;
    TJson result = MakeResult("hdlbuild-failure");
    result["status"] = status;
    result["errors"] = Streams.Outcome->Errors;
    result["findings"] = std::move(Told);
    PrintJson(result, Streams);
}

int TImportRun::Save() {
    const TQuietMessageBox quiet;
    TBuildAccess build(Arguments.Output, Arguments, Streams);
    if (const int status = build.Make(LanguageOfImported(Imported)); status != kExitDone)
        return status;
    AddImported(Imported, &build.GetEdit());
    build.AddToResult("from", Format->Name);
    build.AddToResult("findings", std::move(Told));
    return build.Save("import");
}

}  // namespace

int RunImport(const TImportArguments& arguments, const TToolStreams& streams) {
    return TImportRun(arguments, streams).Run();
}
