#include "buildfile/simwraphdlbuildfile.h"
#include "flows/check/buildfindings.h"
#include "flows/check/documentlocator.h"
#include "flows/check/scandiagnostics.h"
#include "flows/commandfile.h"
#include "flows/formats/exportformats.h"
#include "flows/imports/importedbuild.h"
#include "flows/imports/importformats.h"
#include "flows/knownnames.h"
#include "flows/plan/neededsources.h"
#include "flows/plan/planoptions.h"
#include "flows/scanedit.h"
#include "flows/textreaders.h"
#include "flows/toptexts.h"
#include "projectfiles/ihdlsourcefile.h"
#include "python/bindings.h"
#include "services/files/filereplace.h"
#include "services/names/isfilename.h"
#include <algorithm>
#include <functional>
#include <optional>

namespace {

using TDiagnostics = std::vector<TDiagnostic>;

py::object NumberOrNone(int number) {
    if (number > 0) return py::int_(number);
    return py::none();
}

py::object PlaceOf(const TDiagnosticSource& source) {
    return Pure("Place")(PathObjectOf(source.Path), NumberOrNone(source.Line),
                         NumberOrNone(source.Column));
}

/// What was found in a build file, and how its places are told.
struct TToldFindings {
    TDiagnostics Diagnostics;
    std::string File;  ///< as it is told
    TDocumentLocator Locator = TDocumentLocator({});

    py::object PlaceIn(const TDiagnostic& diagnostic) const {
        if (!diagnostic.Source.Path.empty()) return PlaceOf(diagnostic.Source);
        if (diagnostic.Place == kNoXMLPlace || !Locator.HasPlaces()) return py::none();
        const TLinePlace place = Locator.Find(diagnostic.Place);
        return PlaceOf({File, place.Line, place.Column});
    }
};

py::list ListOf(const TToldFindings& found) {
    py::list findings;
    const py::object make = Pure("Finding");
    const py::object severities = Pure("Severity");
    for (const TDiagnostic& diagnostic : found.Diagnostics) {
        const TDiagnosticRule& rule = GetDiagnosticRule(diagnostic.Code);
        py::tuple details(diagnostic.Details.size());
        for (std::size_t i = 0; i < diagnostic.Details.size(); ++i)
            details[i] = TextOf(diagnostic.Details[i]);
        findings.append(make(TextOf(GetDiagnosticId(rule.Code)), TextOf(rule.Name),
                             severities(TextOf(GetSeverityText(rule.Severity))),
                             TextOf(GetDiagnosticText(diagnostic)), found.PlaceIn(diagnostic),
                             details, TextOf(rule.Cure)));
    }
    return findings;
}

bool HasError(const TDiagnostics& diagnostics) {
    return std::any_of(diagnostics.begin(), diagnostics.end(), [](const TDiagnostic& diagnostic) {
        return GetDiagnosticRule(diagnostic.Code).Severity == SEVERITY_ERROR;
    });
}

[[noreturn]] void RaiseFindings(const TDiagnostics& diagnostics) {
    Raise("ConversionError", py::make_tuple(ListOf({diagnostics, {}})));
}

/// How a caller wants to have a build checked.
struct TWantedCheck {
    bool Sources;
    std::vector<std::string> External;
    TPathForm Form = {};
};

/// Its places are not told yet.
TToldFindings CheckOne(THdlBuildFile& build, const TDocumentFindings& document,
                       const TWantedCheck& wanted) {
    const TPathForm& form = wanted.Form;
    TCheckedBuild checked{build, form, document, {wanted.External}};
    std::optional<TBuildScan> scan;
    std::optional<TToldScan> told;
    if (wanted.Sources && build.HasBuildElement()) {
        scan.emplace(build, checked.LinkOptions);
        told.emplace(TToldScan{*scan, form, SortVerilog(build).Late});
        checked.Scan = &*told;
    }
    TToldFindings found{{}, PathText(build.GetFileName(), form)};
    for (auto& [key, kind] : FindAll(checked))
        found.Diagnostics.insert(found.Diagnostics.end(), kind.Diagnostics.begin(),
                                 kind.Diagnostics.end());
    return found;
}

/// Of the build as write() leaves it. It is read from that text, as the file will be: so the disk
/// is asked anew for the sources, and the document is that of the build.
std::string CheckSession(TSession& session, const TWantedCheck& wanted, TToldFindings* found) {
    std::string reason = session.GetEdit().FindEdits();
    if (!reason.empty()) return reason;
    const ISFileName* const file = session.GetFile();
    const std::string& text = session.GetEdit().GetFile().GetChanged();
    TSimWrapHdlBuildFile build;
    TXMLReadError error;
    if (!ReadBuildText(text, file, &build, &error)) return error.Reason;
    *found = CheckOne(build, CheckDocument(file, text), wanted);
    found->Locator = TDocumentLocator(text);
    return "";
}

py::list CheckBuild(TSession& session, bool sources, const py::object& external) {
    const TWantedCheck wanted{sources, TextsOf(external)};
    TToldFindings found;
    const std::string reason =
        WorkOn(session, [&] { return CheckSession(session, wanted, &found); });
    if (!reason.empty()) RaiseWriteError(session.GetFile(), reason);
    return ListOf(found);
}

py::list CheckFile(const py::object& path, bool sources, const py::object& external) {
    const ISFileName* const file = FileOf(path);
    const TWantedCheck wanted{sources, TextsOf(external)};
    TXMLReadError error;
    TToldFindings found;
    {
        const py::gil_scoped_release release;
        TSimWrapHdlBuildFile build(file);
        error = build.GetReadError();
        if (!error.IsError()) {
            const TDocumentFindings document = CheckDocument(file);
            found = CheckOne(build, document, wanted);
            found.Locator = TDocumentLocator(document.ReadText(file));
        }
    }
    if (error.IsError()) RaiseReadError(error, file);
    return ListOf(found);
}

py::list ScanBuild(TSession& session, bool exact, bool sort, bool tops,
                   const py::object& external) {
    const std::vector<std::string> libraries = TextsOf(external);
    const TPathForm form;
    return ListOf(WorkOn(session, [&]() -> TToldFindings {
        THdlBuildFile& build = session.GetBuild();
        const TBuildScan scan(build, {libraries});
        TToldScan told{scan, form};
        ApplyScan(scan, FindScanChanges(scan, build, {exact, tops}), &build);
        const TCompileSort sorted = SortVerilog(build);
        told.Late = sorted.Late;
        if (sort) ApplySort(sorted, &build);
        return {DiagnoseScan(told, {true, exact, sort}), {}};
    }));
}

const TExportFormat& ExportFormatOf(const std::string& name) {
    if (const TExportFormat* const format = FindExportFormat(name)) return *format;
    std::vector<std::string> known;
    for (const TExportFormat& format : GetExportFormats()) known.emplace_back(format.Name);
    RaiseValueError(UnknownName("format", name, known));
}

/// What a caller wants to have exported.
struct TWantedExport {
    const TExportFormat& Format;
    std::string Top;     ///< "": all of them
    std::string Folder;  ///< of the paths, with '/' at its end; "" for whole paths
};

struct TMadeExport {
    std::string Text;
    TDiagnostics Losses;
    std::string Complaint;  ///< about the arguments
};

TMadeExport MakeExport(THdlBuildFile& build, const TWantedExport& wanted) {
    TBuildPlan plan = MakePlan(build);
    const TBuildTop* top = nullptr;
    if (!wanted.Top.empty()) {
        top = FindTopOf(plan.Tops, wanted.Top);
        if (!top) return {{}, {}, NoTopOf(plan.Tops, wanted.Top)};
        top = LeaveOutUnneeded(build, *top, &plan);
    }
    TExported exported = wanted.Format.Write({plan, wanted.Folder, top});
    TDiagnostics losses = std::move(plan.Losses);
    losses.insert(losses.end(), exported.Losses.begin(), exported.Losses.end());
    return {std::move(exported.Text), std::move(losses), {}};
}

std::string FolderOf(const ISFileName* file) {
    return WholePath("", file->GetParts(PART_DRIVE | PART_DIRECTORY)) + "/";
}

/// A top as such or as its text; "" for None.
std::string TopTextOf(const py::object& top) {
    return top.is_none() ? "" : BytesOf(py::str(top));
}

TMadeExport ExportAs(TSession& session, const TWantedExport& wanted) {
    TMadeExport made = WorkOn(session, [&] { return MakeExport(session.GetBuild(), wanted); });
    if (!made.Complaint.empty()) RaiseValueError(made.Complaint);
    if (HasError(made.Losses)) RaiseFindings(made.Losses);
    return made;
}

py::str ExportText(TSession& session, const py::object& format, const py::object& top,
                   const py::object& folder, bool absolute) {
    const ISFileName* const base =
        folder.is_none() ? session.GetFile() : FileOf(py::str(folder) + py::str("/x"));
    const TWantedExport wanted{ExportFormatOf(BytesOf(format)), TopTextOf(top),
                               absolute ? "" : FolderOf(base)};
    return TextOf(ExportAs(session, wanted).Text);
}

py::list ExportFile(TSession& session, const py::object& format, const py::object& path,
                    const py::object& top, bool absolute) {
    const ISFileName* const file = FileOf(path);
    const TWantedExport wanted{ExportFormatOf(BytesOf(format)), TopTextOf(top),
                               absolute ? "" : FolderOf(file)};
    AwaitIdle(session);
    const std::string name = file->Canonical(false);
    if (IsSameFile(file, session.GetFile()))
        RaiseValueError(name + ": the output would replace the build file");
    if (FindSourceReplacedBy(name, session.GetBuild()))
        RaiseValueError(name + ": the output would replace a source");
    const TMadeExport made = ExportAs(session, wanted);
    std::string reason;
    const bool isSaved =
        WorkOn(session, [&] { return ReplaceWholeFile(name.c_str(), made.Text, &reason); });
    if (!isSaved) RaiseWriteError(file, reason);
    return ListOf({made.Losses, {}});
}

template <class TFormats>
py::dict DescribeFormats(const TFormats& formats) {
    py::dict described;
    for (const auto& format : formats)
        described[TextOf(format.Name)] =
            Pure("Format")(TextOf(format.Name), TextOf(format.Description), TextOf(format.Holds));
    return described;
}

const TImportFormat& ImportFormatOf(const std::string& name) {
    if (const TImportFormat* const format = FindImportFormat(name)) return *format;
    std::vector<std::string> known;
    for (const TImportFormat& format : GetImportFormats()) known.emplace_back(format.Name);
    RaiseValueError(UnknownName("format", name, known));
}

py::object ImportFiles(const py::object& formatName, const py::object& files,
                       const py::object& path, const py::object& folder, bool lossy) {
    const TImportFormat& format = ImportFormatOf(BytesOf(formatName));
    const ISFileName* const file = FileOf(path);
    const TPathForm form;
    TImportRequest request{PathsOf(files), "", [&form](const std::string& name) {
                               return PathText(name.c_str(), form);
                           }};
    if (!folder.is_none())
        request.Folder = std::string(FileOf(folder)->CanonicalWithoutFinalSlash()) + "/";
    request.BuildFolder = FolderOf(file);
    const auto session = std::make_shared<TSession>(file);
    const TImported imported = WorkOn(*session, [&] { return Import(format, request); });
    const TDiagnostics& diagnostics = imported.Diagnostics;
    if (HasError(diagnostics) ||
        (!lossy && std::any_of(diagnostics.begin(), diagnostics.end(), IsImportLoss)))
        RaiseFindings(diagnostics);
    if (imported.Sources.empty()) RaiseValueError("there are no sources in the files");
    const std::string reason =
        WorkOn(*session, [&] { return session->Make(LanguageOfImported(imported)); });
    if (!reason.empty()) RaiseMakeError(file, reason);
    WorkOn(*session, [&] { AddImported(imported, &session->GetEdit()); });
    return Pure("Imported")(session, ListOf({diagnostics, {}}));
}

py::tuple NumbersIn(const std::vector<std::size_t>& numbers) {
    py::tuple tuple(numbers.size());
    for (std::size_t i = 0; i < numbers.size(); ++i) tuple[i] = numbers[i];
    return tuple;
}

py::tuple TextsIn(const std::vector<std::string>& texts) {
    py::tuple tuple(texts.size());
    for (std::size_t i = 0; i < texts.size(); ++i) tuple[i] = TextOf(texts[i]);
    return tuple;
}

py::tuple PathsIn(const std::vector<std::string>& paths) {
    py::tuple tuple(paths.size());
    for (std::size_t i = 0; i < paths.size(); ++i) tuple[i] = PathObjectOf(paths[i]);
    return tuple;
}

py::object SettingsOf(const TPlanSettings& settings) {
    py::dict defines;
    for (const TScanDefine& define : settings.Defines)
        defines[TextOf(define.Name)] = TextOf(define.Value);
    return Pure("PlanSettings")(
        ToLanguage(settings.Language),
        settings.Standard.empty() ? py::object(py::none()) : py::object(TextOf(settings.Standard)),
        PathsIn(settings.IncludeDirectories), PathsIn(settings.LibraryDirectories),
        TextsIn(settings.LibraryExtensions), defines, TextsIn(settings.Options[STEP_ANALYSE]),
        TextsIn(settings.Options[STEP_ELABORATE]), TextsIn(settings.Options[STEP_RUN]));
}

py::object PlanOf(TSession& session) {
    const TBuildPlan plan = WorkOn(session, [&] { return MakePlan(session.GetBuild()); });
    py::list sources;
    const py::object make = Pure("PlanSource");
    for (const TPlanSource& source : plan.Sources)
        sources.append(make(PathObjectOf(source.Path), ToLanguage(source.Language),
                            TextOf(source.Library), source.IsLibraryFile, NumbersIn(source.Needs)));
    py::list tops;
    for (const TBuildTop& top : plan.Tops) tops.append(TopObjectOf(top));
    py::list settings;
    for (const TPlanSettings& one : plan.Settings) settings.append(SettingsOf(one));
    return Pure("Plan")(TextOf(plan.Name), PathObjectOf(plan.Folder), sources, tops, settings,
                        ListOf({plan.Losses, {}}));
}

}  // namespace

void BindReports(py::module_& module, TBuildClass& build) {
    using namespace py::literals;
    build
        .def("check", &CheckBuild, py::kw_only(), "sources"_a = false, "external"_a = py::tuple(),
             R"(Tells what may be wrong with the build, as a list of findings.

With ``sources`` they are read and scanned, too; units of the ``external`` libraries are then not looked
for. The build is the one of Python, with what is not written yet; the disk is asked anew for the sources.
Raises WriteError when the file cannot take what was changed.)")
        .def("scan", &ScanBuild, py::kw_only(), "exact"_a = false, "sort"_a = false,
             "tops"_a = false, "external"_a = py::tuple(),
             R"(Reads the sources, and records the dependencies that they lack.

``exact`` takes dependencies away that the scan cannot explain, ``sort`` puts Verilog into compile order,
``tops`` records what nobody instantiates as top-level components; units of the ``external`` libraries are
not looked for. Returns the findings that are left.)")
        .def("plan", &PlanOf, "What the build means to a simulator.")
        .def(
            "export", &ExportFile, "format"_a, "path"_a, py::kw_only(), "top"_a = py::none(),
            "absolute"_a = false,
            R"(Writes a file of another tool, with paths relative to its folder unless ``absolute``.

``top``, one of the build's or its name, leaves out what it does not need. Returns what the format has no
words for, as a list of findings. Raises ConversionError, with nothing written, where one of them is an
error, WriteError, and ValueError for an unknown format or top and for a path that is the build file's or a
source's.)")
        .def("export_text", &ExportText, "format"_a, py::kw_only(), "top"_a = py::none(),
             "folder"_a = py::none(), "absolute"_a = false,
             "The text that export() would write into a folder; without one, that of the build "
             "file.");
    module.def("check_file", &CheckFile, "path"_a, py::kw_only(), "sources"_a = false,
               "external"_a = py::tuple(),
               R"(Build.check() of a file, also of one that Build.read() does not take.

Raises ReadError for a file that cannot be read or is no XML.)");
    module.def("import_build", &ImportFiles, "format"_a, "files"_a, "path"_a, py::kw_only(),
               "folder"_a = py::none(), "lossy"_a = false,
               R"(Makes a build of the files of another tool, for a new build file at ``path``.

Relative paths in the files are taken against ``folder``, else against the folder of each file. Returns the
build, which is not written yet, and the findings. Raises ConversionError when the files cannot be
understood and, unless ``lossy``, when something in them comes into no build, ExistsError where a file is at
``path``, and ValueError for an unknown format and for files without sources.)");
    module.def(
        "export_formats", [] { return DescribeFormats(GetExportFormats()); },
        "The formats of Build.export(), by their names.");
    module.def(
        "import_formats", [] { return DescribeFormats(GetImportFormats()); },
        "The formats of import_build(), by their names.");
}
