#include "tests/torture/filereaders.h"
#include "buildfile/hdlbuildfile.h"
#include "flows/imports/importformats.h"
#include "services/ini/propcache.h"
#include "services/names/isfilename.h"
#include "settings/hpjfile.h"
#include "settings/projectsimsettings.h"
#include "simtools/simtoolserverclientcourier.h"
#include "tests/support/temporaryfolder.h"
#include "tests/torture/formatsamples.h"
#include <algorithm>
#include <set>
#include <sstream>

namespace {

const ISFileName* HandleOf(const std::string& path) {
    return ISFileName::NewISFileName(path.c_str());
}

/// A folder for all reads: the library keeps names of files for ever.
const TemporaryFolder& Folder() {
    static const TemporaryFolder folder;
    // Patterns in files to import find it.
    static const std::string found = folder.Write("import/rtl/a.v", "module a; endmodule\n");
    return folder;
}

std::string ComplaintOfError(const TXMLReadError& error) {
    if (!error.IsError()) return "refused without a reason";
    if (error.Line < 1 || error.Column < 1) return "refused without a place: " + error.Reason;
    return kWasRefused;
}

std::string ComplaintOfCopies(const std::string& saved, const std::string& again) {
    return saved == again ? kWasRead : "what was saved reads otherwise:\n" + saved + "\n" + again;
}

/// What a save does that finds nothing that it may write.
std::string ResultOfNoSave(const char* name, const std::string& bytes) {
    return Folder().Read(name) == bytes ? kWasRefused : "damaged";
}

// It is saved over itself, as paths are relative to the file.
std::string ReadBuild(const TFileReader&, const std::string& bytes) {
    const auto* const path = HandleOf(Folder().Write("build.xml", bytes));
    THdlBuildFile build;
    build.SetBuildFileName(path);
    if (build.ReadFromFile() != READ_NO_ERROR && build.GetReadError().IsError())
        return ComplaintOfError(build.GetReadError());
    if (!build.WriteToFile()) return ResultOfNoSave("build.xml", bytes);
    const std::string saved = Folder().Read("build.xml");
    THdlBuildFile again;
    again.SetBuildFileName(path);
    if (again.ReadFromFile() != READ_NO_ERROR && again.GetReadError().IsError())
        return "what was saved cannot be read: " + again.GetReadError().Reason + "\n" + saved;
    if (!again.WriteToFile()) return "what was saved cannot be saved";
    return ComplaintOfCopies(saved, Folder().Read("build.xml"));
}

/// Reads and saves the project file once more; a complaint, or "".
std::string SaveProjectAgain(const ISFileName* path) {
    TProjectSimSettings settings;
    THpjFile file(path);
    if (file.Read(&settings) != HPJ_FILE_DONE) return "what was saved cannot be read";
    if (file.Save(&settings) != HPJ_FILE_DONE) return "what was saved cannot be saved";
    return {};
}

// A list of include directories that is empty is read as the one that every new project has.
std::string ReadProject(const TFileReader&, const std::string& bytes) {
    const auto* const path = HandleOf(Folder().Write("project.hpj", bytes));
    TProjectSimSettings settings;
    THpjFile file(path);
    if (const THpjFileResult result = file.Read(&settings); result != HPJ_FILE_DONE)
        return result == HPJ_FILE_UNREADABLE       ? ComplaintOfError(file.GetReadError())
               : *THpjFile::GetErrorString(result) ? kWasRefused
                                                   : "refused without a reason";
    if (const THpjFileResult result = file.Save(&settings); result != HPJ_FILE_DONE)
        return ResultOfNoSave("project.hpj", bytes);
    if (std::string complaint = SaveProjectAgain(path); !complaint.empty()) return complaint;
    const std::string saved = Folder().Read("project.hpj");
    if (std::string complaint = SaveProjectAgain(path); !complaint.empty()) return complaint;
    return ComplaintOfCopies(saved, Folder().Read("project.hpj"));
}

std::string SortedLines(const std::string& text) {
    std::istringstream stream(text);
    std::multiset<std::string> lines;
    for (std::string line; std::getline(stream, line);) lines.insert(line);
    std::string sorted;
    for (const std::string& line : lines) sorted += line + "\n";
    return sorted;
}

// The languages of a simulator may come back in another order.
std::string ReadSimulators(const TFileReader&, const std::string& bytes) {
    const auto* const path = HandleOf(Folder().Write("simulators.cfg", bytes));
    TBaseSimToolServerClientCourier courier;
    courier.SetCurrentServerName("localhost");
    if (!courier.ReadCurrentServerConfigFromFile(path, "localhost")) return kWasRefused;
    if (!courier.WriteCurrentServerConfigToFile(path))
        return ResultOfNoSave("simulators.cfg", bytes);
    const std::string saved = Folder().Read("simulators.cfg");
    TBaseSimToolServerClientCourier again;
    again.SetCurrentServerName("localhost");
    if (!again.ReadCurrentServerConfigFromFile(path, "localhost"))
        return "what was saved cannot be read:\n" + saved;
    if (!again.WriteCurrentServerConfigToFile(path)) return "what was saved cannot be saved";
    return ComplaintOfCopies(SortedLines(saved), SortedLines(Folder().Read("simulators.cfg")));
}

/// The values of a section, one a line.
std::string ValuesOf(const TPropCache& cache, const char* section) {
    std::string text;
    for (const std::string& key : cache.GetPrivatePropKeys(section))
        text += key + "=" + cache.GetPrivatePropText(section, key.c_str(), "") + "\n";
    return text;
}

std::string ReadIni(const TFileReader&, const std::string& bytes) {
    const std::string path = Folder().Write("settings.ini", bytes);
    std::string values;
    {
        TPropCache cache(path.c_str(), nullptr);
        if (!cache.GetReadError().Reason.empty()) return kWasRefused;
        values = ValuesOf(cache, "One") + ValuesOf(cache, "Two");
        cache.WritePrivatePropString("Torture", "Key", "value");
        if (!cache.Flush()) return ResultOfNoSave("settings.ini", bytes);
    }
    const TPropCache again(path.c_str(), nullptr);
    if (again.GetPrivatePropText("Torture", "Key", "") != "value") return "not saved";
    const std::string kept = ValuesOf(again, "One") + ValuesOf(again, "Two");
    return kept == values ? kWasRead : "lost by a save:\n" + values + "\n" + kept;
}

// What is refused has a diagnostic; what is told stands in the file.
std::string ReadImport(const TFileReader& reader, const std::string& bytes) {
    TImportRequest request;
    request.Files = {Folder().Write("import/file", bytes)};
    request.TextOf = [](const std::string& path) { return path; };
    const TImported imported = Import(*FindImportFormat(reader.Name), request);
    const auto lines = std::count(bytes.begin(), bytes.end(), '\n') +
                       std::count(bytes.begin(), bytes.end(), '\r') + 2;
    for (const TDiagnostic& diagnostic : imported.Diagnostics)
        if (diagnostic.Source.Line < 0 || diagnostic.Source.Line > lines)
            return "told in line " + std::to_string(diagnostic.Source.Line) + ": " +
                   GetDiagnosticText(diagnostic);
    if (!imported.Sources.empty()) return kWasRead;
    return imported.Diagnostics.empty() ? kHoldsNothing : kWasRefused;
}

}  // namespace

bool IsSurvival(const std::string& result) {
    return result == kWasRead || result == kWasRefused || result == kHoldsNothing;
}

const std::vector<TFileReader>& GetFileReaders() {
    static const std::vector<TFileReader> readers = [] {
        std::vector<TFileReader> all = {
            {"build file", BuildSample(30), true, ReadBuild},
            {"project file", ProjectSample(), true, ReadProject},
            {"simulators.cfg", SimulatorsSample(), true, ReadSimulators},
            {"INI file", IniSample(), true, ReadIni}};
        for (const TFormatSample& sample : GetImportSamples())
            all.push_back({sample.Format, sample.Text, false, ReadImport});
        return all;
    }();
    return readers;
}

const TFileReader* FindFileReader(const std::string& name) {
    for (const TFileReader& reader : GetFileReaders())
        if (reader.Name == name) return &reader;
    return nullptr;
}
